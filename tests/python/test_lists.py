# SPDX-License-Identifier: MIT
"""The list queries, their filters and their name checks, against the tool."""

import pytest

import devctrl
from conftest import run_tool

FILTERS = [({}, []), ({"obsolete": True}, ["--all"]), ({"asc_only": True}, ["--asc-only"])]


@pytest.mark.parametrize("options,flags", FILTERS)
def test_enumerations_equal_the_tool(sample, sample_dir, options, flags):
    assert sample.families(**options) == run_tool(sample_dir, "families", *flags)
    for pm in ("zr1a00", "ZR2"):
        devices = sample.devices(pm, **options)
        assert devices == run_tool(sample_dir, "devices", pm, *flags)
        for device in devices[:3]:
            packages = sample.packages(pm, device, **options)
            assert packages == run_tool(sample_dir, "packages", pm, device, *flags)
            for package in packages[:2]:
                speeds = sample.speeds(pm, device, package, **options)
                assert speeds == run_tool(sample_dir, "speeds", pm, device, package, *flags)
                for speed in speeds[:1]:
                    assert (sample.conditions(pm, device, package, speed, **options) ==
                            run_tool(sample_dir, "conditions", pm, device, package, speed,
                                     *flags))


def test_pms_list_installed_or_loaded(sample, sample_dir):
    assert sample.pms() == run_tool(sample_dir, "pms")
    loaded = sample.pms(loaded_only=True)
    assert set(loaded) <= set(sample.pms()) and "zr1a00" in loaded


def test_obsolete_and_asc_filters_change_the_answers(sample):
    every = set(sample.parts("zr1a00", obsolete=True))
    current = set(sample.parts("zr1a00"))
    with_asc = set(sample.parts("zr1a00", asc_only=True))
    assert current < every
    assert with_asc < current
    assert all(sample.part(name).asc.max > 0 for name in sorted(with_asc)[:20])


@pytest.mark.parametrize("pm,patterns", [
    ("zr1a00", []),
    ("ZR1", ["ZR12-*BG*"]),
    ("zr2b00", ["*q48c", "ZR2-3*"]),  # any of them, in any letter case
])
def test_parts_by_pattern_equal_the_tool(sample, sample_dir, pm, patterns):
    assert sample.parts(pm, patterns) == run_tool(sample_dir, "parts", pm, *patterns)


def test_parts_of_every_family_follow_pm_order(sample):
    everything = sample.parts()
    expected = []
    for pm in sample.pms(loaded_only=True):
        expected += sample.parts(pm)
    assert everything == expected


@pytest.mark.parametrize("where,holds", [
    ("LUT>=20000", lambda p: int(p.item("LUT")) >= 20000),
    ("LUT<5000", lambda p: int(p.item("LUT")) < 5000),
    ("Package~BG*", lambda p: p.package.upper().startswith("BG")),
    ("Condition=IND", lambda p: p.condition == "IND"),
    (["Speed=6", "Device!=ZR12"], lambda p: p.speed == "6" and p.device != "ZR12"),
])
def test_where_selects_exactly_the_parts_that_satisfy_it(sample, where, holds):
    every = sample.parts("zr1a00")
    chosen = sample.parts("zr1a00", where=where)
    assert chosen, "the condition should select something on the sample"
    assert chosen == [name for name in every if holds(sample.part(name))]


@pytest.mark.parametrize("call,kind,suggestion", [
    (lambda c: c.devices("ZR9"), "PM or family", "ZR1"),
    (lambda c: c.packages("zr1a00", "ZR13"), "device", "ZR12"),
    (lambda c: c.speeds("zr1a00", "ZR12", "BG10"), "package", "BG100"),
    (lambda c: c.parts("zr1a00", where="LUTT>1"), "item", "LUT"),
    (lambda c: c.part("ZR12-6BG100"), "part", "ZR12-6BG100C"),
    (lambda c: c.part("ZR12-6BG100C").item("LUTS"), "item", "LUT"),
])
def test_unknown_names_raise_with_suggestions(sample, call, kind, suggestion):
    with pytest.raises(devctrl.UnknownNameError) as raised:
        call(sample)
    error = raised.value
    assert isinstance(error, KeyError) and isinstance(error, LookupError)
    assert error.kind == kind
    assert suggestion in error.suggestions
    assert suggestion in str(error) and "std::" not in str(error)


@pytest.mark.parametrize("where", ["LUT", "LUT>", "=5", "LUT=>5"])
def test_malformed_conditions_raise_filter_syntax_error(sample, where):
    with pytest.raises(devctrl.FilterSyntaxError) as raised:
        sample.parts("zr1a00", where=where)
    assert isinstance(raised.value, ValueError) and str(raised.value)


def test_filter_names_hold_fields_and_items(sample):
    names = sample.filter_names("zr1a00")
    assert {"Device", "Package", "Speed", "Condition", "PM", "Family", "LUT"} <= set(names)
