// SPDX-License-Identifier: MIT
#pragma once
// Every item of one part with the table its value comes from.

#include <string>
#include <vector>

#include "devctrl/sds/item_source.h"

#include "devctrl/util/export.h"

namespace tarn::vyxpn {

class TarnDeviceMngr;
class TarnSDSFile;

struct DEVCTRL_API PartItem {
    std::string name;
    std::string value;  // never empty
    ItemOrigin origin;  // never ItemOrigin::None
};

// Every item name for which getItemValue(name, part, default) gives a value
// rather than the default, with that value and the table it came from.
// Candidates are the columns of the family's part items, package, device,
// family and generated part tables; an item whose cell is empty (a value of
// "nothing") is left out, as getItemValue gives the default for it.
//
// Order: by origin, as the lookup asks (part, package, device, family, part
// table), and within one origin in the column order of that table.
// Agrees with the family's getItemValue for any name, including one the
// family does not hold (of which only its part items may say anything).
// Raises std::out_of_range where getItemValue does (a part table row shorter
// than its columns).
DEVCTRL_API std::vector<PartItem> getPartItems(const TarnSDSFile& family, const std::string& part);

// The same for the family that owns the full part name (the first PM, in
// byte-wise order, that knows it: the one getItemValue asks). Empty for a
// name no loaded family knows.
DEVCTRL_API std::vector<PartItem> getPartItems(TarnDeviceMngr& mngr, const std::string& part);

}  // namespace tarn::vyxpn
