// SPDX-License-Identifier: MIT
// The manager's base queries are the family layer's lists of the part-model
// library; they stay here under their public names.

#include "devctrl/mngr/device_mngr.h"
#include "devctrl/sds/base_lists.h"

namespace tarn::vyxpn {

void TarnDeviceMngr::baseGetDevices(const std::string& pm, StringList& out) {
    pmDevices(pm, out);
}

void TarnDeviceMngr::baseGetPackages(const std::string& pm, const std::string& device,
                                     StringList& out) {
    pmPackages(pm, device, out);
}

void TarnDeviceMngr::baseGetSpeeds(const std::string& pm, const std::string& device,
                                   const std::string& package, StringList& out) {
    pmSpeeds(pm, device, package, out);
}

void TarnDeviceMngr::baseGetOperations(const std::string& pm, const std::string& device,
                                       const std::string& package, const std::string& speed,
                                       StringList& out) {
    pmOperations(pm, device, package, speed, out);
}

}  // namespace tarn::vyxpn
