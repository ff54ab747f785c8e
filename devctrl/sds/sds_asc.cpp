// SPDX-License-Identifier: MIT
// The ASC chips of one family: the on-board stock and the linkable types of a
// part, the chip catalogue, and the resources that chips contribute.

#include <cstdint>

#include "devctrl/sds/item_flag.h"
#include "devctrl/sds/sds_file.h"
#include "devctrl/util/string_utils.h"

namespace tarn::vyxpn {

namespace {
// "ASCStockNum" and "ASCExtTypes" hold one "|"-separated field per entry of
// the family's ASC type list; any other field count makes the item unusable.
bool splitPerAscType(const std::string& text, std::size_t typeCount,
                     std::vector<std::string>& fields) {
    if (text.empty())
        return false;
    fields = util::split(text, "|");
    return fields.size() == typeCount;
}
// Resource figures are 32-bit and wrap like the machine's arithmetic on
// absurd catalogue values, instead of overflowing (undefined in C++).
int wrappingProduct(int a, int b) {
    return static_cast<int>(static_cast<std::uint32_t>(a) * static_cast<std::uint32_t>(b));
}

int wrappingSum(int a, int b) {
    return static_cast<int>(static_cast<std::uint32_t>(a) + static_cast<std::uint32_t>(b));
}

}  // namespace

bool TarnSDSFile::getInternalASCs(const std::string& part, std::map<std::string, int>& ascs) const {
    ascs.clear();
    std::vector<std::string> fields;
    if (!splitPerAscType(getItemValue("ASCStockNum", part, ""), m_ascTypes.size(), fields))
        return false;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        int count = util::parseString<int>(fields[i]);
        if (count > 0)
            ascs.emplace(m_ascTypes[i], count);
    }
    return true;
}

bool TarnSDSFile::getSupportedASCs(const std::string& part, std::vector<std::string>& ascs) const {
    ascs.clear();
    std::vector<std::string> fields;
    if (!splitPerAscType(getItemValue("ASCExtTypes", part, ""), m_ascTypes.size(), fields))
        return false;
    for (std::size_t i = 0; i < fields.size(); ++i)
        if (itemFlagIsSet(fields[i]))
            ascs.push_back(m_ascTypes[i]);
    return true;
}

int TarnSDSFile::getGlobalSupportedASCs(std::vector<std::string>& ascs) const {
    ascs.clear();
    for (const auto& entry : m_ascSection.m_datas)
        ascs.push_back(entry.first);
    return static_cast<int>(ascs.size());
}

bool TarnSDSFile::getGlobalASCValue(const std::string& asc, const std::string& item,
                                    std::string& value) const {
    int position = util::indexOf(m_ascSection.m_items, item);
    auto row = m_ascSection.m_datas.find(asc);
    if (position < 0 || row == m_ascSection.m_datas.end())
        return false;
    if (static_cast<std::size_t>(position) >= row->second.size())
        return false;
    value = row->second[position];
    return true;
}

void TarnSDSFile::_calcASCDataByType(const std::string& asc, int count,
                                     std::map<std::string, int>& resources) const {
    resources.clear();
    auto row = m_ascSection.m_datas.find(asc);
    if (row == m_ascSection.m_datas.end() || m_ascResourceItems.empty())
        return;
    for (const auto& resource : m_ascResourceItems) {
        int position = util::indexOf(m_ascSection.m_items, resource);
        if (position < 0)
            continue;
        // A catalogue row too short for a resource column is broken data; it
        // reaches the caller, located, rather than read as zero.
        if (static_cast<std::size_t>(position) >= row->second.size())
            throw DataError(m_pm, sharedTablePath(), "ASC_DATAS", asc,
                            "no value for the column " + resource + " (the record has " +
                                std::to_string(row->second.size()) + ")");
        int amount = util::parseString<int>(row->second[position]);
        resources.emplace(resource, wrappingProduct(amount, count));
    }
}

bool TarnSDSFile::calcASCData(const std::string& part, const std::map<std::string, int>& linked,
                              KeyValueReport& data) const {
    std::map<std::string, int> onBoard;
    // Without a usable on-board stock the part reports no ASC resources at
    // all, not even for linked chips.
    if (!getInternalASCs(part, onBoard))
        return false;

    std::map<std::string, int> totals;
    auto addChips = [&](const std::map<std::string, int>& chips) {
        for (const auto& [asc, count] : chips) {
            std::map<std::string, int> resources;
            _calcASCDataByType(asc, count, resources);
            for (const auto& [resource, amount] : resources)
                totals[resource] = wrappingSum(totals[resource], amount);
        }
    };
    addChips(onBoard);
    addChips(linked);

    for (const auto& resource : m_ascResourceItems) {
        auto total = totals.find(resource);
        if (total != totals.end())
            data.emplace_back(resource, util::toString<int>(total->second));
    }
    return true;
}

bool TarnSDSFile::calcDeviceData(const std::string& device, const std::string& package,
                                 KeyValueReport& data) const {
    auto row = m_deviceInfo.m_datas.find(devicePackageKey(device, package));
    if (row == m_deviceInfo.m_datas.end())
        return false;
    const auto& items = m_deviceInfo.m_items;
    for (std::size_t i = 0; i < items.size(); ++i)
        data.emplace_back(items[i], row->second.at(i));
    return true;
}

}  // namespace tarn::vyxpn
