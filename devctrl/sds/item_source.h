// SPDX-License-Identifier: MIT
#pragma once
// Where the value of a part's item is read from.

#include <array>
#include <string>

#include "devctrl/util/export.h"

namespace tarn::vyxpn {

class TarnSDSFile;
class TarnSDSFileSection;

// The tables a part's item is looked up in, in the order getItemValue asks
// them (the family, device and package tables are one step: the finest of
// them that has the item as a column is the only one read).
enum class ItemOrigin {
    None,       // no table has a cell for the item: the caller's default
    Part,       // the part's own row of the part items ("Def Part")
    Package,    // the row of the part's device and package
    Device,     // the row of the part's device
    Family,     // the family-wide row
    PartTable,  // the generated part table: the fields of the part's name
                // (Device, Speed, Package, ShortPackage, Condition, Suffix)
                // and the values custom items were built with
};

// "part", "package", "device", "family", "part table"; "" for None.
DEVCTRL_API const char* itemOriginName(ItemOrigin origin);

// The tables of a family that hold items, in ItemOrigin order (Part,
// Package, Device, Family, PartTable): their columns are every item name the
// family knows.
DEVCTRL_API std::array<const TarnSDSFileSection*, 5> itemTables(const TarnSDSFile& family);

// The cell an item lookup reads and the table it is in. The cell may be
// empty: an empty cell is a value of "nothing", and getItemValue gives the
// caller's default for it without asking the later tables.
struct DEVCTRL_API ItemSource {
    ItemOrigin origin = ItemOrigin::None;
    const std::string* cell = nullptr;  // null exactly when origin is None
};

}  // namespace tarn::vyxpn
