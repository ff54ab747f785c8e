#include "devctrl/mngr/device_mngr.h"
#include "devctrl/sds/sds_file.h"

namespace tarn::vyxpn {

void TarnDeviceMngr::invalidateIndexes() {
    ++m_indexGeneration;
    m_partOwners.reset();
    // A family's own lists may be filtered by ASC capacity, which any family
    // can change.
    for (auto& entry : m_familyFiles)
        if (entry.second)
            entry.second->dropOwnIndexes();
}

const TarnDeviceMngr::PartOwner* TarnDeviceMngr::ownerOf(const std::string& part) {
    if (!m_partOwners) {
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
                m_partOwners->emplace(entry.first, PartOwner{&pm, file, &entry.second});
        }
    }
    auto found = m_partOwners->find(part);
    return found == m_partOwners->end() ? nullptr : &found->second;
}

}  // namespace tarn::vyxpn
