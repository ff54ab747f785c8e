// SPDX-License-Identifier: MIT
#include "devctrl/mngr/part_owner_index.h"

#include <algorithm>

#include "devctrl/sds/name_columns.h"
#include "devctrl/sds/sds_file.h"

namespace tarn::vyxpn {

namespace {

class TextIds {
  public:
    explicit TextIds(std::vector<std::string>& texts) : m_texts(texts) {}
    std::uint32_t idOf(const std::string& text) {
        auto [found, added] = m_ids.try_emplace(text, static_cast<std::uint32_t>(m_texts.size()));
        if (added)
            m_texts.push_back(text);
        return found->second;
    }

  private:
    std::vector<std::string>& m_texts;
    std::unordered_map<std::string, std::uint32_t> m_ids;
};

}  // namespace

PartOwnerIndex::PartOwnerIndex(const std::map<std::string, TarnSDSFile*>& families) {
    std::size_t total = 0;
    for (const auto& entry : families)
        if (entry.second)
            total += entry.second->m_genericDevices.m_datas.size();
    m_owners.reserve(total);
    TextIds ids(m_texts);
    for (const auto& [pm, file] : families) {
        if (!file)
            continue;
        const TarnSDSFileSection& parts = file->m_genericDevices;
        const NameColumns columns = nameColumnsOf(parts);
        // Without these columns the family answers no name lookup, so a
        // later family may own the name.
        if (!columns.complete())
            continue;
        const std::size_t rowNeeds = columns.rowNeeds();
        for (const auto& [part, row] : parts.m_datas) {
            NameCells cells;
            cells.fill(kReadTheRow);
            if (row.size() >= rowNeeds)
                cells = {ids.idOf(row[columns.device]), ids.idOf(row[columns.package]),
                         ids.idOf(row[columns.speed]), ids.idOf(row[columns.condition])};
            m_owners.emplace(part, Owner{&pm, file, cells});
        }
    }
}

const PartOwnerIndex::Owner* PartOwnerIndex::find(const std::string& part) const {
    auto found = m_owners.find(part);
    return found == m_owners.end() ? nullptr : &found->second;
}

}  // namespace tarn::vyxpn
