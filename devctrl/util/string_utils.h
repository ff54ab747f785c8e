// SPDX-License-Identifier: MIT
#pragma once
// Text helpers shared by every subsystem: case folding, trimming, splitting,
// list lookup and number conversion on byte strings.

#include <sstream>
#include <string>
#include <vector>

#include "devctrl/util/export.h"

namespace tarn::vyxpn::util {

DEVCTRL_API std::string toLower(const std::string& text);
DEVCTRL_API std::string toUpper(const std::string& text);

// `text` without the characters of " \t\n\r" (and only those) at its ends;
// a copy of trimmed() for callers that keep the result.
DEVCTRL_API std::string trim(const std::string& text);

// The non-empty tokens of `text`, cut at any character of `delimiters`.
DEVCTRL_API std::vector<std::string> split(const std::string& text, const std::string& delimiters);

// Position of the first element equal to `value`, or -1.
DEVCTRL_API int indexOf(const std::vector<std::string>& list, const std::string& value);

// Reads one value with a string stream. Bad text never throws; for text that
// does not start with a value the result is the value-initialised T (0 for int).
template <typename T>
T parseString(const std::string& text) {
    std::istringstream in(text);
    T value{};
    in >> value;
    return value;
}

template <typename T>
std::string toString(const T& value) {
    std::ostringstream out;
    out << value;
    return out.str();
}

}  // namespace tarn::vyxpn::util
