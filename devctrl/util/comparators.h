// SPDX-License-Identifier: MIT
#pragma once
// Natural orderings for the lists users see: embedded numbers compare as
// numbers. Both are "less than" predicates for std::sort despite their names.

#include <string>
#include <vector>

#include "devctrl/util/export.h"

namespace tarn::vyxpn {

DEVCTRL_API bool isNumber(char c);

// Devices, speeds, conditions and part names. Any pair of aligned digit runs
// that differ decides, even after an earlier character difference.
DEVCTRL_API bool STRgreater(const std::string& a, const std::string& b);

// Packages: the last digit run of each name decides first (pin count), then
// the characters.
DEVCTRL_API bool PKGSTRgreater(std::string a, std::string b);

// Sort with the orderings above. Neither is a strict weak ordering for every
// input (a number can outrank a letter seen earlier), and introsort may step
// outside the range under such a comparator; merge sort never does, and for
// consistent input it gives what any sort gives.
DEVCTRL_API void sortNatural(std::vector<std::string>& list);
DEVCTRL_API void sortPackages(std::vector<std::string>& list);

}  // namespace tarn::vyxpn
