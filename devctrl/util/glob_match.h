// SPDX-License-Identifier: MIT
#pragma once
// Shell-style patterns as users type them to pick names.

#include <string>

#include "devctrl/util/export.h"

namespace tarn::vyxpn::util {

// Whether `text` matches `pattern` (* any run, ? one character, [...] one of a
// set, [!...] none of it), without regard to letter case.
DEVCTRL_API bool matchesGlob(const std::string& pattern, const std::string& text);

}  // namespace tarn::vyxpn::util
