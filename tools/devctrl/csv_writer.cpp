// SPDX-License-Identifier: MIT
#include "csv_writer.h"

namespace devctrl_tool {

std::string csvField(const std::string& field) {
    // Readers trim unquoted blanks at the ends; quoting keeps them.
    const bool blankEnd = !field.empty() && (field.front() == ' ' || field.back() == ' ' ||
                                             field.front() == '\t' || field.back() == '\t');
    if (field.find_first_of(",\"\r\n") == std::string::npos && !blankEnd)
        return field;
    std::string quoted = "\"";
    for (char c : field) {
        if (c == '"')
            quoted += '"';
        quoted += c;
    }
    return quoted + '"';
}

void writeCsvRecord(std::ostream& out, const std::vector<std::string>& fields) {
    for (std::size_t i = 0; i < fields.size(); ++i)
        out << (i ? "," : "") << csvField(fields[i]);
    out << "\r\n";
}

}  // namespace devctrl_tool
