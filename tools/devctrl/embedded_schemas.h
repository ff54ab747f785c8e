// SPDX-License-Identifier: MIT
#pragma once
// The JSON Schemas of the commands' --json answers, built into the tool from
// docs/schemas/*.json (the files are the one source).

#include <vector>

namespace devctrl_tool {

struct EmbeddedSchema {
    const char* name;  // the file name without .json: a command, or "error"
    const char* text;  // the file as it stands
};

// In name order.
const std::vector<EmbeddedSchema>& embeddedSchemas();

}  // namespace devctrl_tool
