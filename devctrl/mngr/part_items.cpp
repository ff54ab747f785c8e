#include "devctrl/mngr/part_items.h"

#include <algorithm>
#include <unordered_set>

#include "devctrl/mngr/device_mngr.h"
#include "devctrl/sds/sds_file.h"

namespace tarn::vyxpn {

namespace {

const TarnSDSFileSection& tableOf(const TarnSDSFile& family, ItemOrigin origin) {
    switch (origin) {
        case ItemOrigin::Part:
            return family.m_partSection;
        case ItemOrigin::Package:
            return family.m_packageSection;
        case ItemOrigin::Device:
            return family.m_deviceSection;
        case ItemOrigin::Family:
            return family.m_pmSection;
        default:
            return family.m_genericDevices;
    }
}

}  // namespace

std::vector<PartItem> getPartItems(const TarnSDSFile& family, const std::string& part) {
    std::vector<PartItem> items;
    std::unordered_set<std::string> asked;
    for (const TarnSDSFileSection* table :
         {&family.m_partSection, &family.m_packageSection, &family.m_deviceSection,
          &family.m_pmSection, &family.m_genericDevices}) {
        for (const std::string& name : table->m_items) {
            if (!asked.insert(name).second)
                continue;
            const ItemSource source = family.locateItem(name, part);
            if (source.cell && !source.cell->empty())
                items.push_back({name, *source.cell, source.origin});
        }
    }
    // Column positions only: the names are distinct, so the order is total.
    std::sort(items.begin(), items.end(), [&](const PartItem& a, const PartItem& b) {
        if (a.origin != b.origin)
            return a.origin < b.origin;
        return tableOf(family, a.origin).columnOf(a.name) <
               tableOf(family, b.origin).columnOf(b.name);
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
