# SPDX-License-Identifier: MIT
"""INI files in the classic profile style, as the catalogue's own files are.

Sections and keys are matched without regard to letter case; only the first
section of a name is searched; values are read trimmed, with one pair of
enclosing quotes removed.
"""

from typing import List, Optional

from ._devctrl import _ini

__all__ = ["read", "write", "delete", "sections", "keys"]


def read(path: str, section: str, key: str, default: Optional[str] = None) -> str:
    """The value of ``key`` in ``section``.

    Without ``default`` a missing section or key raises KeyError; with it the
    default stands for a missing one.  OSError when the file cannot be read.
    """
    return _ini.read(path, section, key, default)


def write(path: str, section: str, key: str, value: str) -> None:
    """Sets ``key`` in ``section`` to ``value``, creating the file, section or key."""
    _ini.write(path, section, key, value)


def delete(path: str, section: str, key: Optional[str] = None) -> None:
    """Removes ``key`` from ``section``, or the whole section without a key.

    KeyError when the section or key is not there.
    """
    _ini.delete(path, section, key)


def sections(path: str) -> List[str]:
    """The section names of the file, in file order."""
    return _ini.sections(path)


def keys(path: str, section: str) -> List[str]:
    """The keys of ``section``, in file order; KeyError without the section."""
    return _ini.keys(path, section)
