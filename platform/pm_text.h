#pragma once
// Small text helpers shared by the platform layer's readers.

#include <string_view>

namespace tarn::vyxpn::util {

inline bool isBlankOrTab(char c) {
    return c == ' ' || c == '\t';
}

// `text` without leading and trailing blanks and tabs (a view into `text`).
inline std::string_view trimBlanksAndTabs(std::string_view text) {
    std::size_t begin = 0;
    std::size_t end = text.size();
    while (begin < end && isBlankOrTab(text[begin]))
        ++begin;
    while (end > begin && isBlankOrTab(text[end - 1]))
        --end;
    return text.substr(begin, end - begin);
}

}  // namespace tarn::vyxpn::util
