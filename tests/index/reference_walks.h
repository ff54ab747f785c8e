// SPDX-License-Identifier: MIT
#pragma once
// Plain walks over the part tables that answer the selection queries the slow,
// obvious way, for comparison with the library's indexed answers. Nothing here
// calls the library's list or lookup methods.

#include <strings.h>

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "devctrl/mngr/device_mngr.h"
#include "devctrl/sds/sds_file.h"
#include "devctrl/util/comparators.h"

namespace devctrl_test::ref {

using tarn::vyxpn::PartListKind;
using tarn::vyxpn::StringList;
using tarn::vyxpn::TarnDeviceMngr;
using tarn::vyxpn::TarnSDSFile;
using Cells = std::array<std::string, 4>;  // device, package, speed, condition

inline std::array<int, 4> nameColumns(const TarnSDSFile& file) {
    const auto& table = file.m_genericDevices;
    return {table.columnOf("Device"), table.columnOf("Package"), table.columnOf("Speed"),
            table.columnOf("Condition")};
}

inline bool passes(const TarnSDSFile& file, const std::string& part, bool withObsolete,
                   bool ascOnly) {
    if (!withObsolete && file.isObsDevice(part))
        return false;
    return !ascOnly || (file.m_pDeviceMngr && file.m_pDeviceMngr->enableASC(part));
}

// The distinct values of the column of `kind`, in key order, over the parts
// whose leading cells equal `cells` and that pass the filters.
inline StringList familyList(const TarnSDSFile& file, PartListKind kind, const Cells& cells,
                             bool withObsolete, bool ascOnly) {
    const auto wanted = static_cast<std::size_t>(kind);
    const auto columns = nameColumns(file);
    StringList list;
    for (const auto& [part, row] : file.m_genericDevices.m_datas) {
        bool matching = true;
        for (std::size_t i = 0; i < wanted && matching; ++i)
            matching = row.at(columns[i]) == cells[i];
        if (!matching || !passes(file, part, withObsolete, ascOnly))
            continue;
        const std::string& value = row.at(columns[wanted]);
        if (std::find(list.begin(), list.end(), value) == list.end())
            list.push_back(value);
    }
    return list;
}

inline StringList allParts(const TarnSDSFile& file, bool withObsolete, bool ascOnly) {
    StringList parts;
    for (const auto& entry : file.m_genericDevices.m_datas)
        if (passes(file, entry.first, withObsolete, ascOnly))
            parts.push_back(entry.first);
    return parts;
}

inline StringList allFamilies(const TarnDeviceMngr& mngr, bool withObsolete, bool ascOnly) {
    StringList families;
    for (const auto& [pm, file] : mngr.getFamilyFiles()) {
        const std::string family = TarnDeviceMngr::basePmToFamily(pm);
        if (!family.empty() && !allParts(*file, withObsolete, ascOnly).empty())
            families.push_back(family);
    }
    tarn::vyxpn::sortNatural(families);
    return families;
}

// The first part in key order whose cells equal `cells` ignoring case.
inline std::string partName(const TarnDeviceMngr& mngr, const std::string& pm, const Cells& cells) {
    const auto found = mngr.getFamilyFiles().find(pm);
    if (found == mngr.getFamilyFiles().end())
        return "";
    const auto columns = nameColumns(*found->second);
    for (const auto& [part, row] : found->second->m_genericDevices.m_datas) {
        bool equal = true;
        for (int i = 0; i < 4 && equal; ++i)
            equal = strcasecmp(row.at(columns[i]).c_str(), cells[i].c_str()) == 0;
        if (equal)
            return part;
    }
    return "";
}

// {pm, device, package, speed, condition} from the first PM holding the part.
inline StringList nameByPart(const TarnDeviceMngr& mngr, const std::string& part) {
    for (const auto& [pm, file] : mngr.getFamilyFiles()) {
        const auto row = file->m_genericDevices.m_datas.find(part);
        if (row == file->m_genericDevices.m_datas.end())
            continue;
        StringList fields{pm};
        for (int column : nameColumns(*file))
            fields.push_back(row->second.at(column));
        return fields;
    }
    return {};
}

}  // namespace devctrl_test::ref
