#include "devctrl/sds/sds_file.h"

namespace tarn::vyxpn {

// Placeholder until the part data reader lands: nothing to merge, no failure.
int TarnSDSFile::loadPWD_Bin(std::string, const char*, const std::vector<std::string>&) {
    return 0;
}

}  // namespace tarn::vyxpn
