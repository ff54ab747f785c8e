#include <unordered_set>

#include "devctrl/mngr/device_mngr.h"
#include "devctrl/sds/sds_file.h"
#include "devctrl/util/string_utils.h"

namespace tarn::vyxpn {

namespace {

// Obsolete parts count only on request; with `ascOnly` only parts that can
// use ASC chips count. Without a manager nothing is known to take ASC chips.
bool passesFilters(const TarnSDSFile& file, const std::string& part, bool withObsolete,
                   bool ascOnly) {
    if (!withObsolete && file.isObsDevice(part))
        return false;
    if (ascOnly && !(file.m_pDeviceMngr && file.m_pDeviceMngr->enableASC(part)))
        return false;
    return true;
}

// A column whose cell a part must hold exactly (case matters) to count.
struct ColumnMatch {
    const char* name;
    const std::string* mustEqual;
};

// Distinct values of `wanted` over the parts that pass the filters and whose
// cells equal the given values, in first-seen order over the part names.
// Leaves `list` untouched when the part table lacks any needed column, so a
// caller can tell "this family cannot answer" from "nothing matched".
void collectDistinct(const TarnSDSFile& file, const char* wanted,
                     const std::vector<ColumnMatch>& matches, std::vector<std::string>& list,
                     bool withObsolete, bool ascOnly) {
    const TarnSDSFileSection& parts = file.m_genericDevices;
    const int wantedColumn = parts.columnOf(wanted);
    if (wantedColumn < 0 || parts.columnOf("Status") < 0)
        return;
    std::vector<std::pair<int, const std::string*>> matchColumns;
    for (const ColumnMatch& match : matches) {
        const int column = parts.columnOf(match.name);
        if (column < 0)
            return;
        matchColumns.emplace_back(column, match.mustEqual);
    }

    list.clear();
    std::unordered_set<std::string> seen;
    for (const auto& [part, row] : parts.m_datas) {
        // Matching first is only cheaper: both tests must pass either way.
        bool matching = true;
        for (const auto& [column, value] : matchColumns) {
            if (row.at(column) != *value) {
                matching = false;
                break;
            }
        }
        if (!matching || !passesFilters(file, part, withObsolete, ascOnly))
            continue;
        const std::string& cell = row.at(wantedColumn);
        if (seen.insert(cell).second)
            list.push_back(cell);
    }
}

}  // namespace

void TarnSDSFile::getDevices(std::vector<std::string>& list, bool withObsolete,
                             bool ascOnly) const {
    collectDistinct(*this, "Device", {}, list, withObsolete, ascOnly);
}

void TarnSDSFile::getPackages(const std::string& device, std::vector<std::string>& list,
                              bool withObsolete, bool ascOnly) const {
    collectDistinct(*this, "Package", {{"Device", &device}}, list, withObsolete, ascOnly);
}

void TarnSDSFile::getSpeeds(const std::string& device, const std::string& package,
                            std::vector<std::string>& list, bool withObsolete, bool ascOnly) const {
    collectDistinct(*this, "Speed", {{"Device", &device}, {"Package", &package}}, list,
                    withObsolete, ascOnly);
}

void TarnSDSFile::getOperations(const std::string& device, const std::string& package,
                                const std::string& speed, std::vector<std::string>& list,
                                bool withObsolete, bool ascOnly) const {
    collectDistinct(*this, "Condition",
                    {{"Device", &device}, {"Package", &package}, {"Speed", &speed}}, list,
                    withObsolete, ascOnly);
}

void TarnSDSFile::getAllParts(std::vector<std::string>& list, bool withObsolete,
                              bool ascOnly) const {
    list.clear();
    for (const auto& entry : m_genericDevices.m_datas) {
        if (passesFilters(*this, entry.first, withObsolete, ascOnly))
            list.push_back(entry.first);
    }
}

void TarnSDSFile::getCustomItems(std::vector<std::string>& list) const {
    // Items that steer part generation or are resources are not per-part
    // settings a user asks for.
    std::unordered_set<std::string> excluded{"ES", "Condition", "PKGIndex"};
    excluded.insert(m_resourceItems.begin(), m_resourceItems.end());
    for (const TarnSDSFileSection* table :
         {&m_pmSection, &m_deviceSection, &m_packageSection, &m_partSection}) {
        for (const std::string& item : table->m_items)
            if (excluded.count(item) == 0)
                list.push_back(item);
    }
}

void TarnSDSFile::filterVector(std::vector<std::string>& row, const std::vector<int>& keep) {
    const std::unordered_set<int> positions(keep.begin(), keep.end());
    std::vector<std::string> kept;
    for (std::size_t i = 0; i < row.size(); ++i)
        if (positions.count(static_cast<int>(i)))
            kept.push_back(row[i]);
    row = std::move(kept);
}

}  // namespace tarn::vyxpn
