#include "devctrl/mngr/comparators.h"
#include "devctrl/mngr/device_mngr.h"
#include "platform/pm_pic.h"

namespace tarn::vyxpn {

namespace {

void appendNames(PM_NAME_DARRAY& names, StringList& out) {
    for (std::size_t i = 0; i < names.size(); ++i)
        out.emplace_back(names[i].getstring(0));
    names.release();
}

}  // namespace

void TarnDeviceMngr::baseGetDevices(const std::string& pm, StringList& out) {
    out.clear();
    PM_PIC pic(nullptr, nullptr, nullptr, 0);
    pic.set_pm(pm.c_str(), 0);
    PM_NAME_DARRAY names = pic.makeDeviceList(0);
    appendNames(names, out);
}

void TarnDeviceMngr::baseGetPackages(const std::string& pm, const std::string& device,
                                     StringList& out) {
    out.clear();
    PM_PIC pic(nullptr, nullptr, nullptr, 0);
    pic.set_pm(pm.c_str(), 0);
    pic.set_device(device.c_str());
    PM_NAME_DARRAY names = pic.makePkgList(0);
    appendNames(names, out);
}

void TarnDeviceMngr::baseGetSpeeds(const std::string& pm, const std::string& device,
                                   const std::string& package, StringList& out) {
    out.clear();
    PM_PIC pic(nullptr, nullptr, nullptr, 0);
    pic.set_pm(pm.c_str(), 0);
    pic.set_device(device.c_str());
    pic.set_package(package.c_str());
    PM_NAME_DARRAY names = pic.makeSpdList(0);
    appendNames(names, out);
    sortNatural(out);
}

void TarnDeviceMngr::baseGetOperations(const std::string& pm, const std::string& device,
                                       const std::string& package, const std::string& speed,
                                       StringList& out) {
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

}  // namespace tarn::vyxpn
