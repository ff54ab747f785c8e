// SPDX-License-Identifier: MIT
#include "manager_teardown.h"

#include "devctrl/mngr/device_mngr.h"
#include "platform/pm_database.h"

namespace devctrl_test {

void dropManager() {
    // The manager does not clear its own pointer on destruction, and the
    // part-model database outlives it unless taken down here.
    delete tarn::vyxpn::TarnDeviceMngr::m_pMngr;
    tarn::vyxpn::TarnDeviceMngr::m_pMngr = nullptr;
    delete PM_DATABASE::_database;
    PM_DATABASE::_database = nullptr;
}

}  // namespace devctrl_test
