// SPDX-License-Identifier: MIT
#include "devctrl/sds/item_flag.h"

#include "devctrl/util/string_utils.h"

namespace tarn::vyxpn {

bool itemFlagIsSet(const std::string& text) {
    const std::string lower = util::toLower(text);
    return lower == "yes" || lower == "y" || lower == "true" || lower == "t" || lower == "1";
}

}  // namespace tarn::vyxpn
