// SPDX-License-Identifier: MIT
// Per-part tool settings. Each reads one item of the part with a default, so
// unknown parts and parts without a value get the same answer.

#include "devctrl/device/device_obj.h"
#include "devctrl/mngr/device_mngr.h"
#include "devctrl/util/string_utils.h"

namespace tarn::vyxpn {

bool TarnDeviceMngr::enableSynplify(const std::string& part) {
    return stringToBool(getItemValue("SynplifyEnable", part, "1"));
}

bool TarnDeviceMngr::enablePrecision(const std::string& part) {
    return stringToBool(getItemValue("PrecisionEnable", part, "1"));
}

bool TarnDeviceMngr::enableICF(const std::string& part) {
    return stringToBool(getItemValue("ICFEnable", part, "0"));
}

bool TarnDeviceMngr::enableLST(const std::string& part) {
    return stringToBool(getItemValue("LSTEnable", part, "0"));
}

bool TarnDeviceMngr::enableBitgen(const std::string& part) {
    // The data say whether bitstream generation is switched off.
    return !stringToBool(getItemValue("BitOff", part, "0"));
}

std::string TarnDeviceMngr::getDefaultSynthesis(const TarnDeviceObj& device) {
    // Designs with ASC chips always default to Synplify, whatever the part's
    // own setting.
    if (device.useASC())
        return "synplify";
    return util::toLower(getItemValue("DefSynthesis", device.m_part, "synplify"));
}

std::string TarnDeviceMngr::getDefaultSynthesis(const std::string& part) {
    return getDefaultSynthesis(TarnDeviceObj(part));
}

}  // namespace tarn::vyxpn
