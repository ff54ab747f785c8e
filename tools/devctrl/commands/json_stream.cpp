// SPDX-License-Identifier: MIT
#include "json_stream.h"

#include <algorithm>

#include "output.h"

namespace devctrl_tool {

void writeJsonString(std::ostream& out, std::string_view text) {
    // Printable ASCII without quote or backslash is its own JSON text; that
    // shortcut keeps large documents fast. Anything else goes through the
    // tool's JSON writer.
    const bool plain = std::all_of(text.begin(), text.end(), [](char c) {
        return c >= 0x20 && c < 0x7f && c != '"' && c != '\\';
    });
    if (plain)
        out << '"' << text << '"';
    else
        out << toJsonText(qs(std::string(text)));
}

void writeJsonList(std::ostream& out, const std::vector<std::string>& list) {
    out << '[';
    for (std::size_t i = 0; i < list.size(); ++i) {
        if (i)
            out << ", ";
        writeJsonString(out, list[i]);
    }
    out << ']';
}

}  // namespace devctrl_tool
