# SPDX-License-Identifier: MIT
"""Loading: the data directory, one manager per process, progress, bad data."""

import gc
import os
import shutil
import sys
import threading
import time

import pytest

import devctrl
from conftest import open_catalogue


def test_the_data_directory_is_given_in_code(sample_dir, generated_dir):
    with open_catalogue(sample_dir) as catalogue:
        assert catalogue.data_dir == sample_dir
        assert "ZR1" in catalogue.families()
    with open_catalogue(generated_dir) as catalogue:
        assert catalogue.data_dir == os.path.abspath(generated_dir)
        assert catalogue.families() and "ZR1" not in catalogue.families()


def test_catalogues_on_one_directory_share_it(sample_dir):
    first = open_catalogue(sample_dir)
    second = devctrl.Catalogue(sample_dir)
    assert first.families() == second.families()
    first.close()
    assert second.parts("zr2b00")
    second.close()


def test_another_directory_waits_until_the_open_catalogue_and_its_parts_are_gone(
        sample_dir, generated_dir):
    catalogue = open_catalogue(sample_dir)
    part = catalogue.part("ZR12-6BG100C")
    with pytest.raises(devctrl.CatalogueBusyError, match="still open"):
        devctrl.Catalogue(generated_dir)
    assert catalogue.families()  # the refusal left the open one as it was
    catalogue.close()
    with pytest.raises(devctrl.CatalogueBusyError):
        devctrl.Catalogue(generated_dir)
    assert part.items  # a part keeps its catalogue's data
    del part
    gc.collect()
    with devctrl.Catalogue(generated_dir) as other:
        assert other.families()


def test_a_closed_catalogue_refuses_queries(sample_dir):
    catalogue = open_catalogue(sample_dir)
    catalogue.close()
    assert catalogue.closed
    with pytest.raises(ValueError, match="closed"):
        catalogue.families()


def test_progress_reports_each_family_and_may_stop_the_load(generated_dir):
    steps = []
    with open_catalogue(generated_dir,
                        progress=lambda *step: steps.append(step)) as catalogue:
        count = steps[0][3]
        assert [s[2] for s in steps] == list(range(1, count + 1))
        assert {s[0] for s in steps} >= set(catalogue.pms(loaded_only=True))
    with pytest.raises(devctrl.LoadCancelled):
        open_catalogue(generated_dir, progress=lambda pm, family, index, count: index < 2)

    def broken(*step):
        raise RuntimeError("from the callback")

    with pytest.raises(RuntimeError, match="from the callback"):
        open_catalogue(generated_dir, progress=broken)
    with open_catalogue(generated_dir) as catalogue:  # nothing half-loaded is left
        assert catalogue.families()


@pytest.fixture
def broken_dir(sample_dir, tmp_path):
    """The sample with one more family whose package table holds a negative
    PKGIndex."""
    copy = tmp_path / "data"
    shutil.copytree(sample_dir, copy)
    family = copy / "zr9z00"
    family.mkdir()
    (family / "family.key").write_text(
        "FAMILY   = ZR9\nDEVICES  = ZR91, ZR92\nPACKAGES = ZR91, BG10 : ZR92, BG10\n"
        "SPEEDS   = ZR91, BG10, 1 : ZR92, BG10, 1, 2\n")
    (family / "device.acd").write_text(
        "PM_ENABLE = true\nPKG_ALIAS = BG10, B10\n"
        "DEVICE_ITEMS = Status\nDEVICE_DATAS = ZR91, P : ZR92, P\n"
        "PACKAGE_ITEMS = ES, Condition, LUT, PKGIndex\n"
        "PACKAGE_DATAS = ZR91, BG10, No, C, 100, -1 : ZR92, BG10, No, CI, 200, 0\n")
    return str(copy)


def test_bad_data_raise_data_error_naming_where(broken_dir):
    with pytest.raises(devctrl.DataError) as raised:
        open_catalogue(broken_dir)
    error = raised.value
    assert error.pm == "zr9z00" and error.key == "PACKAGE_DATAS" and error.row == "ZR91, BG10"
    assert error.file.endswith("device.acd") and "negative" in error.problem
    assert "std::" not in str(error)
    with open_catalogue(broken_dir, skip_broken=True) as catalogue:
        assert [e.pm for e in catalogue.load_failures] == ["zr9z00"]
        assert "ZR9" not in catalogue.families() and "ZR1" in catalogue.families()


def test_a_missing_directory_raises_and_leaves_the_open_catalogue_alone(sample_dir, tmp_path):
    with pytest.raises(devctrl.DataDirError) as raised:
        open_catalogue(str(tmp_path / "absent"))
    assert isinstance(raised.value, FileNotFoundError)
    with open_catalogue(sample_dir) as catalogue:
        renamed = catalogue.translate("ZQ12-6B100C")
        for refused in (str(tmp_path / "absent"), str(tmp_path)):
            with pytest.raises((devctrl.DataDirError, devctrl.CatalogueBusyError)):
                devctrl.Catalogue(refused)
        # The renames are read from the data directory on each call.
        assert catalogue.translate("ZQ12-6B100C") == renamed and renamed.code == 1


def test_the_gil_is_released_while_loading_and_querying(generated_dir):
    """With a switch interval far longer than the call, the counting thread
    only runs when the call lets go of the GIL."""
    counter = [0]
    stop = threading.Event()

    def count():
        while not stop.is_set():
            counter[0] += 1
            time.sleep(0)  # lets go of the GIL; it comes back only when main lets go

    interval = sys.getswitchinterval()
    thread = threading.Thread(target=count)
    try:
        sys.setswitchinterval(30)
        thread.start()
        before = counter[0]
        catalogue = open_catalogue(generated_dir)
        loading = counter[0] - before
        before = counter[0]
        catalogue.parts(where="LUT>=0")
        querying = counter[0] - before
    finally:
        stop.set()
        sys.setswitchinterval(interval)
        thread.join()
    catalogue.close()
    assert loading > 0 and querying > 0
