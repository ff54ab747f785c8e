#pragma once
// Plain walks over the part tables that answer the selection queries the slow,
// obvious way, for comparison with the library's indexed answers. Nothing here
// calls the library's list or lookup methods: only the tables, isObsDevice,
// enableASC, the sort orders and the PM/family mapping.

#include <strings.h>

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "devctrl/mngr/comparators.h"
#include "devctrl/mngr/device_mngr.h"
#include "devctrl/sds/sds_file.h"

namespace devctrl_test::ref {

using tarn::vyxpn::PartListKind;
using tarn::vyxpn::TarnDeviceMngr;
using tarn::vyxpn::TarnSDSFile;
using tarn::vyxpn::TarnSDSFileSection;
using Strings = std::vector<std::string>;
using Cells = std::array<std::string, 4>;  // device, package, speed, condition

// The columns of the four name cells, or false when one is missing.
inline bool nameColumns(const TarnSDSFileSection& table, std::size_t count, int* columns) {
    static const char* const names[] = {"Device", "Package", "Speed", "Condition"};
    for (std::size_t i = 0; i < count; ++i) {
        const auto& items = table.m_items;
        const auto found = std::find(items.begin(), items.end(), names[i]);
        if (found == items.end())
            return false;
        columns[i] = static_cast<int>(found - items.begin());
    }
    return true;
}

inline bool passes(const TarnSDSFile& file, const std::string& part, bool withObsolete,
                   bool ascOnly) {
    if (!withObsolete && file.isObsDevice(part))
        return false;
    // Without a manager nothing is known to take ASC chips.
    return !ascOnly || (file.m_pDeviceMngr && file.m_pDeviceMngr->enableASC(part));
}

// The distinct values of the column of `kind`, in key order, over the parts
// whose leading cells equal `cells` and that pass the filters. `list` is left
// alone when the table lacks the wanted column, a match column or "Status".
inline void familyList(const TarnSDSFile& file, PartListKind kind, const Cells& cells,
                       Strings& list, bool withObsolete, bool ascOnly) {
    const TarnSDSFileSection& table = file.m_genericDevices;
    const auto wanted = static_cast<std::size_t>(kind);
    int columns[4];
    const auto& items = table.m_items;
    if (std::find(items.begin(), items.end(), "Status") == items.end() ||
        !nameColumns(table, wanted + 1, columns))
        return;
    list.clear();
    for (const auto& [part, row] : table.m_datas) {
        // Cells first, filters second: a short row raises only when the cells
        // before it matched.
        bool matching = true;
        for (std::size_t i = 0; i < wanted && matching; ++i)
            matching = row.at(columns[i]) == cells[i];
        if (!matching || !passes(file, part, withObsolete, ascOnly))
            continue;
        const std::string& value = row.at(columns[wanted]);
        if (std::find(list.begin(), list.end(), value) == list.end())
            list.push_back(value);
    }
}

// Every part of the family that passes the filters, in key order.
inline Strings allParts(const TarnSDSFile& file, bool withObsolete, bool ascOnly) {
    Strings parts;
    for (const auto& entry : file.m_genericDevices.m_datas)
        if (passes(file, entry.first, withObsolete, ascOnly))
            parts.push_back(entry.first);
    return parts;
}

// The families (sorted naturally) with at least one part passing the filters.
inline Strings allFamilies(const TarnDeviceMngr& mngr, bool withObsolete, bool ascOnly) {
    Strings families;
    for (const auto& [pm, file] : mngr.getFamilyFiles()) {
        // Parts first: a broken table raises even for a PM no family names.
        if (!file || allParts(*file, withObsolete, ascOnly).empty())
            continue;
        const std::string family = TarnDeviceMngr::basePmToFamily(pm);
        if (!family.empty())
            families.push_back(family);
    }
    tarn::vyxpn::sortNatural(families);
    return families;
}

// The first part in key order whose four cells equal `cells` ignoring ASCII
// case; "" when none or when the PM or a column is missing.
inline std::string partName(const TarnDeviceMngr& mngr, const std::string& pm, const Cells& cells) {
    const auto found = mngr.getFamilyFiles().find(pm);
    int columns[4];
    if (found == mngr.getFamilyFiles().end() || !found->second ||
        !nameColumns(found->second->m_genericDevices, 4, columns))
        return "";
    for (const auto& [part, row] : found->second->m_genericDevices.m_datas) {
        // Cells compare as C strings: text after a NUL does not count, and a
        // cell the row lacks equals nothing.
        bool equal = true;
        for (int i = 0; i < 4 && equal; ++i)
            equal = static_cast<std::size_t>(columns[i]) < row.size() &&
                    strcasecmp(row[columns[i]].c_str(), cells[i].c_str()) == 0;
        if (equal)
            return part;
    }
    return "";
}

// {pm, device, package, speed, condition} of the first family in PM order
// whose table has the four name columns and the part; {} when none.
inline Strings nameByPart(const TarnDeviceMngr& mngr, const std::string& part) {
    for (const auto& [pm, file] : mngr.getFamilyFiles()) {
        int columns[4];
        if (!file || !nameColumns(file->m_genericDevices, 4, columns))
            continue;
        const auto row = file->m_genericDevices.m_datas.find(part);
        if (row == file->m_genericDevices.m_datas.end())
            continue;
        // A short row is broken data: reading it raises.
        Strings fields{pm};
        for (int column : columns)
            fields.push_back(row->second.at(column));
        return fields;
    }
    return {};
}

}  // namespace devctrl_test::ref
