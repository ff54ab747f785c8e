// SPDX-License-Identifier: MIT
#pragma once
// A whole family in one walk over its part table: the devices, packages,
// speeds and conditions the list queries would give, and the passing parts
// with their fields and custom items. What an export of the catalogue is
// made of, for any front-end to write in its own format.

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "devctrl/util/export.h"

namespace tarn::vyxpn {

class TarnDeviceMngr;
class TarnSDSFile;

// One level of the selection tree: a device, a package, a speed or a
// condition, with the values of the next level under it.
struct DEVCTRL_API SelectionNode {
    std::string name;
    std::vector<SelectionNode> children;
};

// A part as views into the family's part table: valid while the family is
// loaded and its table is not edited. An export of a large catalogue then
// copies no cell.
struct DEVCTRL_API ExportedPart {
    std::string_view name;
    // The naming columns the table has, as (column, value): Device,
    // Package, Speed, Condition, Suffix, ShortPackage, in that order.
    std::vector<std::pair<std::string_view, std::string_view>> fields;
    bool obsolete = false;
    // The other columns, in table order; a column named twice appears once.
    std::vector<std::pair<std::string_view, std::string_view>> items;
};

struct DEVCTRL_API FamilyExport {
    // Devices in natural order (STRgreater), their packages in package order
    // (PKGSTRgreater), speeds and conditions in natural order: the orders of
    // the list queries. Empty when the part table cannot be listed (no
    // Status column), as the list queries then answer nothing.
    std::vector<SelectionNode> devices;
    // The passing parts in natural order.
    std::vector<ExportedPart> parts;
};

// What an export covers.
struct DEVCTRL_API ExportScope {
    // The PM asked for, or every loaded PM in the manager's order.
    std::vector<std::string> pms;
    // The families of those PMs that getAllFamilies lists with the same
    // filters: those with a passing part, in natural order.
    std::vector<std::string> families;
};

// `pmOrFamily` names one PM as requireLoadedPm takes it, and throws as it
// does; null means every loaded PM.
DEVCTRL_API ExportScope exportScope(TarnDeviceMngr& mngr, const std::string* pmOrFamily,
                                    bool withObsolete, bool ascOnly);

// The key of a naming column in an exported document, the same in every
// front-end: "ShortPackage" -> "short_package".
DEVCTRL_API std::string exportedFieldKey(std::string_view column);

// Parts pass the family's own filter, as in the list queries.
DEVCTRL_API FamilyExport exportFamily(const TarnSDSFile& family, bool withObsolete, bool ascOnly);

}  // namespace tarn::vyxpn
