// SPDX-License-Identifier: MIT
#pragma once
// Values shown inside one-line messages. A name or path comes from a user or
// a data file and may hold line breaks or terminal escape sequences; written
// as it is, it would split an error line or drive the user's terminal.

#include <string>
#include <string_view>

#include "export.h"

namespace tarn::vyxpn::util {

// `value` with control characters written as \n, \r, \t or \xHH (C1 controls
// encoded as UTF-8 as \u0080..\u009f) and backslashes doubled. Other bytes,
// UTF-8 text included, stay as they are.
DEVCTRL_API std::string escapedForMessage(std::string_view value);

// The same between single quotes, with single quotes inside escaped too:
// 'TD4\nTD12'.
DEVCTRL_API std::string quotedForMessage(std::string_view value);

}  // namespace tarn::vyxpn::util
