# SPDX-License-Identifier: MIT
"""Catalogue.export() against `devctrl export`."""

import pytest

from conftest import run_tool


@pytest.mark.parametrize("pm,flags", [("zr1a00", []), ("ZR2", ["--all"]),
                                      ("zr3c00", ["--asc-only"]), (None, [])])
def test_export_equals_the_tool(sample, sample_dir, pm, flags):
    tool = run_tool(sample_dir, "export", *([pm] if pm else []), *flags)
    ours = sample.export(pm, obsolete="--all" in flags, asc_only="--asc-only" in flags)
    assert ours == tool


def test_export_agrees_with_the_list_queries(sample):
    family = sample.export("zr1a00")["pms"]["zr1a00"]
    assert family["devices"] == sample.devices("zr1a00")
    device = family["devices"][2]
    assert family["packages"][device] == sample.packages("zr1a00", device)
    assert [part["name"] for part in family["parts"]] == sample.parts("zr1a00")

