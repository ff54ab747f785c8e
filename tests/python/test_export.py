# SPDX-License-Identifier: MIT
"""Catalogue.export() against `devctrl export`."""

import pytest

from conftest import normalized, run_tool


def comparable(document):
    """The tool's export with keys in the package's spelling; item names and
    the device, package and speed keys are data and stay as they are."""
    keep = set()
    for family in document["pms"].values():
        for table in ("packages", "speeds", "conditions"):
            stack = [family[table]]
            while stack:
                level = stack.pop()
                if isinstance(level, dict):
                    keep.add(id(level))
                    stack.extend(level.values())
        keep.update(id(part["items"]) for part in family["parts"])
    keep.add(id(document["pms"]))
    return normalized(document, keep)


@pytest.mark.parametrize("pm,flags", [("zr1a00", []), ("ZR2", ["--all"]),
                                      ("zr3c00", ["--asc-only"]), (None, [])])
def test_export_equals_the_tool(sample, sample_dir, pm, flags):
    tool = comparable(run_tool(sample_dir, "export", *([pm] if pm else []), *flags))
    ours = sample.export(pm, obsolete="--all" in flags, asc_only="--asc-only" in flags)
    assert ours == tool


def test_export_agrees_with_the_list_queries(sample):
    family = sample.export("zr1a00")["pms"]["zr1a00"]
    assert family["devices"] == sample.devices("zr1a00")
    device = family["devices"][2]
    assert family["packages"][device] == sample.packages("zr1a00", device)
    assert [part["name"] for part in family["parts"]] == sample.parts("zr1a00")

