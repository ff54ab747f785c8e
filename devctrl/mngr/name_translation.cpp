// SPDX-License-Identifier: MIT
#include "devctrl/mngr/name_translation.h"

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

}  // namespace tarn::vyxpn
