// SPDX-License-Identifier: MIT
#include "devctrl/mngr/family_export.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <unordered_map>
#include <unordered_set>

#include "devctrl/mngr/device_mngr.h"
#include "devctrl/mngr/known_names.h"
#include "devctrl/sds/name_columns.h"
#include "devctrl/sds/sds_file.h"
#include "devctrl/util/comparators.h"

namespace tarn::vyxpn {

namespace {

// The naming columns; every other column of the part table is a custom item.
const std::array<const char*, 6> kFieldColumns{"Device",    "Package", "Speed",
                                               "Condition", "Suffix",  "ShortPackage"};

bool isFieldColumn(const std::string& column) {
    return std::find(kFieldColumns.begin(), kFieldColumns.end(), column) != kFieldColumns.end();
}

// A selection level while it is gathered: children by name, in first-seen
// order, sorted once at the end.
struct Gathering {
    std::vector<std::pair<std::string, Gathering>> children;
    std::unordered_map<std::string, std::size_t> index;

    Gathering& child(const std::string& name) {
        auto found = index.find(name);
        if (found != index.end())
            return children[found->second].second;
        index.emplace(name, children.size());
        children.emplace_back(name, Gathering());
        return children.back().second;
    }
};

// Stable sorts, as the manager sorts: the orderings are not strict weak
// orderings for every input. Packages (depth 1) sort by package order.
std::vector<SelectionNode> finish(Gathering& level, int depth) {
    std::vector<SelectionNode> nodes;
    nodes.reserve(level.children.size());
    for (auto& [name, below] : level.children)
        nodes.push_back({name, finish(below, depth + 1)});
    auto byName = [depth](const SelectionNode& a, const SelectionNode& b) {
        return depth == 1 ? PKGSTRgreater(a.name, b.name) : STRgreater(a.name, b.name);
    };
    std::stable_sort(nodes.begin(), nodes.end(), byName);
    return nodes;
}

// Which columns of the part table an exported part shows, worked out once
// per table: the naming columns it has, and the first column of each other
// name.
struct ExportedColumns {
    std::vector<std::size_t> fields;
    std::vector<std::size_t> items;

    explicit ExportedColumns(const TarnSDSFileSection& table) {
        for (const char* column : kFieldColumns) {
            const int index = table.columnOf(column);
            if (index >= 0)
                fields.push_back(static_cast<std::size_t>(index));
        }
        std::unordered_set<std::string_view> seen;
        for (std::size_t i = 0; i < table.m_items.size(); ++i)
            if (!isFieldColumn(table.m_items[i]) && seen.insert(table.m_items[i]).second)
                items.push_back(i);
    }
};

ExportedPart exportPart(const TarnSDSFile& family, const TarnSDSFileSection& table,
                        const ExportedColumns& columns, const std::string& part,
                        const std::vector<std::string>& row) {
    ExportedPart out;
    out.name = part;
    out.fields.reserve(columns.fields.size());
    for (std::size_t index : columns.fields)
        if (index < row.size())
            out.fields.emplace_back(table.m_items[index], row[index]);
    out.obsolete = family.isObsDevice(part);
    out.items.reserve(columns.items.size());
    for (std::size_t index : columns.items)
        if (index < row.size())
            out.items.emplace_back(table.m_items[index], row[index]);
    return out;
}

}  // namespace

ExportScope exportScope(TarnDeviceMngr& mngr, const std::string* pmOrFamily, bool withObsolete,
                        bool ascOnly) {
    ExportScope scope;
    if (pmOrFamily) {
        scope.pms.push_back(requireLoadedPm(mngr, *pmOrFamily));
    } else {
        for (const auto& entry : mngr.getFamilyFiles())
            if (entry.second)
                scope.pms.push_back(entry.first);
    }
    mngr.getAllFamilies(scope.families, withObsolete, ascOnly);
    if (pmOrFamily) {
        const std::string only = TarnDeviceMngr::basePmToFamily(scope.pms.front());
        scope.families.erase(std::remove_if(scope.families.begin(), scope.families.end(),
                                            [&](const std::string& f) { return f != only; }),
                             scope.families.end());
    }
    return scope;
}

std::string exportedFieldKey(std::string_view column) {
    std::string key;
    for (char c : column) {
        if (std::isupper(static_cast<unsigned char>(c)) && !key.empty())
            key += '_';
        key += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    }
    return key;
}

FamilyExport exportFamily(const TarnSDSFile& family, bool withObsolete, bool ascOnly) {
    const TarnSDSFileSection& table = family.m_genericDevices;
    const NameColumns columns = nameColumnsOf(table);
    const int levels[] = {columns.device, columns.package, columns.speed, columns.condition};
    // The list queries answer only when the status column exists.
    const bool listable = table.columnOf("Status") >= 0;

    FamilyExport out;
    Gathering tree;
    std::vector<const std::pair<const std::string, std::vector<std::string>>*> passing;
    for (const auto& entry : table.m_datas) {
        if (!family.partPasses(entry.first, withObsolete, ascOnly))
            continue;
        passing.push_back(&entry);
        if (!listable)
            continue;
        Gathering* level = &tree;
        for (int column : levels) {
            if (column < 0)
                break;
            level = &level->child(entry.second.at(column));
        }
    }
    out.devices = finish(tree, 0);
    std::stable_sort(passing.begin(), passing.end(),
                     [](const auto* a, const auto* b) { return STRgreater(a->first, b->first); });
    const ExportedColumns exported(table);
    out.parts.reserve(passing.size());
    for (const auto* entry : passing)
        out.parts.push_back(exportPart(family, table, exported, entry->first, entry->second));
    return out;
}

}  // namespace tarn::vyxpn
