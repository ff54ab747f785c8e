// SPDX-License-Identifier: MIT
#include "devctrl/sds/part_index.h"
#include "devctrl/sds/sds_file.h"

namespace tarn::vyxpn {

TarnPartIndex& TarnSDSFile::index(bool ascOnly) const {
    if (m_index && !m_index->tablesUnchanged())
        m_index.reset();
    if (ascOnly && m_ascCapacity)
        m_ascCapacity->ascCapacityGeneration();  // drops stale answers it gave
    if (!m_index)
        m_index = std::make_unique<TarnPartIndex>(*this);
    return *m_index;
}

void TarnSDSFile::dropOwnIndexes() {
    m_index.reset();
}

void TarnSDSFile::invalidateIndexes() {
    dropOwnIndexes();
    // Indexes of this family held elsewhere (the manager's part owners and
    // ASC capacity) compare the version before they answer.
    ++m_version;
}

}  // namespace tarn::vyxpn
