#include "devctrl/mngr/device_mngr.h"
#include "devctrl/sds/sds_file.h"

namespace tarn::vyxpn {

void TarnDeviceMngr::invalidateIndexes() {
    ++m_indexGeneration;
    m_partOwners.reset();
    m_tableStamps.reset();
    // A family's own lists may be filtered by ASC capacity, which any family
    // can change, and an edit in place is not something a family notices.
    for (auto& entry : m_familyFiles)
        if (entry.second)
            entry.second->dropOwnIndexes();
}

void TarnDeviceMngr::tablesChanged() {
    ++m_indexGeneration;
    m_partOwners.reset();
    stampTables();
}

void TarnDeviceMngr::stampTables() {
    m_tableStamps.emplace();
    m_tableStamps->reserve(m_familyFiles.size());
    for (const auto& entry : m_familyFiles)
        if (entry.second)
            m_tableStamps->emplace_back(*entry.second);
}

void TarnDeviceMngr::noticeTableChanges(bool everyTable) {
    if (!m_tableStamps) {
        stampTables();
        return;
    }
    auto stamp = m_tableStamps->begin();
    for (const auto& entry : m_familyFiles) {
        if (!entry.second)
            continue;
        if (stamp == m_tableStamps->end() ||
            !(everyTable ? stamp->matches(*entry.second)
                         : stamp->partTableMatches(*entry.second))) {
            tablesChanged();
            return;
        }
        ++stamp;
    }
    if (stamp != m_tableStamps->end())
        tablesChanged();
}

void TarnDeviceMngr::buildPartOwners() {
    std::size_t total = 0;
    for (const auto& entry : m_familyFiles)
        if (entry.second)
            total += entry.second->m_genericDevices.m_datas.size();
    m_partOwners.emplace();
    m_partOwners->reserve(total);
    for (const auto& [pm, file] : m_familyFiles) {
        if (!file)
            continue;
        const TarnSDSFileSection& parts = file->m_genericDevices;
        // Without these columns the family answers no name lookup, so a
        // later family may own the name.
        if (parts.columnOf("Device") < 0 || parts.columnOf("Speed") < 0 ||
            parts.columnOf("Package") < 0 || parts.columnOf("Condition") < 0)
            continue;
        for (const auto& entry : parts.m_datas)
            m_partOwners->emplace(entry.first, PartOwner{&pm, file});
    }
}

std::optional<TarnDeviceMngr::OwnedRow> TarnDeviceMngr::ownerOf(const std::string& part) {
    noticeTableChanges(false);
    for (int attempt = 0; attempt < 2; ++attempt) {
        if (!m_partOwners)
            buildPartOwners();
        auto found = m_partOwners->find(part);
        if (found == m_partOwners->end())
            return std::nullopt;
        const PartOwner& owner = found->second;
        const auto& rows = owner.file->m_genericDevices.m_datas;
        auto row = rows.find(part);
        if (row != rows.end())
            return OwnedRow{owner.pm, owner.file, &row->second};
        // Erased, with another row added so that the counts still match:
        // the index is stale, so look again in a fresh one.
        tablesChanged();
    }
    return std::nullopt;
}

}  // namespace tarn::vyxpn
