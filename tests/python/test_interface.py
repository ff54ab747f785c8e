# SPDX-License-Identifier: MIT
"""The public names: documented, and the type stubs say the same as the module."""

import ast
import os
import pydoc

import pytest

import devctrl
from devctrl import _devctrl


def stub_members():
    """{class name: set of member names} declared in the module's stub."""
    path = os.path.join(os.path.dirname(_devctrl.__file__), "_devctrl.pyi")
    with open(path) as stub:
        tree = ast.parse(stub.read())
    return {node.name: {item.name for item in node.body
                        if isinstance(item, ast.FunctionDef) and not item.name.startswith("_")}
            for node in tree.body if isinstance(node, ast.ClassDef)}


def public(cls):
    return {name for name in vars(cls) if not name.startswith("_")}


@pytest.mark.parametrize("cls", [devctrl.Catalogue, devctrl.Part, devctrl.Check])
def test_stubs_declare_exactly_the_public_members(cls):
    assert stub_members()[cls.__name__] == public(cls)


@pytest.mark.parametrize("name", devctrl.__all__)
def test_every_public_name_is_documented(name):
    obj = getattr(devctrl, name)
    assert obj.__doc__ and obj.__doc__.strip(), name
    if isinstance(obj, type):
        for member in public(obj):
            attribute = getattr(obj, member)
            if callable(attribute) or isinstance(attribute, property):
                assert attribute.__doc__, f"{name}.{member}"


def test_help_reads_well():
    text = pydoc.render_doc(devctrl.Catalogue, renderer=pydoc.plaintext)
    assert "class Catalogue" in text and "devctrl._devctrl" not in text
    assert "parts(self: devctrl.Catalogue, pm: Optional[str] = None" in text
    assert "std::" not in text
