// SPDX-License-Identifier: MIT
#include "devctrl/util/comparators.h"

#include <algorithm>
#include <limits>

namespace tarn::vyxpn {

bool isNumber(char c) {
    return c >= '0' && c <= '9';
}

namespace {

// The value of the digits in [begin, end): a run too long for an int counts
// as the largest int, as reading it with a stream gives. Lists are sorted
// with millions of comparisons, so nothing here allocates.
int digitRunValue(const std::string& text, std::size_t begin, std::size_t end) {
    constexpr long long kLargest = std::numeric_limits<int>::max();
    long long value = 0;
    for (std::size_t k = begin; k < end; ++k) {
        value = value * 10 + (text[k] - '0');
        if (value > kLargest)
            return static_cast<int>(kLargest);
    }
    return static_cast<int>(value);
}

// The value of the run of digits starting at `pos`; advances `pos` past it.
int digitRunFrom(const std::string& text, std::size_t& pos) {
    std::size_t start = pos;
    while (pos < text.size() && isNumber(text[pos]))
        ++pos;
    return digitRunValue(text, start, pos);
}

// Whether `text` has a digit; if so, the value of its last run of digits.
bool lastDigitRun(const std::string& text, int& value) {
    std::size_t end = text.size();
    while (end > 0 && !isNumber(text[end - 1]))
        --end;
    std::size_t start = end;
    while (start > 0 && isNumber(text[start - 1]))
        --start;
    value = digitRunValue(text, start, end);
    return start != end;
}

bool packageBefore(const std::string& a, const std::string& b) {
    int left = 0;
    int right = 0;
    if (lastDigitRun(a, left) && lastDigitRun(b, right) && left != right)
        return left < right;
    if (b.empty())
        return false;
    for (std::size_t k = 0; k < a.size() && k < b.size(); ++k) {
        signed char leftChar = static_cast<signed char>(a[k]);
        signed char rightChar = static_cast<signed char>(b[k]);
        if (leftChar != rightChar)
            return leftChar < rightChar;
    }
    return a.size() < b.size();
}

}  // namespace

bool STRgreater(const std::string& a, const std::string& b) {
    std::size_t i = 0;
    std::size_t j = 0;
    bool decided = false;
    bool before = false;
    while (i < a.size() && j < b.size()) {
        if (isNumber(a[i]) && isNumber(b[j])) {
            int left = digitRunFrom(a, i);
            int right = digitRunFrom(b, j);
            // A differing number overrides any character difference seen so far.
            if (left != right)
                return left < right;
            continue;
        }
        if (!decided) {
            signed char left = static_cast<signed char>(a[i]);
            signed char right = static_cast<signed char>(b[j]);
            if (left != right) {
                decided = true;
                before = left < right;
            }
        }
        ++i;
        ++j;
    }
    return decided ? before : a.size() < b.size();
}

bool PKGSTRgreater(std::string a, std::string b) {
    return packageBefore(a, b);
}

void sortNatural(std::vector<std::string>& list) {
    std::stable_sort(list.begin(), list.end(), STRgreater);
}

void sortPackages(std::vector<std::string>& list) {
    std::stable_sort(list.begin(), list.end(), packageBefore);
}

}  // namespace tarn::vyxpn
