// SPDX-License-Identifier: MIT
#include "devctrl/sds/part_index.h"

#include <algorithm>
#include <cctype>
#include <unordered_set>

#include "devctrl/sds/name_columns.h"
#include "devctrl/sds/sds_file.h"
#include "devctrl/util/comparators.h"

namespace tarn::vyxpn {

namespace {

constexpr std::size_t kindSlot(PartListKind kind) {
    return static_cast<std::size_t>(kind);
}

constexpr std::size_t filterSlot(bool withObsolete, bool ascOnly) {
    return (withObsolete ? 1u : 0u) | (ascOnly ? 2u : 0u);
}

// Cells are compared as C strings without regard to case, so only the text
// before a NUL counts; folding it here gives equal keys for equal cells.
void appendFolded(std::string& key, const std::string& cell) {
    for (const char* c = cell.c_str(); *c; ++c)
        key += static_cast<char>(std::tolower(static_cast<unsigned char>(*c)));
    key += '\0';
}

std::string foldedFields(const std::string& device, const std::string& package,
                         const std::string& speed, const std::string& condition) {
    std::string key;
    for (const std::string* cell : {&device, &package, &speed, &condition})
        appendFolded(key, *cell);
    return key;
}

// Cells may hold any byte, so each is length-prefixed rather than separated.
void appendEncoded(std::string& key, const std::string& cell) {
    key += std::to_string(cell.size());
    key += ':';
    key += cell;
}

}  // namespace

const std::vector<std::string>& CachedPartList::sorted() const {
    if (!m_sorted) {
        m_sorted = m_firstSeen;
        if (m_kind == PartListKind::Packages)
            sortPackages(*m_sorted);
        else
            sortNatural(*m_sorted);
    }
    return *m_sorted;
}

std::string TarnPartIndex::listKey(PartListKind kind, const std::string& device,
                                   const std::string& package, const std::string& speed) {
    std::string key;
    if (kind != PartListKind::Devices)
        appendEncoded(key, device);
    if (kind == PartListKind::Speeds || kind == PartListKind::Conditions)
        appendEncoded(key, package);
    if (kind == PartListKind::Conditions)
        appendEncoded(key, speed);
    return key;
}

std::uint64_t TarnPartIndex::managerGeneration() const {
    PartAscCapacity* capacity = m_file.ascCapacity();
    return capacity ? capacity->ascCapacityGeneration() : 0;
}

bool TarnPartIndex::buildObsoleteFlags() {
    if (m_obsoleteReady || m_obsoleteFailed)
        return m_obsoleteReady;
    const auto& parts = m_file.m_genericDevices.m_datas;
    m_obsolete.assign(parts.size(), false);
    try {
        std::size_t position = 0;
        for (const auto& entry : parts)
            m_obsolete[position++] = m_file.isObsDevice(entry.first);
        m_obsoleteReady = true;
    } catch (...) {
        m_obsoleteFailed = true;
    }
    return m_obsoleteReady;
}

bool TarnPartIndex::buildAscFlags() {
    const std::uint64_t generation = managerGeneration();
    if (m_ascGeneration == generation)
        return !m_ascFailed;
    const auto& parts = m_file.m_genericDevices.m_datas;
    m_ascEnabled.assign(parts.size(), false);
    m_ascFailed = false;
    try {
        std::size_t position = 0;
        for (const auto& entry : parts)
            m_ascEnabled[position++] = m_file.partTakesAsc(entry.first);
    } catch (...) {
        m_ascFailed = true;
    }
    m_ascGeneration = generation;
    return !m_ascFailed;
}

bool TarnPartIndex::prepareFilters(bool withObsolete, bool ascOnly) {
    if (!withObsolete && !buildObsoleteFlags())
        return false;
    if (ascOnly && !buildAscFlags())
        return false;
    return true;
}

void TarnPartIndex::buildLists(FilteredPartLists& out, bool withObsolete, bool ascOnly) {
    const TarnSDSFileSection& table = m_file.m_genericDevices;
    if (!prepareFilters(withObsolete, ascOnly))
        return;  // every kind stays unusable
    const auto [device, package, speed, condition] = nameColumnsOf(table);
    // The columns each kind reads: the cells it matches on, then its own.
    const std::array<std::vector<int>, 4> columns{
        std::vector<int>{device}, std::vector<int>{device, package},
        std::vector<int>{device, package, speed},
        std::vector<int>{device, package, speed, condition}};
    std::array<std::size_t, 4> rowNeeds{};
    for (std::size_t kind = 0; kind < 4; ++kind) {
        const int highest = *std::max_element(columns[kind].begin(), columns[kind].end());
        const int lowest = *std::min_element(columns[kind].begin(), columns[kind].end());
        out.usable[kind] = lowest >= 0;
        rowNeeds[kind] = static_cast<std::size_t>(highest) + 1;
    }
    // A row too short for a kind's columns makes the walk throw or skip in
    // ways only the walk itself reproduces.
    for (const auto& entry : table.m_datas)
        for (std::size_t kind = 0; kind < 4; ++kind)
            if (entry.second.size() < rowNeeds[kind])
                out.usable[kind] = false;

    static const std::string kNone;  // a cell the kind does not match on
    std::unordered_set<std::string> seen;
    std::size_t position = 0;
    for (const auto& entry : table.m_datas) {
        const std::vector<std::string>& row = entry.second;
        if (!passes(position++, withObsolete, ascOnly))
            continue;
        for (std::size_t kind = 0; kind < 4; ++kind) {
            if (!out.usable[kind])
                continue;
            const auto listed = static_cast<PartListKind>(kind);
            std::string key = listKey(listed, row[device], kind >= 1 ? row[package] : kNone,
                                      kind >= 2 ? row[speed] : kNone);
            const std::string& value = row[columns[kind].back()];
            std::string seenKey = std::to_string(kind) + key;
            appendEncoded(seenKey, value);
            if (seen.insert(std::move(seenKey)).second)
                out.lists[kind].try_emplace(std::move(key), listed).first->second.add(value);
        }
    }
}

const CachedPartList* TarnPartIndex::find(PartListKind kind, const std::string& device,
                                          const std::string& package, const std::string& speed,
                                          bool withObsolete, bool ascOnly, bool& usable) {
    const std::size_t slot = filterSlot(withObsolete, ascOnly);
    // Lists filtered by ASC capacity go stale when the manager's families change.
    const std::uint64_t generation = ascOnly ? managerGeneration() : 0;
    if (!m_lists[slot] || m_listsGeneration[slot] != generation) {
        m_lists[slot].emplace();
        buildLists(*m_lists[slot], withObsolete, ascOnly);
        m_listsGeneration[slot] = generation;
    }
    const FilteredPartLists& lists = *m_lists[slot];
    usable = lists.usable[kindSlot(kind)];
    if (!usable)
        return nullptr;
    const auto& byKey = lists.lists[kindSlot(kind)];
    auto found = byKey.find(listKey(kind, device, package, speed));
    return found == byKey.end() ? nullptr : &found->second;
}

namespace {

std::string foldedRow(const std::vector<std::string>& row, const NameColumns& c) {
    return foldedFields(row[c.device], row[c.package], row[c.speed], row[c.condition]);
}

}  // namespace

void TarnPartIndex::buildPartsByFields() {
    const TarnSDSFileSection& table = m_file.m_genericDevices;
    const NameColumns columns = nameColumnsOf(table);
    const std::size_t rowNeeds = columns.rowNeeds();
    m_partsByFields.emplace();
    // Key order decides between parts that differ only in their suffix:
    // the first one stays.
    for (const auto& [part, row] : table.m_datas)
        if (row.size() >= rowNeeds)
            m_partsByFields->emplace(foldedRow(row, columns), part);
}

bool TarnPartIndex::rowMatches(const std::string& part, const std::string& foldedKey) const {
    const TarnSDSFileSection& table = m_file.m_genericDevices;
    auto row = table.m_datas.find(part);
    if (row == table.m_datas.end())
        return false;
    const NameColumns columns = nameColumnsOf(table);
    return columns.complete() && row->second.size() >= columns.rowNeeds() &&
           foldedRow(row->second, columns) == foldedKey;
}

const std::string* TarnPartIndex::partByFields(const std::string& device,
                                               const std::string& package, const std::string& speed,
                                               const std::string& condition) {
    const std::string key = foldedFields(device, package, speed, condition);
    // The answer is checked against the table: a row edited in place since
    // the build makes this piece rebuild rather than name a part that no
    // longer has these cells.
    for (bool rebuilt = !m_partsByFields;; rebuilt = true) {
        if (!m_partsByFields)
            buildPartsByFields();
        auto found = m_partsByFields->find(key);
        if (found == m_partsByFields->end())
            return nullptr;
        if (rowMatches(found->second, key))
            return &found->second;
        if (rebuilt)
            return nullptr;
        m_partsByFields.reset();
    }
}

}  // namespace tarn::vyxpn
