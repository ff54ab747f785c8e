# SPDX-License-Identifier: MIT
"""The FPGA device catalogue of devctrl, for Python scripts.

    import devctrl
    cat = devctrl.Catalogue()
    cat.families()
    cat.parts("ZR1", where="LUT>=20000")
    part = cat.part("ZR12-6BG100C")
    part.items["LUT"].value, part.validate(asc=["ASC10"])

Unknown names raise :class:`UnknownNameError` (a KeyError) with the nearest
known names, bad installed data :class:`DataError`.
"""

from . import ini
from ._devctrl import Catalogue, Check, Part
from ._errors import (CatalogueBusyError, DataDirError, DataError, Error, FilterSyntaxError,
                      LoadCancelled, UnknownNameError)
from ._types import Asc, Item, Settings, Translation, Validation

__all__ = [
    "Asc", "Catalogue", "CatalogueBusyError", "Check", "DataDirError", "DataError", "Error",
    "FilterSyntaxError", "Item", "LoadCancelled", "Part", "Settings", "Translation",
    "UnknownNameError", "Validation", "ini",
]
