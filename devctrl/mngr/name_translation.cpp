// SPDX-License-Identifier: MIT
#include "devctrl/mngr/name_translation.h"

#include "devctrl/mngr/device_mngr.h"

namespace tarn::vyxpn {

const char* nameTranslationMeaning(int code) {
    switch (code) {
        case 1:
            return "renamed";
        case 2:
            return "migrated";
        case 3:
            return "not recommended";
        default:
            return "no translation";
    }
}

NameCheck checkName(TarnDeviceMngr& mngr, const std::string& name) {
    NameCheck check;
    std::string newName;
    check.code = mngr.checkDevice(name, newName);
    switch (check.code) {
        case TarnDeviceMngr::DeviceCheckValid:
            check.result = "valid";
            check.use = name;
            break;
        case TarnDeviceMngr::DeviceCheckUseNewName:
            check.result = "replaced";
            check.use = newName;
            break;
        case TarnDeviceMngr::DeviceCheckReplacementRecommended:
            check.result = "not recommended";
            check.use = newName;
            break;
        default:
            break;
    }
    return check;
}

}  // namespace tarn::vyxpn
