# SPDX-License-Identifier: MIT
"""The exceptions of the devctrl package."""

from typing import Iterable


class Error(Exception):
    """A failure of the catalogue that no more specific exception describes."""


class UnknownNameError(KeyError):
    """A name nothing loaded knows: a part, PM, family, device, item...

    ``kind`` says which sort of name it is, ``name`` is the name as given and
    ``suggestions`` the nearest known names ("did you mean").
    """

    def __init__(self, message: str, kind: str = "", name: str = "",
                 suggestions: Iterable[str] = ()) -> None:
        super().__init__(message)
        self.message = message
        self.kind = kind
        self.name = name
        self.suggestions = list(suggestions)

    def __str__(self) -> str:
        # KeyError would show the message quoted like a key.
        return self.message


class DataError(Error):
    """Bad installed data, naming the PM, the file, the key and the record."""

    def __init__(self, message: str, pm: str = "", file: str = "", key: str = "",
                 row: str = "", problem: str = "") -> None:
        super().__init__(message)
        self.message = message
        self.pm = pm
        self.file = file
        self.key = key
        self.row = row
        self.problem = problem

    def __str__(self) -> str:
        return self.message


class FilterSyntaxError(ValueError):
    """A malformed ``where=`` condition."""


class CatalogueBusyError(Error):
    """A Catalogue on another data directory is still open in this process."""


class LoadCancelled(Error):
    """The progress callback stopped the load."""


class DataDirError(Error, FileNotFoundError):
    """The data directory does not exist or cannot be read."""
