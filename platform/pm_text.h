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

// A line of a keyed data file continues on the next one when its last
// character that is not a blank or tab is a backslash; trailing blanks after
// it are forgiven because they are invisible in an editor. Strips the
// backslash (and what follows).
inline bool stripContinuation(std::string_view& line) {
    std::size_t end = line.size();
    while (end > 0 && isBlankOrTab(line[end - 1]))
        --end;
    if (end == 0 || line[end - 1] != '\\')
        return false;
    line = line.substr(0, end - 1);
    return true;
}

}  // namespace tarn::vyxpn::util
