// SPDX-License-Identifier: MIT
// The manager's ASC questions and the device data report: each finds the
// family of a part (or the reference family for catalogue questions) and
// forwards to it.

#include "devctrl/device/device_obj.h"
#include "devctrl/mngr/device_mngr.h"
#include "devctrl/sds/sds_file.h"

namespace tarn::vyxpn {

namespace {
// Every family carries the same shared ASC catalogue, so catalogue questions
// are answered by one of them: the family whose PM sorts first. The tables
// of several families are never merged.
const TarnSDSFile* referenceFamily(const std::map<std::string, TarnSDSFile*>& families) {
    return families.empty() ? nullptr : families.begin()->second;
}

const TarnSDSFile* loadedFamily(const std::map<std::string, TarnSDSFile*>& families,
                                const std::string& pm) {
    auto found = families.find(pm);
    return found == families.end() ? nullptr : found->second;
}
}  // namespace

bool TarnDeviceMngr::getInternalASCs(const std::string& part, std::map<std::string, int>& ascs) {
    if (part.empty())
        return false;
    std::string pm, device, package, speed, condition;
    if (!getNameByPart(part, pm, device, package, speed, condition))
        return false;
    const TarnSDSFile* family = loadedFamily(m_familyFiles, pm);
    return family && family->getInternalASCs(part, ascs);
}

bool TarnDeviceMngr::getSupportedASCs(const std::string& part, StringList& ascs) {
    std::string pm, device, package, speed, condition;
    if (!getNameByPart(part, pm, device, package, speed, condition))
        return false;
    const TarnSDSFile* family = loadedFamily(m_familyFiles, pm);
    return family && family->getSupportedASCs(part, ascs);
}

std::string TarnDeviceMngr::getDefaultASC() {
    const TarnSDSFile* family = referenceFamily(m_familyFiles);
    return family ? family->m_defaultASC : std::string();
}

int TarnDeviceMngr::getGloablSupportedASCs(StringList& ascs) {
    const TarnSDSFile* family = referenceFamily(m_familyFiles);
    return family ? family->getGlobalSupportedASCs(ascs) : 0;
}

bool TarnDeviceMngr::getGlobalASCValue(const std::string& asc, const std::string& item,
                                       std::string& value) {
    const TarnSDSFile* family = referenceFamily(m_familyFiles);
    return family && family->getGlobalASCValue(asc, item, value);
}

bool TarnDeviceMngr::calcDeviceData(const std::string& pm, const std::string& device,
                                    const std::string& package, KeyValueReport& data) {
    const TarnSDSFile* family = loadedFamily(m_familyFiles, pm);
    return family && family->calcDeviceData(device, package, data);
}

bool TarnDeviceMngr::calcDeviceData(const std::string& part, KeyValueReport& data) {
    std::string pm, device, package, speed, condition;
    if (!getNameByPart(part, pm, device, package, speed, condition))
        return false;
    return calcDeviceData(pm, device, package, data);
}

bool TarnDeviceMngr::calcDeviceData(TarnDeviceObj& dev, KeyValueReport& data) {
    if (!calcDeviceData(dev.m_part, data))
        return false;
    // The device rows stay in `data` even when the ASC step below fails.
    std::string pm, device, package, speed, condition;
    if (!getNameByPart(dev.m_part, pm, device, package, speed, condition))
        return false;
    const TarnSDSFile* family = loadedFamily(m_familyFiles, pm);
    return family && family->calcASCData(dev, data);
}

}  // namespace tarn::vyxpn
