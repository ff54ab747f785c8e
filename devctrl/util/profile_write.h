// SPDX-License-Identifier: MIT
#pragma once
// The profile writer with the details its exported form cannot return, and
// the limits of what an entry can hold. Not part of the exported interface.

#include <string>

namespace tarn::vyxpn::util::profile {

struct WriteOutcome {
    // What WritePrivateProfileString returns: whether the change was found
    // to be made, which is not the same as the file having been written.
    int result = 0;
    // The new content is in the file.
    bool written = false;
    // Why it is not ("cannot write FILE: ..."), when it is not.
    std::string error;
};

// WritePrivateProfileString with its outcome told apart.
WriteOutcome writeProfileString(const char* section, const char* key, const char* value,
                                const char* path);

// Longest line the readers take in one piece, without its newline.
constexpr std::size_t kLongestLine = 1022;

// Empty when `key` = `value` in `section` would read back exactly as given;
// otherwise one line naming the limit it breaks. The readers cut lines into
// pieces of the line buffer, end a line at a NUL byte or line break, trim
// blanks and remove one pair of enclosing quotes.
std::string entryProblem(const std::string& section, const std::string& key,
                         const std::string& value);

}  // namespace tarn::vyxpn::util::profile
