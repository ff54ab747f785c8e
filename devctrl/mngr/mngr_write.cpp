// The writer and the dump by PM; a PM that is not loaded is ignored.

#include "devctrl/mngr/device_mngr.h"
#include "devctrl/sds/sds_file.h"

namespace tarn::vyxpn {

void TarnDeviceMngr::writeSDS(const std::string& pm, std::string path) {
    auto found = m_familyFiles.find(pm);
    if (found != m_familyFiles.end() && found->second)
        found->second->writeSDS(std::move(path));
}

void TarnDeviceMngr::printMe(const std::string& pm) {
    auto found = m_familyFiles.find(pm);
    if (found != m_familyFiles.end() && found->second)
        found->second->printMe();
}

}  // namespace tarn::vyxpn
