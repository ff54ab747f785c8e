// SPDX-License-Identifier: MIT
#pragma once
// The one name for a list of texts, used from the data readers up to the
// manager's queries and their callers.

#include <string>
#include <vector>

namespace tarn::vyxpn {

using StringList = std::vector<std::string>;

}  // namespace tarn::vyxpn
