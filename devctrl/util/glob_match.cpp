// SPDX-License-Identifier: MIT
#include "devctrl/util/glob_match.h"

#include <fnmatch.h>

namespace tarn::vyxpn::util {

bool matchesGlob(const std::string& pattern, const std::string& text) {
    return fnmatch(pattern.c_str(), text.c_str(), FNM_CASEFOLD) == 0;
}

}  // namespace tarn::vyxpn::util
