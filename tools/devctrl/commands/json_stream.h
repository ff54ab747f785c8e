// SPDX-License-Identifier: MIT
#pragma once
// Streaming JSON output for documents too large to build in memory first.

#include <ostream>
#include <string>
#include <vector>

namespace devctrl_tool {

// Writes `text` as a JSON string, encoded as every other command encodes
// it (toJsonText).
void writeJsonString(std::ostream& out, const std::string& text);
// Writes a JSON array of strings on one line.
void writeJsonList(std::ostream& out, const std::vector<std::string>& list);

}  // namespace devctrl_tool
