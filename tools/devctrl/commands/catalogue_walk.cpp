// SPDX-License-Identifier: MIT
#include "catalogue_walk.h"

#include <algorithm>
#include <unordered_set>

#include "devctrl/mngr/device_mngr.h"
#include "devctrl/sds/name_columns.h"
#include "devctrl/sds/sds_file.h"
#include "devctrl/util/comparators.h"
#include "json_stream.h"

namespace devctrl_tool {

using tarn::vyxpn::PKGSTRgreater;
using tarn::vyxpn::STRgreater;

namespace {

// Stable sorts, as the manager sorts: the orderings are not strict weak
// orderings for every input.
template <typename Less>
std::vector<std::string> sorted(std::vector<std::string> list, Less less) {
    std::stable_sort(list.begin(), list.end(), less);
    return list;
}

template <typename Map>
std::vector<std::string> sortedKeys(const Map& map) {
    std::vector<std::string> keys;
    for (const auto& entry : map)
        keys.push_back(entry.first);
    return sorted(std::move(keys), STRgreater);
}

// Writes `"key": value` for each of `keys` that `map` holds, in the order of
// `keys`.
template <typename Map, typename WriteValue>
void writeKeyed(std::ostream& out, const std::vector<std::string>& keys, const Map& map,
                WriteValue writeValue) {
    bool first = true;
    for (const std::string& key : keys) {
        auto entry = map.find(key);
        if (entry == map.end())
            continue;
        out << (first ? "" : ", ");
        first = false;
        writeJsonString(out, key);
        out << ": ";
        writeValue(key, entry->second);
    }
}

// Columns written as named fields of a part; the others are custom items.
const std::vector<std::pair<std::string, const char*>> kPartFields{
    {"Device", "device"},       {"Package", "package"}, {"Speed", "speed"},
    {"Condition", "condition"}, {"Suffix", "suffix"},   {"ShortPackage", "short_package"}};

bool isPartField(const std::string& column) {
    return std::any_of(kPartFields.begin(), kPartFields.end(),
                       [&](const auto& field) { return field.first == column; });
}

}  // namespace

FamilyWalk::FamilyWalk(const tarn::vyxpn::TarnSDSFile& file, bool withObsolete, bool ascOnly)
    : m_file(file), m_parts(file.m_genericDevices) {
    const auto [device, package, speed, condition] = tarn::vyxpn::nameColumnsOf(m_parts);
    // The list queries answer only when the status column exists.
    const bool listable = m_parts.columnOf("Status") >= 0;
    for (const auto& [part, row] : m_parts.m_datas) {
        if (!file.partPasses(part, withObsolete, ascOnly))
            continue;
        m_passing.emplace_back(&part, &row);
        if (!listable || device < 0)
            continue;
        const std::string& deviceName = row.at(device);
        m_devices.add(deviceName);
        if (package < 0)
            continue;
        const std::string& packageName = row.at(package);
        m_packages[deviceName].add(packageName);
        if (speed < 0)
            continue;
        const std::string& speedName = row.at(speed);
        m_speeds[deviceName][packageName].add(speedName);
        if (condition < 0)
            continue;
        m_conditions[deviceName][packageName][speedName].add(row.at(condition));
    }
    std::stable_sort(m_passing.begin(), m_passing.end(),
                     [](const auto& a, const auto& b) { return STRgreater(*a.first, *b.first); });
}

void FamilyWalk::write(std::ostream& out, const std::string& family) const {
    out << "{\n      \"family\": ";
    writeJsonString(out, family);
    const std::vector<std::string> devices = sorted(m_devices.values, STRgreater);
    out << ",\n      \"devices\": ";
    writeJsonList(out, devices);
    out << ",\n      \"packages\": {";
    writeKeyed(out, devices, m_packages, [&](const std::string&, const Distinct& packages) {
        writeJsonList(out, sorted(packages.values, PKGSTRgreater));
    });
    out << "},\n      \"speeds\": {";
    writeKeyed(out, devices, m_speeds,
               [&](const std::string& device, const auto&) { writeSpeedsOf(out, device); });
    out << "},\n      \"conditions\": {";
    writeKeyed(out, devices, m_conditions,
               [&](const std::string& device, const auto&) { writeConditionsOf(out, device); });
    out << "},\n      \"parts\": [";
    for (std::size_t i = 0; i < m_passing.size(); ++i) {
        out << (i ? ",\n        " : "\n        ");
        writePart(out, *m_passing[i].first, *m_passing[i].second);
    }
    out << (m_passing.empty() ? "]\n    }" : "\n      ]\n    }");
}

void FamilyWalk::writeSpeedsOf(std::ostream& out, const std::string& device) const {
    const auto packages = sorted(m_packages.at(device).values, PKGSTRgreater);
    out << '{';
    writeKeyed(out, packages, m_speeds.at(device), [&](const std::string&, const Distinct& speeds) {
        writeJsonList(out, sorted(speeds.values, STRgreater));
    });
    out << '}';
}

void FamilyWalk::writeConditionsOf(std::ostream& out, const std::string& device) const {
    const auto packages = sorted(m_packages.at(device).values, PKGSTRgreater);
    out << '{';
    writeKeyed(out, packages, m_conditions.at(device),
               [&](const std::string&, const BySpeed& bySpeed) {
                   out << '{';
                   writeKeyed(out, sortedKeys(bySpeed), bySpeed,
                              [&](const std::string&, const Distinct& conditions) {
                                  writeJsonList(out, sorted(conditions.values, STRgreater));
                              });
                   out << '}';
               });
    out << '}';
}

void FamilyWalk::writePart(std::ostream& out, const std::string& part,
                           const std::vector<std::string>& row) const {
    const auto& columns = m_parts.m_items;
    out << "{\"name\": ";
    writeJsonString(out, part);
    for (const auto& [column, field] : kPartFields) {
        const int index = m_parts.columnOf(column);
        if (index < 0 || static_cast<std::size_t>(index) >= row.size())
            continue;
        out << ", \"" << field << "\": ";
        writeJsonString(out, row[index]);
    }
    out << ", \"obsolete\": " << (m_file.isObsDevice(part) ? "true" : "false");
    // An item named at two levels is one column twice with the same value;
    // it is written once.
    out << ", \"items\": {";
    std::unordered_set<std::string> written;
    for (std::size_t i = 0; i < columns.size() && i < row.size(); ++i) {
        if (isPartField(columns[i]) || !written.insert(columns[i]).second)
            continue;
        out << (written.size() == 1 ? "" : ", ");
        writeJsonString(out, columns[i]);
        out << ": ";
        writeJsonString(out, row[i]);
    }
    out << "}}";
}

}  // namespace devctrl_tool
