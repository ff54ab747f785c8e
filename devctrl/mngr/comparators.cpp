#include "devctrl/mngr/comparators.h"

#include <algorithm>

#include "devctrl/util/string_utils.h"

namespace tarn::vyxpn {

bool isNumber(char c) {
    return c >= '0' && c <= '9';
}

namespace {

// The run of digits starting at `pos`; advances `pos` past it.
std::string digitRunFrom(const std::string& text, std::size_t& pos) {
    std::size_t start = pos;
    while (pos < text.size() && isNumber(text[pos]))
        ++pos;
    return text.substr(start, pos - start);
}

// The last run of digits in `text`, or "".
std::string lastDigitRun(const std::string& text) {
    std::size_t end = text.size();
    while (end > 0 && !isNumber(text[end - 1]))
        --end;
    std::size_t start = end;
    while (start > 0 && isNumber(text[start - 1]))
        --start;
    return text.substr(start, end - start);
}

}  // namespace

bool STRgreater(const std::string& a, const std::string& b) {
    std::size_t i = 0;
    std::size_t j = 0;
    bool decided = false;
    bool before = false;
    while (i < a.size() && j < b.size()) {
        if (isNumber(a[i]) && isNumber(b[j])) {
            int left = util::parseString<int>(digitRunFrom(a, i));
            int right = util::parseString<int>(digitRunFrom(b, j));
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
    std::string runA = lastDigitRun(a);
    std::string runB = lastDigitRun(b);
    if (!runA.empty() && !runB.empty()) {
        int left = util::parseString<int>(runA);
        int right = util::parseString<int>(runB);
        if (left != right)
            return left < right;
    }
    if (b.empty())
        return false;
    for (std::size_t k = 0; k < a.size() && k < b.size(); ++k) {
        signed char left = static_cast<signed char>(a[k]);
        signed char right = static_cast<signed char>(b[k]);
        if (left != right)
            return left < right;
    }
    return a.size() < b.size();
}

void sortNatural(std::vector<std::string>& list) {
    std::stable_sort(list.begin(), list.end(), STRgreater);
}

void sortPackages(std::vector<std::string>& list) {
    std::stable_sort(list.begin(), list.end(), PKGSTRgreater);
}

}  // namespace tarn::vyxpn
