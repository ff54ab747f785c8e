// SPDX-License-Identifier: MIT
#pragma once
// What the codes of TarnDeviceMngr::getNewFormatDeviceName mean, in words
// every front-end shows alike.

#include "devctrl/util/export.h"

namespace tarn::vyxpn {

// "renamed" (1), "migrated" (2), "not recommended" (3); "no translation"
// for 0 and anything else.
DEVCTRL_API const char* nameTranslationMeaning(int code);

}  // namespace tarn::vyxpn
