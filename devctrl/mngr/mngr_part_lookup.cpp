#include "devctrl/mngr/device_mngr.h"
#include "devctrl/sds/item_flag.h"
#include "devctrl/sds/sds_file.h"
#include "devctrl/util/string_utils.h"

namespace tarn::vyxpn {

bool TarnDeviceMngr::getNameByPart(const std::string& part, std::string& pm, std::string& device,
                                   std::string& package, std::string& speed,
                                   std::string& condition) {
    // A name known to two families belongs to the one whose code sorts first.
    const std::optional<OwnedRow> owner = ownerOf(part);
    std::string d, p, s, c;
    if (!owner || !owner->file->getNameByRow(*owner->row, d, p, s, c))
        return false;
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
