// SPDX-License-Identifier: MIT
#pragma once
// How an item text reads as a yes/no setting. Family data write flags in
// several spellings, so one rule decides them everywhere.

#include <string>

namespace tarn::vyxpn {

// "yes", "y", "true", "t" and "1", in any case, are true; anything else is false.
bool itemFlagIsSet(const std::string& text);

}  // namespace tarn::vyxpn
