// SPDX-License-Identifier: MIT
#include "devctrl/mngr/part_items.h"

#include <algorithm>
#include <unordered_set>

#include "devctrl/mngr/device_mngr.h"
#include "devctrl/sds/sds_file.h"

namespace tarn::vyxpn {

std::vector<PartItem> getPartItems(const TarnSDSFile& family, const std::string& part) {
    std::vector<PartItem> items;
    std::unordered_set<std::string> asked;
    const auto tables = itemTables(family);
    for (const TarnSDSFileSection* table : tables) {
        for (const std::string& name : table->m_items) {
            if (!asked.insert(name).second)
                continue;
            const ItemSource source = family.locateItem(name, part);
            if (source.cell && !source.cell->empty())
                items.push_back({name, *source.cell, source.origin});
        }
    }
    auto tableOf = [&](ItemOrigin origin) -> const TarnSDSFileSection& {
        return *tables[static_cast<std::size_t>(origin) - 1];
    };
    // Column positions only: the names are distinct, so the order is total.
    std::sort(items.begin(), items.end(), [&](const PartItem& a, const PartItem& b) {
        if (a.origin != b.origin)
            return a.origin < b.origin;
        return tableOf(a.origin).columnOf(a.name) < tableOf(b.origin).columnOf(b.name);
    });
    return items;
}

std::vector<PartItem> getPartItems(TarnDeviceMngr& mngr, const std::string& part) {
    std::string pm, device, package, speed, condition;
    if (!mngr.getNameByPart(part, pm, device, package, speed, condition))
        return {};
    const TarnSDSFile* family = mngr.getFamilyFile(pm);
    return family ? getPartItems(*family, part) : std::vector<PartItem>{};
}

}  // namespace tarn::vyxpn
