#include "devctrl/sds/sds_file.h"

namespace tarn::vyxpn {

// Placeholder until part generation lands: no parts, no resource rows.
void TarnSDSFile::buildDatabase() {
    m_genericDevices.clear();
    m_deviceInfo.clear();
}

}  // namespace tarn::vyxpn
