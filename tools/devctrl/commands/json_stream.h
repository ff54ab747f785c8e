// SPDX-License-Identifier: MIT
#pragma once
// Streaming JSON output for documents too large to build in memory first.

#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace devctrl_tool {

// Writes `text` as a JSON string, encoded as every other command encodes
// it (toJsonText).
void writeJsonString(std::ostream& out, std::string_view text);
// Writes a JSON array of strings on one line.
void writeJsonList(std::ostream& out, const std::vector<std::string>& list);

}  // namespace devctrl_tool
