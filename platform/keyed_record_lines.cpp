// SPDX-License-Identifier: MIT
#include "platform/keyed_record_lines.h"

#include <algorithm>
#include <fstream>

#include "platform/pm_text.h"

using tarn::vyxpn::util::isBlankOrTab;
using tarn::vyxpn::util::stripContinuation;
using tarn::vyxpn::util::trimmed;

namespace {

// The fields of one record's text, trimmed, as PM_DEVKEY_KEYITER cuts them.
std::vector<std::string> fieldsOf(std::string_view record) {
    std::vector<std::string> fields;
    record = trimmed(record);
    if (record.empty())
        return fields;
    std::size_t start = 0;
    for (std::size_t comma; (comma = record.find(',', start)) != std::string_view::npos;
         start = comma + 1)
        fields.emplace_back(trimmed(record.substr(start, comma - start)));
    fields.emplace_back(trimmed(record.substr(start)));
    return fields;
}

}  // namespace

KeyedRecordLines::KeyedRecordLines(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    std::string raw;
    std::size_t number = 0;
    bool continuing = false;
    Key* key = nullptr;
    std::string record;
    std::size_t recordLine = 0;
    auto finishRecord = [&] {
        if (key && recordLine != 0)
            key->records.push_back({recordLine, fieldsOf(record)});
        record.clear();
        recordLine = 0;
    };
    while (std::getline(in, raw)) {
        ++number;
        std::string_view line(raw);
        if (!line.empty() && line.back() == '\r')
            line.remove_suffix(1);
        line = line.substr(0, line.find('\0'));
        std::string_view value;
        if (continuing) {
            value = line;
        } else {
            const std::string_view content = trimmed(line);
            if (content.empty() || content.front() == '#')
                continue;
            const std::size_t equals = line.find('=');
            if (equals == std::string_view::npos)
                continue;
            key = &m_keys[std::string(trimmed(line.substr(0, equals)))];
            *key = Key{number, {}};
            value = line.substr(equals + 1);
        }
        continuing = stripContinuation(value);
        for (char c : value) {
            if (c == ':') {
                finishRecord();
                continue;
            }
            if (recordLine == 0 && !isBlankOrTab(c))
                recordLine = number;
            record += c;
        }
        if (!continuing)
            finishRecord();
    }
}

std::size_t KeyedRecordLines::keyLine(const std::string& key) const {
    auto found = m_keys.find(key);
    return found == m_keys.end() ? 0 : found->second.line;
}

std::size_t KeyedRecordLines::recordLine(const std::string& key,
                                         const std::vector<std::string>& fields) const {
    auto found = m_keys.find(key);
    if (found == m_keys.end())
        return 0;
    const auto& records = found->second.records;
    for (auto it = records.rbegin(); it != records.rend(); ++it)
        if (it->fields.size() >= fields.size() &&
            std::equal(fields.begin(), fields.end(), it->fields.begin()))
            return it->line;
    return found->second.line;
}
