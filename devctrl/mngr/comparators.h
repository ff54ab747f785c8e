#pragma once
// Natural orderings for the lists users see: embedded numbers compare as
// numbers. Both are "less than" predicates for std::sort despite their names.

#include <string>

namespace tarn::vyxpn {

bool isNumber(char c);

// Devices, speeds, conditions and part names. Any pair of aligned digit runs
// that differ decides, even after an earlier character difference.
bool STRgreater(const std::string& a, const std::string& b);

// Packages: the last digit run of each name decides first (pin count), then
// the characters.
bool PKGSTRgreater(std::string a, std::string b);

}  // namespace tarn::vyxpn
