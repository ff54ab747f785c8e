// SPDX-License-Identifier: MIT
// The text form of part data:
//
//   [[Device Info]]             opens a key section named "Device Info"
//   Vendor = Tarn               an entry of that section
//   Format = LUT, FF, EBR       starts a table named "Format"; column 0 is "Key"
//   ZR4_QF48 = 640, 640, 2      a row: the key, then the cells
//
// Lines are trimmed of blanks, tabs and line ends; empty lines are skipped and
// so is everything before the first "[[" header. A line whose key is "Format"
// (in any case) starts a new table; the following key = value lines are its
// rows up to the next "Format" line or header. Row fields are cut at ',' and
// trimmed, and empty fields are kept ("1,,3" is three cells). Entry values are
// kept whole. A line without '=' is reported through diagTrace and skipped.
// A NUL byte ends its line's content; the first such line is reported.

#include <cstring>
#include <sstream>
#include <string>
#include <vector>

#include "platform/pd_binary_format.h"
#include "platform/pd_data.h"
#include "platform/pd_util.h"
#include "platform/ut_quote.h"
#include "platform/ut_trace.h"

namespace {

std::vector<std::string> splitFields(const std::string& text) {
    std::vector<std::string> fields;
    std::string::size_type start = 0;
    while (true) {
        auto comma = text.find(',', start);
        fields.push_back(PD_UTIL::Trim(text.substr(start, comma - start)));
        if (comma == std::string::npos)
            break;
        start = comma + 1;
    }
    return fields;
}

std::string headerName(const std::string& line) {
    std::string name = line.substr(2);
    if (name.size() >= 2 && name.compare(name.size() - 2, 2, "]]") == 0)
        name.resize(name.size() - 2);
    return PD_UTIL::Trim(name);
}

}  // namespace

bool PD_DATA::LoadTxtString(const std::string& text, const char* sourceName) {
    TraceFileLimit traceLimit(sourceName ? sourceName : "<text>");
    Clear();
    PD_STRING_POOL& strings = *m_pool;
    PD_SECTION* section = nullptr;
    PD_TABLE* table = nullptr;
    std::istringstream in(text);
    std::string raw;
    int lineNumber = 0;
    int firstNulLine = 0;
    while (std::getline(in, raw)) {
        ++lineNumber;
        // A NUL byte ends the line's content, as in the other data files;
        // kept, it would cut names short wherever they are read as C strings.
        auto nul = raw.find('\0');
        if (nul != std::string::npos) {
            raw.resize(nul);
            if (firstNulLine == 0)
                firstNulLine = lineNumber;
        }
        std::string line = PD_UTIL::Trim(raw);
        if (line.empty())
            continue;
        if (line.compare(0, 2, "[[") == 0) {
            section = AddKeySection(headerName(line));
            table = nullptr;
            continue;
        }
        if (!section)
            continue;
        auto equals = line.find('=');
        if (equals == std::string::npos) {
            std::string message =
                tarn::vyxpn::util::escapedForMessage(sourceName ? sourceName : "<text>") + ":" +
                std::to_string(lineNumber) + ": part data line without '=' skipped";
            diagTrace(message.c_str(), nullptr);
            continue;
        }
        std::string key = PD_UTIL::Trim(line.substr(0, equals));
        std::string value = line.substr(equals + 1);
        if (PD_UTIL::IsFormatKey(key)) {
            table = AddTable(PD_UTIL::kFormatSectionName);
            table->addColumn(strings.intern(PD_TABLE::kKeyColumnName));
            for (const auto& column : splitFields(value))
                table->addColumn(strings.intern(column));
        } else if (table) {
            PD_TABLE::Row row{strings.intern(key)};
            for (const auto& cell : splitFields(value))
                row.push_back(strings.intern(cell));
            table->addRow(std::move(row));
        } else {
            section->addEntry(strings.intern(key), strings.intern(PD_UTIL::Trim(value)));
        }
    }
    if (firstNulLine != 0) {
        std::string message =
            tarn::vyxpn::util::escapedForMessage(sourceName ? sourceName : "<text>") + ":" +
            std::to_string(firstNulLine) + ": NUL byte; the rest of the line is ignored";
        diagTrace(message.c_str(), nullptr);
    }
    return true;
}

bool PD_DATA::LoadTxtFile(const char* path) {
    Clear();
    std::string text;
    if (!PD_UTIL::ReadWholeFile(path, text))
        return false;
    // Too short to hold the binary form's magic but the start of it: a binary
    // file cut short, not an empty text file. Refused, and said so.
    if (!text.empty() && text.size() < PD_BIN_MAGIC_SIZE &&
        std::memcmp(text.data(), PD_BIN_MAGIC, text.size()) == 0) {
        std::string message =
            tarn::vyxpn::util::escapedForMessage(path) + ": damaged part data file (cut short)";
        diagTrace(message.c_str(), nullptr);
        return false;
    }
    return LoadTxtString(text, path);
}
