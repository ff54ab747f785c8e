#include <algorithm>
#include <string_view>

#include "platform/pm_devkey.h"
#include "platform/pm_text.h"

using tarn::vyxpn::util::trimBlanksAndTabs;

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
                                     char fieldSeparator, unsigned char /*flags*/) {
    const char* raw = keys && key ? keys->getkeyeddata(key) : nullptr;
    if (!raw)
        return;
    std::string_view value = trimBlanksAndTabs(raw);
    if (value.empty())
        return;

    // Sized up front: very long lists would otherwise spend their time
    // regrowing the vectors.
    std::size_t recordCount = countPieces(value, recordSeparator);
    m_records.reserve(recordCount);
    m_fields.reserve(recordCount);
    forEachPiece(value, recordSeparator, [&](std::string_view piece) {
        std::string_view record = trimBlanksAndTabs(piece);
        m_records.emplace_back(record);
        std::vector<std::string>& fields = m_fields.emplace_back();
        // An empty record is still a record, but one without any field.
        if (record.empty())
            return;
        fields.reserve(countPieces(record, fieldSeparator));
        forEachPiece(record, fieldSeparator, [&](std::string_view field) {
            fields.emplace_back(trimBlanksAndTabs(field));
        });
    });
}

const char* PM_DEVKEY_KEYITER::record() const {
    return m_i < m_records.size() ? m_records[m_i].c_str() : nullptr;
}

const char* PM_DEVKEY_KEYITER::field() const {
    if (m_i >= m_fields.size() || m_j >= m_fields[m_i].size())
        return nullptr;
    return m_fields[m_i][m_j].c_str();
}

void PM_DEVKEY_KEYITER::setupNextIAndJ() {
    if (m_i < m_records.size())
        ++m_i;
    m_j = 0;
}

void PM_DEVKEY_KEYITER::advanceToNextJ() {
    if (m_i < m_fields.size() && m_j < m_fields[m_i].size())
        ++m_j;
}
