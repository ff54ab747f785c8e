// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "devctrl/util/export.h"

namespace tarn::vyxpn {

// The device status word of a part ("Status" item), one or two letters.
struct DEVCTRL_API DEVSTATUS_FLAGS {
    enum : unsigned {
        NONE = 0,
        PRODUCTION = 1,   // P
        ENGINEERING = 2,  // E: engineering samples
        ADVANCED = 4,     // A: advance information
        OBSOLETE = 8,     // O
    };

    // Reads a status text of exactly one or two letters, case-insensitively;
    // any other length gives NONE. A lone "O" means "PO".
    static unsigned toDevStatusFlag(const std::string& status);
};

}  // namespace tarn::vyxpn
