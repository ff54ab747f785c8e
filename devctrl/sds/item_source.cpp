// SPDX-License-Identifier: MIT
#include "devctrl/sds/item_source.h"

#include "devctrl/sds/sds_file.h"

namespace tarn::vyxpn {

const char* itemOriginName(ItemOrigin origin) {
    switch (origin) {
        case ItemOrigin::Part:
            return "part";
        case ItemOrigin::Package:
            return "package";
        case ItemOrigin::Device:
            return "device";
        case ItemOrigin::Family:
            return "family";
        case ItemOrigin::PartTable:
            return "part table";
        case ItemOrigin::None:
            break;
    }
    return "";
}

std::array<const TarnSDSFileSection*, 5> itemTables(const TarnSDSFile& family) {
    return {&family.m_partSection, &family.m_packageSection, &family.m_deviceSection,
            &family.m_pmSection, &family.m_genericDevices};
}

}  // namespace tarn::vyxpn
