// SPDX-License-Identifier: MIT
#pragma once
// The words of one `devctrl shell` line, quoted as in a POSIX shell, so that
// a line reads exactly as the same command typed at a prompt.

#include <stdexcept>
#include <string>
#include <vector>

namespace devctrl_tool {

// Blanks separate words; '...' keeps everything inside as it stands; "..."
// keeps everything but a backslash before " \ $ or `, which stands for that
// character; outside quotes a backslash keeps the next character as it is;
// a # that begins a word begins a comment. Throws std::invalid_argument for
// a quote that is not closed or a backslash at the end of the line.
std::vector<std::string> splitShellWords(const std::string& line);

}  // namespace devctrl_tool
