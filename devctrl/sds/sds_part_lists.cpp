// SPDX-License-Identifier: MIT
#include <unordered_set>

#include "devctrl/sds/name_columns.h"
#include "devctrl/sds/part_index.h"
#include "devctrl/sds/sds_file.h"
#include "devctrl/util/comparators.h"
#include "devctrl/util/string_utils.h"

namespace tarn::vyxpn {

bool TarnSDSFile::partTakesAsc(const std::string& part) const {
    // Without a manager nothing is known to take ASC chips.
    return m_ascCapacity && m_ascCapacity->enableASC(part);
}

bool TarnSDSFile::partPasses(const std::string& part, bool withObsolete, bool ascOnly) const {
    return (withObsolete || !isObsDevice(part)) && (!ascOnly || partTakesAsc(part));
}

namespace {

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
        if (!matching || !file.partPasses(part, withObsolete, ascOnly))
            continue;
        const std::string& cell = row.at(wantedColumn);
        if (seen.insert(cell).second)
            list.push_back(cell);
    }
}

// The walk's column checks, then the index when it can answer. True when the
// list came from the index, already in the order asked for.
bool collectList(const TarnSDSFile& file, PartListKind kind, const std::string& device,
                 const std::string& package, const std::string& speed,
                 std::vector<std::string>& list, bool withObsolete, bool ascOnly, bool sorted) {
    const auto& kWanted = kNameColumnNames;
    const auto slot = static_cast<std::size_t>(kind);
    const TarnSDSFileSection& parts = file.m_genericDevices;
    if (parts.columnOf(kWanted[slot]) < 0 || parts.columnOf("Status") < 0)
        return false;
    for (std::size_t column = 0; column < slot; ++column)
        if (parts.columnOf(kWanted[column]) < 0)
            return false;

    bool usable = false;
    const CachedPartList* cached =
        file.index(ascOnly).find(kind, device, package, speed, withObsolete, ascOnly, usable);
    if (cached) {
        list = sorted ? cached->sorted() : cached->firstSeen();
        return true;
    }
    if (usable) {
        list.clear();
        return true;
    }
    std::vector<ColumnMatch> matches;
    const std::string* cells[] = {&device, &package, &speed};
    for (std::size_t column = 0; column < slot; ++column)
        matches.push_back({kWanted[column], cells[column]});
    collectDistinct(file, kWanted[slot], matches, list, withObsolete, ascOnly);
    return false;
}

void sortAsShown(PartListKind kind, std::vector<std::string>& list) {
    if (kind == PartListKind::Packages)
        sortPackages(list);
    else
        sortNatural(list);
}

}  // namespace

void TarnSDSFile::getDevices(std::vector<std::string>& list, bool withObsolete,
                             bool ascOnly) const {
    collectList(*this, PartListKind::Devices, "", "", "", list, withObsolete, ascOnly, false);
}

void TarnSDSFile::getPackages(const std::string& device, std::vector<std::string>& list,
                              bool withObsolete, bool ascOnly) const {
    collectList(*this, PartListKind::Packages, device, "", "", list, withObsolete, ascOnly, false);
}

void TarnSDSFile::getSpeeds(const std::string& device, const std::string& package,
                            std::vector<std::string>& list, bool withObsolete, bool ascOnly) const {
    collectList(*this, PartListKind::Speeds, device, package, "", list, withObsolete, ascOnly,
                false);
}

void TarnSDSFile::getOperations(const std::string& device, const std::string& package,
                                const std::string& speed, std::vector<std::string>& list,
                                bool withObsolete, bool ascOnly) const {
    collectList(*this, PartListKind::Conditions, device, package, speed, list, withObsolete,
                ascOnly, false);
}

void TarnSDSFile::getSortedList(PartListKind kind, const std::string& device,
                                const std::string& package, const std::string& speed,
                                std::vector<std::string>& list, bool withObsolete,
                                bool ascOnly) const {
    // Lists that came from the walk, or were left as they were because the
    // table cannot answer, are sorted here like any other.
    if (!collectList(*this, kind, device, package, speed, list, withObsolete, ascOnly, true))
        sortAsShown(kind, list);
}

void TarnSDSFile::getAllParts(std::vector<std::string>& list, bool withObsolete,
                              bool ascOnly) const {
    list.clear();
    const auto& parts = m_genericDevices.m_datas;
    TarnPartIndex& flags = index(ascOnly);
    if (flags.prepareFilters(withObsolete, ascOnly)) {
        std::size_t position = 0;
        for (const auto& entry : parts)
            if (flags.passes(position++, withObsolete, ascOnly))
                list.push_back(entry.first);
        return;
    }
    for (const auto& entry : parts) {
        if (partPasses(entry.first, withObsolete, ascOnly))
            list.push_back(entry.first);
    }
}

bool TarnSDSFile::anyPartPasses(bool withObsolete, bool ascOnly) const {
    const auto& parts = m_genericDevices.m_datas;
    TarnPartIndex& flags = index(ascOnly);
    if (flags.prepareFilters(withObsolete, ascOnly)) {
        for (std::size_t position = 0; position < parts.size(); ++position)
            if (flags.passes(position, withObsolete, ascOnly))
                return true;
        return false;
    }
    // A filter raises for some part: the full listing raises the same way.
    std::vector<std::string> list;
    getAllParts(list, withObsolete, ascOnly);
    return !list.empty();
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
