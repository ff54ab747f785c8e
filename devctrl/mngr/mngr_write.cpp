// SPDX-License-Identifier: MIT
// The writer and the dump by PM; a PM that is not loaded is ignored.

#include <iostream>

#include "devctrl/mngr/device_mngr.h"
#include "devctrl/sds/sds_file.h"
#include "devctrl/util/quote.h"

namespace tarn::vyxpn {

SdsWriteResult TarnDeviceMngr::writeSupportFile(const std::string& pm, const std::string& path) {
    auto found = m_familyFiles.find(pm);
    if (found != m_familyFiles.end() && found->second)
        return found->second->writeSupportFile(path);
    SdsWriteResult result;
    result.reason = "PM " + util::escapedForMessage(pm) + " is not loaded; nothing written to " +
                    util::escapedForMessage(path);
    return result;
}

void TarnDeviceMngr::writeSDS(const std::string& pm, std::string path) {
    writeSupportFile(pm, path);
}

void TarnDeviceMngr::printMe(const std::string& pm, std::ostream& out) {
    auto found = m_familyFiles.find(pm);
    if (found != m_familyFiles.end() && found->second)
        found->second->printMe(out);
}

void TarnDeviceMngr::printMe(const std::string& pm) {
    printMe(pm, std::cout);
}

}  // namespace tarn::vyxpn
