# SPDX-License-Identifier: MIT
"""The small result records of the devctrl package."""

from typing import Dict, List, NamedTuple, Optional


class Item(NamedTuple):
    """An item's value and the table it is read from."""

    value: str
    origin: str  # 'part', 'package', 'device', 'family' or 'part table'


class Settings(NamedTuple):
    """Which tools and steps apply to a part."""

    synplify: bool
    precision: bool
    default_synthesis: str
    icf: bool
    lst: bool
    bitgen: bool


class Asc(NamedTuple):
    """The ASC chips of a part; on_board and linkable are None without data."""

    max: int
    on_board: Optional[Dict[str, int]]
    linkable: Optional[List[str]]


class Validation(NamedTuple):
    """The verdict on a part with linked chips; true when ok."""

    ok: bool
    message: str  # 'valid', or why not

    def __bool__(self) -> bool:
        return self.ok


class Translation(NamedTuple):
    """The current name of an old part name."""

    code: int  # 0 none, 1 renamed, 2 migrated, 3 not recommended
    meaning: str
    new_name: Optional[str]
