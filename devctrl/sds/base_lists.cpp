// SPDX-License-Identifier: MIT
#include "devctrl/sds/base_lists.h"

#include "devctrl/util/comparators.h"
#include "platform/pm_devkey.h"
#include "platform/pm_pic.h"

namespace tarn::vyxpn {

namespace {

void appendNames(PM_NAME_DARRAY& names, std::vector<std::string>& out) {
    for (std::size_t i = 0; i < names.size(); ++i)
        out.emplace_back(names[i].getstring(0));
    names.release();
}

}  // namespace

void pmDevices(const std::string& pm, std::vector<std::string>& out) {
    out.clear();
    PM_PIC pic(nullptr, nullptr, nullptr, 0);
    pic.set_pm(pm.c_str(), 0);
    PM_NAME_DARRAY names = pic.makeDeviceList(0);
    appendNames(names, out);
}

void pmPackages(const std::string& pm, const std::string& device, std::vector<std::string>& out) {
    out.clear();
    PM_PIC pic(nullptr, nullptr, nullptr, 0);
    pic.set_pm(pm.c_str(), 0);
    pic.set_device(device.c_str());
    PM_NAME_DARRAY names = pic.makePkgList(0);
    appendNames(names, out);
}

void pmSpeeds(const std::string& pm, const std::string& device, const std::string& package,
              std::vector<std::string>& out) {
    out.clear();
    PM_PIC pic(nullptr, nullptr, nullptr, 0);
    pic.set_pm(pm.c_str(), 0);
    pic.set_device(device.c_str());
    pic.set_package(package.c_str());
    PM_NAME_DARRAY names = pic.makeSpdList(0);
    appendNames(names, out);
    sortNatural(out);
}

void pmOperations(const std::string& pm, const std::string& device, const std::string& package,
                  const std::string& speed, std::vector<std::string>& out) {
    out.clear();
    PM_PIC pic(nullptr, nullptr, nullptr, 0);
    pic.set_pm(pm.c_str(), 0);
    pic.set_device(device.c_str());
    pic.set_package(package.c_str());
    pic.set_speed(speed.c_str(), 0);
    const PM_SPEED_RECORD* record = pic.getSpeedRecord();
    if (!record)
        return;
    if (record->conditionFlags & PM_COND_COMMERCIAL)
        out.emplace_back("Commercial");
    if (record->conditionFlags & PM_COND_INDUSTRIAL)
        out.emplace_back("Industrial");
}

int g_getMemerItems(PM_DEVKEY& keys, const char* key, std::vector<std::string>& out) {
    out.clear();
    int count = 0;
    for (PM_DEVKEY_KEYITER iter(&keys, key, ',', 0, 0); iter.record(); iter.setupNextIAndJ()) {
        out.emplace_back(iter.record());
        ++count;
    }
    return count;
}

}  // namespace tarn::vyxpn
