// SPDX-License-Identifier: MIT
// A family built for a manager asks that manager which parts may use ASC
// chips. The conversion needs the manager's full type, so it is made here
// rather than in the family layer, which sees only PartAscCapacity.

#include "devctrl/mngr/device_mngr.h"
#include "devctrl/sds/part_index.h"
#include "devctrl/sds/sds_file.h"

namespace tarn::vyxpn {

TarnSDSFile::TarnSDSFile(std::string pm, TarnDeviceMngr* mngr)
    : m_pm(std::move(pm)), m_pDeviceMngr(mngr), m_ascCapacity(mngr) {}

}  // namespace tarn::vyxpn
