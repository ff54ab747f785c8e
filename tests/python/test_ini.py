# SPDX-License-Identifier: MIT
"""devctrl.ini over the profile functions."""

import pytest

from devctrl import ini


@pytest.fixture
def profile(tmp_path):
    path = tmp_path / "settings.ini"
    path.write_text("[Paths]\nData = \"/opt/zr data\"\nCache=/tmp/zr\n\n[Flags]\nFast = 1\n")
    return str(path)


def test_read_trims_and_unquotes_and_matches_without_case(profile):
    assert ini.read(profile, "Paths", "Data") == "/opt/zr data"
    assert ini.read(profile, "paths", "CACHE") == "/tmp/zr"


@pytest.mark.parametrize("section,key", [("Paths", "Missing"), ("Missing", "Data")])
def test_read_of_a_missing_entry(profile, section, key):
    with pytest.raises(KeyError):
        ini.read(profile, section, key)
    assert ini.read(profile, section, key, default="fallback") == "fallback"


def test_lists_in_file_order(profile):
    assert ini.sections(profile) == ["Paths", "Flags"]
    assert ini.keys(profile, "Paths") == ["Data", "Cache"]
    with pytest.raises(KeyError):
        ini.keys(profile, "Nope")


def test_write_then_delete(profile, tmp_path):
    ini.write(profile, "Flags", "Fast", "0")
    ini.write(profile, "New", "Key", "value")
    assert ini.read(profile, "Flags", "Fast") == "0"
    assert ini.read(profile, "New", "Key") == "value"
    ini.delete(profile, "Paths", "Cache")
    assert ini.keys(profile, "Paths") == ["Data"]
    ini.delete(profile, "New")
    assert ini.sections(profile) == ["Paths", "Flags"]
    fresh = str(tmp_path / "fresh.ini")
    ini.write(fresh, "S", "K", "V")
    assert ini.read(fresh, "S", "K") == "V"


def test_unreadable_file_raises_os_error(tmp_path):
    with pytest.raises(OSError):
        ini.sections(str(tmp_path / "absent.ini"))


def test_delete_of_a_missing_section_raises_key_error(tmp_path):
    path = tmp_path / "empty.ini"
    path.write_text("")
    with pytest.raises(KeyError):
        ini.delete(str(path), "S")
