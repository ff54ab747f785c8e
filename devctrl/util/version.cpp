// SPDX-License-Identifier: MIT
#include "devctrl/util/version.h"

namespace tarn::vyxpn {

const char* libraryVersion() {
    return DEVCTRL_VERSION;
}

}  // namespace tarn::vyxpn
