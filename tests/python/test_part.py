# SPDX-License-Identifier: MIT
"""A Part and its questions, against the tool."""

import pytest

import devctrl
from conftest import run_tool

PARTS = ["ZR12-6BG100C", "ZR2-2Q48I", "ZR25-7F256I"]


@pytest.mark.parametrize("name", PARTS)
def test_fields_equal_the_tool(sample, sample_dir, name):
    part = sample.part(name)
    tool = run_tool(sample_dir, "part", name)
    assert {field: getattr(part, field) for field in
            ("pm", "family", "device", "package", "speed", "condition")} == {
        field: tool[field] for field in
        ("pm", "family", "device", "package", "speed", "condition")}
    assert part.name == str(part) == name


@pytest.mark.parametrize("name", PARTS)
def test_items_agree_with_the_item_lookup_and_the_tool(sample, sample_dir, name):
    part = sample.part(name)
    items = part.items
    assert items, "every sample part has items"
    origins = {"part", "package", "device", "family", "part table"}
    for item, (value, origin) in items.items():
        assert value and origin in origins
        assert part.item(item) == value
    for item in list(items)[:4]:
        assert run_tool(sample_dir, "item", name, item) == items[item].value


def test_item_default_stands_for_a_missing_value(sample):
    part = sample.part("ZR12-6BG100C")
    assert part.item("No Such Item", default="none") == "none"


@pytest.mark.parametrize("name", PARTS)
def test_settings_and_asc_equal_the_tool(sample, sample_dir, name):
    part = sample.part(name)
    tool = run_tool(sample_dir, "settings", name)
    get = lambda *keys: next(tool[k] for k in keys if k in tool)  # either key style
    settings = part.settings
    assert settings.synplify == tool["synplify"] and settings.precision == tool["precision"]
    assert settings.default_synthesis == get("default_synthesis", "defaultSynthesis")
    assert (settings.icf, settings.lst, settings.bitgen) == (tool["icf"], tool["lst"],
                                                             tool["bitgen"])
    asc = part.asc
    assert asc.max == get("asc_max", "ascMax")
    assert asc.on_board == get("asc_on_board", "ascOnBoard")
    assert asc.linkable == get("asc_linkable", "ascLinkable")


@pytest.mark.parametrize("name,chips", [
    ("ZR12-6BG100C", []),
    ("ZR12-6BG100C", ["ASC10"]),
    ("ZR12-6BG100C", ["ASC10", "ASC20", "ASC10"]),
    ("ZR12-6BG100C", ["ASC40"]),
    ("ZR2-2Q48I", ["ASC10"]),
])
def test_validate_equals_the_tool(sample, sample_dir, name, chips):
    flags = [arg for chip in chips for arg in ("--asc", chip)]
    tool = run_tool(sample_dir, "validate", name, *flags, check=False)
    result = sample.part(name).validate(asc=chips)
    assert result.ok == tool["valid"] == bool(result)
    assert result.message == tool.get("message", "valid")


@pytest.mark.parametrize("name,chips", [("ZR12-6BG100C", []), ("ZR12-6BG100C", ["ASC10"]),
                                        ("ZR25-7F256I", [])])
def test_report_equals_the_tool(sample, sample_dir, name, chips):
    flags = [arg for chip in chips for arg in ("--asc", chip)]
    tool = run_tool(sample_dir, "report", name, *flags)
    rows = sample.part(name).report(asc=chips)
    assert rows and [{"item": item, "value": value} for item, value in rows] == tool


def test_report_refuses_a_chip_the_part_cannot_link(sample):
    part = sample.part("ZR12-6BG100C")
    refused = part.validate(asc=["ASC40"])
    assert not refused
    with pytest.raises(ValueError, match=refused.message):
        part.report(asc=["ASC40"])


@pytest.mark.parametrize("name", ["ZR12-6BG100C", "ZQ12-6B100C", "ZR7-6Q48C", "ZR100-6F484C",
                                  "ZR4-7C121I", "ZR12-6BG100CES", "NOPE-1X1C"])
def test_check_equals_the_tool(sample, sample_dir, name):
    tool = run_tool(sample_dir, "check", name, check=False)
    check = sample.check(name)
    assert (check.result, check.code, check.use) == (tool["result"], tool["code"],
                                                     tool.get("use"))
    assert bool(check) == (check.result != "unknown")
    if name in sample:
        assert sample.part(name).check().result == check.result


@pytest.mark.parametrize("name,renames_only", [("ZQ12-6B100C", False), ("ZR7-6Q48C", False),
                                               ("ZR7-6Q48C", True), ("ZR100-6F484C", False),
                                               ("ZR12-6BG100C", False)])
def test_translate_equals_the_tool(sample, sample_dir, name, renames_only):
    tool = run_tool(sample_dir, "translate", name, *(["--renames-only"] if renames_only else []))
    code, meaning, new_name = sample.translate(name, renames_only=renames_only)
    new_key = next(k for k in ("new_name", "newName") if k in tool)
    assert (code, meaning, new_name or "") == (tool["code"], tool["meaning"], tool[new_key])


@pytest.mark.parametrize("name", PARTS)
def test_part_name_rebuilds_the_name(sample, name):
    part = sample.part(name)
    assert sample.part_name(part.pm, part.device, part.package, part.speed,
                            part.condition) == name
    assert sample.part_name(part.family, part.device, part.package, part.speed,
                            part.condition[0]) == name


def test_part_name_names_the_level_that_is_wrong(sample):
    with pytest.raises(devctrl.UnknownNameError) as raised:
        sample.part_name("zr1a00", "ZR12", "BG100", "6", "CON")
    assert raised.value.kind == "condition" and "COM" in raised.value.suggestions
    with pytest.raises(devctrl.UnknownNameError) as raised:
        sample.part_name("zr1a00", "ZR12", "BG101", "6", "C")
    assert raised.value.kind == "package"


def test_parts_are_values(sample):
    a, b = sample.part("ZR12-6BG100C"), sample.part("ZR12-6BG100C")
    assert a == b and hash(a) == hash(b) and len({a, b}) == 1
    assert "ZR12-6BG100C" in repr(a)
    assert "ZR12-6BG100C" in sample and "ZR12-6BG100" not in sample
