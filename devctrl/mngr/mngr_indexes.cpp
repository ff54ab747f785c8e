// SPDX-License-Identifier: MIT
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

const PartOwnerIndex::Owner* TarnDeviceMngr::ownerOf(const std::string& part) {
    return partOwnerIndex().find(part);
}

const PartOwnerIndex& TarnDeviceMngr::partOwnerIndex() {
    noticeTableChanges(false);
    if (!m_partOwners)
        m_partOwners = std::make_unique<PartOwnerIndex>(m_familyFiles);
    return *m_partOwners;
}

}  // namespace tarn::vyxpn
