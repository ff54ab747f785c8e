// SPDX-License-Identifier: MIT
#include "devctrl/mngr/device_mngr.h"
#include "devctrl/sds/item_flag.h"
#include "devctrl/sds/sds_file.h"
#include "devctrl/util/string_utils.h"

namespace tarn::vyxpn {

bool TarnDeviceMngr::getNameByPart(const std::string& part, std::string& pm, std::string& device,
                                   std::string& package, std::string& speed,
                                   std::string& condition) {
    // A name known to two families belongs to the one whose code sorts first.
    const PartOwnerIndex::Owner* owner = ownerOf(part);
    if (!owner)
        return false;
    std::string d, p, s, c;
    if (owner->cells[0] != PartOwnerIndex::kReadTheRow) {
        d = m_partOwners->text(owner->cells[0]);
        p = m_partOwners->text(owner->cells[1]);
        s = m_partOwners->text(owner->cells[2]);
        c = m_partOwners->text(owner->cells[3]);
    } else {
        // A row too short for its columns is read as the walk reads it, which
        // raises for broken data.
        const auto& rows = owner->file->m_genericDevices.m_datas;
        auto row = rows.find(part);
        if (row == rows.end() || !owner->file->getNameByRow(row->second, d, p, s, c))
            return false;
    }
    pm = *owner->pm;
    device = d;
    package = p;
    speed = s;
    condition = c;
    return true;
}

bool TarnDeviceMngr::exists(const std::string& part) {
    std::string pm, device, package, speed, condition;
    return getNameByPart(part, pm, device, package, speed, condition);
}

std::string TarnDeviceMngr::getItemValue(const std::string& item, const std::string& part,
                                         const std::string& defaultValue) {
    std::string pm, device, package, speed, condition;
    if (!getNameByPart(part, pm, device, package, speed, condition))
        return defaultValue;
    auto entry = m_familyFiles.find(pm);
    if (entry == m_familyFiles.end() || !entry->second)
        return defaultValue;
    return entry->second->getItemValue(item, part, defaultValue);
}

std::string TarnDeviceMngr::getItemValue(const std::string& item, const std::string& pm,
                                         const std::string& device, const std::string& package,
                                         const std::string& defaultValue) {
    auto entry = m_familyFiles.find(pm);
    if (entry == m_familyFiles.end())
        return defaultValue;
    return entry->second->internalGetDevPkgItemValue(item, device, package, defaultValue);
}

bool TarnDeviceMngr::stringToBool(const std::string& text) {
    return itemFlagIsSet(text);
}

int TarnDeviceMngr::getASCMaxNum(const std::string& part) {
    return util::parseString<int>(getItemValue("ASCMaxNum", part, "0"));
}

bool TarnDeviceMngr::enableASC(const std::string& part) {
    return getASCMaxNum(part) > 0;
}

}  // namespace tarn::vyxpn
