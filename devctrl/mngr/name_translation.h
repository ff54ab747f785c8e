// SPDX-License-Identifier: MIT
#pragma once
// What the codes of TarnDeviceMngr::getNewFormatDeviceName and checkDevice
// mean, in words every front-end shows alike.

#include <string>

#include "devctrl/util/export.h"

namespace tarn::vyxpn {

class TarnDeviceMngr;

// "renamed" (1), "migrated" (2), "not recommended" (3); "no translation"
// for 0 and anything else.
DEVCTRL_API const char* nameTranslationMeaning(int code);

// A part name checked against the renamed and superseded names.
struct DEVCTRL_API NameCheck {
    // What checkDevice returned (TarnDeviceMngr::DeviceCheck).
    int code = 0;
    // "valid", "replaced" (renamed or migrated, or an engineering-sample
    // name), "not recommended" or "unknown".
    const char* result = "unknown";
    // The name to use: the name itself when valid, the new one when replaced
    // or not recommended; empty when unknown.
    std::string use;
};

DEVCTRL_API NameCheck checkName(TarnDeviceMngr& mngr, const std::string& name);

}  // namespace tarn::vyxpn
