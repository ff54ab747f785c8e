// SPDX-License-Identifier: MIT
// The family's ASC report for a device object: the family layer knows parts
// and chip counts, not device objects, so the object is taken apart here.

#include "devctrl/device/device_obj.h"
#include "devctrl/sds/sds_file.h"

namespace tarn::vyxpn {

bool TarnSDSFile::calcASCData(TarnDeviceObj& dev, KeyValueReport& data) const {
    return calcASCData(dev.m_part, dev.getAscMap(), data);
}

}  // namespace tarn::vyxpn
