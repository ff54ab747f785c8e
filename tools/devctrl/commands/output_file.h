// SPDX-License-Identifier: MIT
#pragma once
// Where a command writes a file: the library's file writer, or standard
// output for "-".

#include <string>
#include <string_view>

namespace devctrl_tool {

// True for the name that stands for standard output.
inline bool isStandardOutput(const std::string& file) {
    return file == "-";
}

// Writes `content` as the whole of `file`; throws a ToolError naming the
// file and the reason when that fails.
void writeOutputFile(const std::string& file, std::string_view content);

}  // namespace devctrl_tool
