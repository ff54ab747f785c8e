#include "devctrl/mngr/device_mngr.h"
#include "devctrl/sds/part_index.h"
#include "devctrl/sds/sds_file.h"

namespace tarn::vyxpn {

TarnPartIndex& TarnSDSFile::index(bool ascOnly) const {
    if (m_index && !m_index->tablesUnchanged())
        m_index.reset();
    if (ascOnly && m_pDeviceMngr)
        m_pDeviceMngr->noticeTableChanges(true);
    if (!m_index)
        m_index = std::make_unique<TarnPartIndex>(*this);
    return *m_index;
}

void TarnSDSFile::dropOwnIndexes() {
    m_index.reset();
}

void TarnSDSFile::invalidateIndexes() {
    dropOwnIndexes();
    // The manager's indexes (part owners, ASC capacity) read this family too.
    if (m_pDeviceMngr)
        m_pDeviceMngr->invalidateIndexes();
    if (m_holder && m_holder != m_pDeviceMngr)
        m_holder->invalidateIndexes();
}

}  // namespace tarn::vyxpn
