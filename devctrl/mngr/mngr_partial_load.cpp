// SPDX-License-Identifier: MIT
// Loading a chosen few families, for a program whose question depends on
// them alone: one family instead of a catalogue of many.

#include <set>

#include "devctrl/mngr/device_mngr.h"

namespace tarn::vyxpn {

TarnDeviceMngr* TarnDeviceMngr::getInstanceOf(const StringList& pms, BrokenFamilies broken) {
    if (m_pMngr)
        return m_pMngr;
    // As getInstance(): published before loading, dropped again when the
    // load raises.
    m_pMngr = new TarnDeviceMngr();
    try {
        m_pMngr->initOnly(pms, broken);
    } catch (...) {
        delete m_pMngr;
        m_pMngr = nullptr;
        throw;
    }
    return m_pMngr;
}

void TarnDeviceMngr::initOnly(const StringList& pms, BrokenFamilies broken) {
    const std::set<std::string> wanted(pms.begin(), pms.end());
    StringList installed;
    baseGetAllPMs(installed);
    // The installed order decides, as in init(), so that traces and failures
    // come in the order a full load gives them; progress counts what loads.
    StringList order;
    for (const auto& pm : installed)
        if (wanted.count(pm))
            order.push_back(pm);
    loadFamilies(order, broken);
}

}  // namespace tarn::vyxpn
