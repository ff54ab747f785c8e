// SPDX-License-Identifier: MIT
#include <algorithm>
#include <string_view>

#include "platform/pm_devkey.h"
#include "platform/pm_text.h"

using tarn::vyxpn::util::trimmed;

namespace {

// Calls `take` with every piece of `text` cut at `separator`, in order;
// adjacent separators give empty pieces. A separator of 0 does not cut.
template <typename Take>
void forEachPiece(std::string_view text, char separator, Take take) {
    if (separator == '\0') {
        take(text);
        return;
    }
    std::size_t start = 0;
    for (;;) {
        std::size_t end = text.find(separator, start);
        if (end == std::string_view::npos) {
            take(text.substr(start));
            return;
        }
        take(text.substr(start, end - start));
        start = end + 1;
    }
}

std::size_t countPieces(std::string_view text, char separator) {
    if (separator == '\0')
        return 1;
    return 1 + static_cast<std::size_t>(std::count(text.begin(), text.end(), separator));
}

}  // namespace

PM_DEVKEY_KEYITER::PM_DEVKEY_KEYITER(const PM_DEVKEY* keys, const char* key, char recordSeparator,
                                     char fieldSeparator, unsigned char /*flags*/)
    : m_fieldSeparator(fieldSeparator) {
    const char* raw = keys && key ? keys->getkeyeddata(key) : nullptr;
    if (!raw)
        return;
    std::string_view value = trimmed(raw);
    if (value.empty())
        return;

    m_records.reserve(value.size() + 1);
    m_recordStarts.reserve(countPieces(value, recordSeparator));
    forEachPiece(value, recordSeparator, [&](std::string_view piece) {
        std::string_view record = trimmed(piece);
        m_recordStarts.push_back(m_records.size());
        m_records.append(record.data(), record.size());
        m_records.push_back('\0');
    });
    splitRecord();
}

void PM_DEVKEY_KEYITER::splitRecord() {
    m_fields.clear();
    m_fieldStarts.clear();
    const char* text = record();
    // An empty record is still a record, but one without any field.
    if (!text || !*text)
        return;
    forEachPiece(text, m_fieldSeparator, [&](std::string_view piece) {
        std::string_view field = trimmed(piece);
        m_fieldStarts.push_back(m_fields.size());
        m_fields.append(field.data(), field.size());
        m_fields.push_back('\0');
    });
}

const char* PM_DEVKEY_KEYITER::record() const {
    return m_i < m_recordStarts.size() ? m_records.data() + m_recordStarts[m_i] : nullptr;
}

const char* PM_DEVKEY_KEYITER::field() const {
    return m_j < m_fieldStarts.size() ? m_fields.data() + m_fieldStarts[m_j] : nullptr;
}

void PM_DEVKEY_KEYITER::setupNextIAndJ() {
    if (m_i < m_recordStarts.size()) {
        ++m_i;
        splitRecord();
    }
    m_j = 0;
}

void PM_DEVKEY_KEYITER::advanceToNextJ() {
    if (m_j < m_fieldStarts.size())
        ++m_j;
}
