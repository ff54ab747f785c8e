// SPDX-License-Identifier: MIT
// The family's part data file: extra per-package columns (resource figures)
// merged into the package section.

#include <strings.h>

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include "devctrl/sds/sds_file.h"
#include "devctrl/util/quote.h"
#include "devctrl/util/string_utils.h"
#include "platform/data_file.h"
#include "platform/pd_data.h"
#include "platform/pd_util.h"
#include "platform/ut_trace.h"

namespace tarn::vyxpn {

namespace {

bool isRequested(const std::string& column, const std::vector<std::string>& requested) {
    for (const auto& name : requested)
        if (strcasecmp(column.c_str(), name.c_str()) == 0)
            return true;
    return false;
}

// The carrier of one "Format" table: its columns after the key column and its
// rows by key, narrowed to the requested columns in file order.
TarnSDSFileSection tableToSection(const PD_TABLE& table,
                                  const std::vector<std::string>& requested) {
    TarnSDSFileSection carrier;
    std::vector<int> keep;
    const int columns = table.GetNumOfColumns();
    for (int c = 1; c < columns; ++c) {
        carrier.m_items.push_back(table.GetColumnName(c));
        if (isRequested(carrier.m_items.back(), requested))
            keep.push_back(c - 1);
    }
    const int rows = table.GetNumOfRows();
    for (int r = 0; r < rows; ++r) {
        std::vector<std::string> values;
        for (int c = 1; c < columns; ++c)
            values.push_back(table.GetValueAt(r, c));
        // A later row of the same key replaces an earlier one.
        carrier.m_datas[table.GetValueAt(r, 0)] = std::move(values);
    }
    TarnSDSFile::filterVector(carrier.m_items, keep);
    for (auto& row : carrier.m_datas)
        TarnSDSFile::filterVector(row.second, keep);
    return carrier;
}

// The buffer getline grows; freed however reading ends.
struct LineBuffer {
    char* data = nullptr;
    std::size_t capacity = 0;
    LineBuffer() = default;
    LineBuffer(const LineBuffer&) = delete;
    LineBuffer& operator=(const LineBuffer&) = delete;
    ~LineBuffer() { std::free(data); }
};

}  // namespace

int TarnSDSFile::loadPWD_Bin(std::string pm, const char* directory,
                             const std::vector<std::string>& resourceItems) {
    return loadPWD_Bin_internal(pm.c_str(), directory, resourceItems);
}

// `directory` is not needed: the part-data layer knows where a PM's file is.
int TarnSDSFile::loadPWD_Bin_internal(const char* pm, const char* /*directory*/,
                                      const std::vector<std::string>& resourceItems) {
    if (!pm)
        return -1;
    std::string fileName = std::string(pm) + ".pwd";
    std::vector<char> path(PD_UTIL::kPathBufferSize, '\0');
    if (fileName.size() >= path.size())
        return 0;
    fileName.copy(path.data(), fileName.size());
    // A family without a usable part data file is not an error.
    if (!PD_UTIL::GetFilenameRTF(path.data(), path.size()))
        return 0;

    // A file that is there but cannot be read is named with the reason; a
    // missing one is a family without extra columns.
    if (!platform::DataFile(path.data()).openOrTrace())
        return 0;

    auto data = std::make_unique<PD_DATA>();
    bool loaded = PD_UTIL::IsBinaryFile(path.data()) ? data->LoadBinFile(path.data())
                                                     : data->LoadTxtFile(path.data());
    if (!loaded)
        return 0;

    const int sections = data->GetNumOfSections();
    for (int i = 0; i < sections; ++i) {
        const char* name = data->GetSectionName(i);
        if (!name || std::string(name) != PD_UTIL::kFormatSectionName)
            continue;
        PD_SECTION* section = data->GetSection(i);
        if (section->kind() != PD_TBLSECT) {
            // Through the trace handler like every other load message, so a
            // host that collects traces sees this one too.
            diagTrace(
                (util::escapedForMessage(path.data()) + ": Device Info must have _TBLSECT format")
                    .c_str(),
                nullptr);
            return 0;
        }
        auto* table = dynamic_cast<PD_TABLE*>(section);
        if (!table)
            return -1;
        TarnSDSFileSection carrier = tableToSection(*table, resourceItems);
        if (!mergePWDToACD(m_packageSection, carrier))
            return -1;
    }
    return 0;
}

// The library-independent reader of the text form. Its rules differ from the
// part-data layer's on purpose: a line is cut at every '=', ',' and newline
// and runs of separators count as one, so an empty field between two commas
// vanishes and the values after it move one column to the left.
bool TarnSDSFile::loadPWD(std::string path, const std::vector<std::string>& resourceItems) {
    platform::DataFile source(path);
    if (!source.openOrTrace())
        return false;
    std::unique_ptr<FILE, int (*)(FILE*)> file(source.releaseAsStream(), &std::fclose);
    if (!file)
        return false;

    TarnSDSFileSection carrier;
    std::vector<int> keep;
    bool inside = false;
    // Takes one trimmed line; false at the header that ends the section.
    auto take = [&](const std::string& line) {
        if (line == "[[Device Info]]") {
            inside = true;
            return true;
        }
        if (!inside)
            return true;
        if (line.compare(0, 2, "[[") == 0)
            return false;
        if (line.empty())
            return true;

        std::vector<std::string> fields = util::split(line, "=,\n");
        if (fields.empty())
            return true;
        for (auto& field : fields)
            field = util::trim(field);
        std::string key = fields.front();
        fields.erase(fields.begin());
        if (strcasecmp(key.c_str(), "Format") == 0) {
            // Positions add up over several "Format" lines; the last line's
            // names are the columns.
            for (std::size_t i = 0; i < fields.size(); ++i)
                if (isRequested(fields[i], resourceItems))
                    keep.push_back(static_cast<int>(i));
            carrier.m_items = fields;
        } else {
            carrier.m_datas[key] = fields;
        }
        return true;
    };

    // Lines are read into a buffer of 4096 characters: a longer line is taken
    // in pieces of 4095, each as a line of its own, and a NUL byte ends what
    // the buffer holds. Both are reported once, with the first line they hit.
    constexpr std::size_t kPieceLength = 4095;
    std::size_t lineNumber = 0, firstLongLine = 0, firstNulLine = 0;
    LineBuffer buffer;
    ssize_t length;
    bool reading = true;
    while (reading && (length = getline(&buffer.data, &buffer.capacity, file.get())) >= 0) {
        ++lineNumber;
        std::string physical(buffer.data, static_cast<std::size_t>(length));
        if (!physical.empty() && physical.back() == '\n')
            physical.pop_back();
        std::size_t nul = physical.find('\0');
        if (nul != std::string::npos) {
            physical.resize(nul);
            if (firstNulLine == 0)
                firstNulLine = lineNumber;
        }
        if (physical.size() > kPieceLength && firstLongLine == 0)
            firstLongLine = lineNumber;
        for (std::size_t at = 0; reading && (at == 0 || at < physical.size()); at += kPieceLength)
            reading = take(util::trim(physical.substr(at, kPieceLength)));
    }
    file.reset();
    if (firstLongLine != 0)
        diagTrace(
            (util::escapedForMessage(path) + ":" + std::to_string(firstLongLine) +
             ": line longer than " + std::to_string(kPieceLength) + " characters, read in pieces")
                .c_str(),
            nullptr);
    if (firstNulLine != 0)
        diagTrace((util::escapedForMessage(path) + ":" + std::to_string(firstNulLine) +
                   ": NUL byte; the rest of the line is ignored")
                      .c_str(),
                  nullptr);

    filterVector(carrier.m_items, keep);
    for (auto& row : carrier.m_datas)
        filterVector(row.second, keep);
    return mergePWDToACD(m_packageSection, carrier);
}

bool TarnSDSFile::mergePWDToACD(TarnSDSFileSection& acd, TarnSDSFileSection& pwd) {
    invalidateIndexes();
    bool acdHasNoColumns =
        acd.m_items.empty() || (acd.m_items.size() == 1 && acd.m_items.front().empty());
    if (acdHasNoColumns) {
        acd.clear();
        acd.m_items = pwd.m_items;
        for (const auto& [key, values] : pwd.m_datas)
            acd.m_datas[key] = values;
        return true;
    }
    // Columns are appended as they come, a name both sections have included;
    // rows only the part data file has are dropped.
    acd.m_items.insert(acd.m_items.end(), pwd.m_items.begin(), pwd.m_items.end());
    for (auto& [key, values] : acd.m_datas) {
        auto partner = pwd.m_datas.find(key);
        if (partner != pwd.m_datas.end())
            values.insert(values.end(), partner->second.begin(), partner->second.end());
    }
    return true;
}

}  // namespace tarn::vyxpn
