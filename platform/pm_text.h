// SPDX-License-Identifier: MIT
#pragma once
// Small text helpers shared by the platform layer's readers.

#include <string_view>

namespace tarn::vyxpn::util {

inline bool isBlankOrTab(char c) {
    return c == ' ' || c == '\t';
}

// What the readers cut from the ends of a text: the data files count only
// blanks and tabs; the profile functions every white-space character of the
// C locale; the family readers blanks, tabs and line ends.
inline constexpr std::string_view kBlanksAndTabs = " \t";
inline constexpr std::string_view kWhiteSpace = " \t\n\v\f\r";
inline constexpr std::string_view kBlanksAndLineEnds = " \t\n\r";

enum class TrimEnds { Both, Leading, Trailing };

// The one trim every reader uses: `text` without the characters of `cut` at
// the chosen ends, as a view into `text` (nothing is copied).
inline std::string_view trimmed(std::string_view text, std::string_view cut = kBlanksAndTabs,
                                TrimEnds ends = TrimEnds::Both) {
    std::size_t begin = 0;
    std::size_t end = text.size();
    if (ends != TrimEnds::Trailing)
        while (begin < end && cut.find(text[begin]) != std::string_view::npos)
            ++begin;
    if (ends != TrimEnds::Leading)
        while (end > begin && cut.find(text[end - 1]) != std::string_view::npos)
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
