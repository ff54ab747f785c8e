// SPDX-License-Identifier: MIT
#include <QString>
#include <cstdlib>
#include <cstring>
#include <map>

#include "devctrl/mngr/device_mngr.h"
#include "devctrl/util/comparators.h"
#include "platform/base_settings.h"
#include "platform/pm_database.h"
#include "platform/pm_devkey.h"
#include "platform/pm_pic.h"

namespace tarn::vyxpn {

void TarnDeviceMngr::baseGetAllFamilies(StringList& out) {
    PM_PIC pic(nullptr, nullptr, nullptr, 0);
    PM_NAME_DARRAY families = pic.makeInstalledArchList(0);
    out.clear();
    for (std::size_t i = 0; i < families.size(); ++i)
        out.emplace_back(families[i].getstring(0));
    sortNatural(out);
    families.release();
}

void TarnDeviceMngr::baseGetAllPMs(StringList& out) {
    PM_PIC pic(nullptr, nullptr, nullptr, 0);
    StringList families;
    baseGetAllFamilies(families);
    for (const auto& family : families) {
        pic.set_pm(family.c_str(), 0);
        const char* pm = pic.getPmName(0);
        if (pm && *pm)
            out.emplace_back(pm);
    }
}

std::string TarnDeviceMngr::baseFamilyToPm(const std::string& family) {
    if (family.empty())
        return "";
    // Only answers are cached: an unknown family is asked again next time.
    // The cache belongs to the database, so a new data directory starts afresh.
    std::map<std::string, std::string>& cache = PM_DATABASE::buildMe()->familyToPmNames();
    auto cached = cache.find(family);
    if (cached != cache.end())
        return cached->second;
    PM_PIC pic(nullptr, nullptr, nullptr, 0);
    pic.setPmInternal(family.c_str(), 0);
    const char* pm = pic.getPmName(0);
    if (!pm || !*pm)
        return "";
    return cache.emplace(family, pm).first->second;
}

std::string TarnDeviceMngr::basePmToFamily(const std::string& pm) {
    if (pm.empty())
        return "";
    std::map<std::string, std::string>& cache = PM_DATABASE::buildMe()->pmToFamilyNames();
    auto cached = cache.find(pm);
    if (cached != cache.end())
        return cached->second;
    PM_PIC pic(nullptr, nullptr, nullptr, 0);
    pic.setPmInternal(pm.c_str(), 0);
    const PM_RECORD* record = pic.getPm(0);
    const char* family = record ? record->familyName.getstring(0) : nullptr;
    if (!family || !*family)
        return "";
    return cache.emplace(pm, family).first->second;
}

char* TarnDeviceMngr::getValueByKey(const char* pm, const char* key) {
    if (!pm || !key)
        return nullptr;
    const PM_RECORD* record = PM_DATABASE::buildMe()->findPm(pm, 0);
    if (!record || !record->keys)
        return nullptr;
    std::shared_ptr<const PM_DEVKEY> keys = record->keys;
    const char* value = keys->getkeyeddata(key);
    return value ? strdup(value) : nullptr;
}

std::string TarnDeviceMngr::getDefaultDevice() {
    BaseSettings settings{QString()};
    return settings.getDefaultStringSetting(QStringLiteral("Device")).toStdString();
}

void TarnDeviceMngr::setDefaultDevice(const std::string& part) {
    BaseSettings settings{QString()};
    settings.setDefaultStringSetting(QStringLiteral("Device"), QString::fromStdString(part));
}

}  // namespace tarn::vyxpn
