// SPDX-License-Identifier: MIT
#pragma once
// Comma-separated values as spreadsheets and CSV readers expect them: a field
// is quoted when it holds a comma, a quote, a line break or blanks at either
// end, a quote inside is doubled, and every record ends in CR LF.

#include <ostream>
#include <string>
#include <vector>

namespace devctrl_tool {

// `field` as it stands in a record, quoted when it must be.
std::string csvField(const std::string& field);
// One record, with its line end.
void writeCsvRecord(std::ostream& out, const std::vector<std::string>& fields);

}  // namespace devctrl_tool
