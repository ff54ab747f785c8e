// SPDX-License-Identifier: MIT
#include "devctrl/sds/devstatus_flags.h"

#include <cctype>

namespace tarn::vyxpn {

namespace {
unsigned flagOfLetter(char letter) {
    switch (std::toupper(static_cast<unsigned char>(letter))) {
        case 'P':
            return DEVSTATUS_FLAGS::PRODUCTION;
        case 'E':
            return DEVSTATUS_FLAGS::ENGINEERING;
        case 'A':
            return DEVSTATUS_FLAGS::ADVANCED;
        case 'O':
            return DEVSTATUS_FLAGS::OBSOLETE;
        default:
            return DEVSTATUS_FLAGS::NONE;
    }
}
}  // namespace

unsigned DEVSTATUS_FLAGS::toDevStatusFlag(const std::string& status) {
    if (status.empty() || status.size() > 2)
        return NONE;
    // An obsolete part was in production before: a bare "O" is short for "PO".
    const std::string letters = (status == "O" || status == "o") ? std::string("PO") : status;
    unsigned flags = NONE;
    for (char letter : letters)
        flags |= flagOfLetter(letter);
    return flags;
}

}  // namespace tarn::vyxpn
