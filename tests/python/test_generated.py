# SPDX-License-Identifier: MIT
"""A generated installation: many families and parts, shared names, renames."""

import itertools

import pytest

from conftest import GENERATED_PARTS, run_tool


def test_every_family_lists_the_tools_parts(generated, generated_dir):
    assert generated.families() == run_tool(generated_dir, "families")
    total = 0
    for pm in generated.pms(loaded_only=True):
        parts = generated.parts(pm, obsolete=True)
        assert parts == run_tool(generated_dir, "parts", pm, "--all")
        total += len(parts)
    assert total > GENERATED_PARTS / 2


def test_iterating_a_large_result(generated):
    everything = generated.parts(obsolete=True)
    assert len(everything) > GENERATED_PARTS / 2
    biggest = max(generated.pms(loaded_only=True), key=lambda pm: len(generated.parts(pm)))
    seen = 0
    for name in generated.parts(biggest):
        seen += 1
    assert seen == len(generated.parts(biggest))
    for name in itertools.islice(generated.parts(biggest), 0, None, 97):
        part = generated.part(name)
        assert part.name == name and part.items


def test_where_on_generated_data(generated):
    pm = generated.pms(loaded_only=True)[0]
    every = generated.parts(pm)
    luts = sorted(int(generated.part(name).item("LUT", default="0")) for name in every)
    threshold = luts[len(luts) // 2]
    chosen = generated.parts(pm, where=f"LUT>={threshold}")
    assert 0 < len(chosen) < len(every)
    assert chosen == [name for name in every
                      if int(generated.part(name).item("LUT", default="0")) >= threshold]


def test_renamed_names_of_the_generated_list(generated, generated_dir):
    with open(f"{generated_dir}/pqrndev.lst") as names:
        old = [line.split("=")[0].strip() for line in names
               if "=" in line and not line.startswith(";")][:10]
    assert old
    for name in old:
        tool = run_tool(generated_dir, "check", name, check=False)
        check = generated.check(name)
        assert (check.result, check.use) == (tool["result"], tool.get("use"))


def test_export_of_the_generated_catalogue_equals_the_tool(generated, generated_dir):
    assert generated.export() == run_tool(generated_dir, "export")
