// SPDX-License-Identifier: MIT
#pragma once
// A small, valid family installation that the bad-data tests damage one way
// at a time, and the checks they share.

#include <string>
#include <vector>

#include "devctrl/mngr/device_mngr.h"
#include "devctrl/sds/sds_file.h"
#include "support/test_env.h"

namespace devctrl_test {

inline const char* const kBadDataPm = "bd1a00";

inline std::string cleanFamilyKey() {
    return "# key data of the damaged-data family\n"
           "FAMILY   = BDQ\nDEVICES  = BQ1, BQ2\n"
           "PACKAGES = BQ1, BG10 : \\\n           BQ2, BG10\n"
           "SPEEDS   = BQ1, BG10, 1 : BQ2, BG10, 1, 2\n";
}

inline std::string cleanDeviceAcd() {
    return "PM_ENABLE = true\nPKG_ALIAS = BG10, B10\nRESOURCE_ITMES = LUT\n"
           "DEVICE_ITEMS = Status\nDEVICE_DATAS = BQ1, P : BQ2, P\n"
           "PACKAGE_ITEMS = ES, Condition, LUT\n"
           "PACKAGE_DATAS = BQ1, BG10, No, C, 100 : BQ2, BG10, No, CI, 200\n";
}

// Writes the family into `dir` (as <dir>/<kBadDataPm>/...).
inline void writeFamily(const TempDir& dir, const std::string& familyKey,
                        const std::string& deviceAcd) {
    dir.write(std::string(kBadDataPm) + "/family.key", familyKey);
    dir.write(std::string(kBadDataPm) + "/device.acd", deviceAcd);
}

// The part names offered for kBadDataPm (obsolete included) after loading
// `dir` afresh; empty when the PM did not load.
inline std::vector<std::string> loadedParts(const std::string& dir) {
    DataDirScope scope(dir);
    std::vector<std::string> parts;
    tarn::vyxpn::TarnDeviceMngr::getInstance()->getAllPartsByPM(kBadDataPm, parts, true, false);
    return parts;
}

// The package section of kBadDataPm after loading `dir` afresh; empty when
// the PM did not load.
inline tarn::vyxpn::TarnSDSFileSection packageSection(const std::string& dir) {
    DataDirScope scope(dir);
    const auto* family = tarn::vyxpn::TarnDeviceMngr::getInstance()->getFamilyFile(kBadDataPm);
    return family ? family->m_packageSection : tarn::vyxpn::TarnSDSFileSection();
}

// The trace lines that mention `text`.
inline std::vector<std::string> linesMentioning(const TraceCapture& traces,
                                                const std::string& text) {
    std::vector<std::string> found;
    for (const std::string& line : traces.lines())
        if (line.find(text) != std::string::npos)
            found.push_back(line);
    return found;
}

}  // namespace devctrl_test
