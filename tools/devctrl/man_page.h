// SPDX-License-Identifier: MIT
#pragma once
// The manual page devctrl(1), written from the same command line that parses
// the arguments, so that it lists exactly the commands and options there are.

#include <string>

namespace devctrl_tool {

struct ToolDescription;

// The page in roff (man macros).
std::string manPage(const ToolDescription& tool);

}  // namespace devctrl_tool
