// SPDX-License-Identifier: MIT
#pragma once
// The library's version, as the build was configured ("0.1.0"): what a host
// shows in its About box and what `devctrl --version` prints.

#include "devctrl/util/export.h"

namespace tarn::vyxpn {

DEVCTRL_API const char* libraryVersion();

}  // namespace tarn::vyxpn
