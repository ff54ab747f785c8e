#include "reliability/bad_data_support.h"

#include "devctrl/mngr/device_mngr.h"

namespace devctrl_test {

const char* const kBadDataPm = "bd1a00";

std::string cleanFamilyKey() {
    return "# key data of the damaged-data family\n"
           "FAMILY   = BDQ\n"
           "DEVICES  = BQ1, BQ2\n"
           "PACKAGES = BQ1, BG10 : \\\n"
           "           BQ2, BG10\n"
           "SPEEDS   = BQ1, BG10, 1 : BQ2, BG10, 1, 2\n";
}

std::string cleanDeviceAcd() {
    return "PM_ENABLE = true\n"
           "PKG_ALIAS = BG10, B10\n"
           "RESOURCE_ITMES = LUT\n"
           "DEVICE_ITEMS = Status\n"
           "DEVICE_DATAS = BQ1, P : BQ2, P\n"
           "PACKAGE_ITEMS = ES, Condition, LUT\n"
           "PACKAGE_DATAS = BQ1, BG10, No, C, 100 : BQ2, BG10, No, CI, 200\n";
}

std::string withCrlf(const std::string& text) {
    std::string result;
    for (char c : text) {
        if (c == '\n')
            result += '\r';
        result += c;
    }
    return result;
}

std::string withoutFinalNewline(const std::string& text) {
    std::string result = text;
    while (!result.empty() && (result.back() == '\n' || result.back() == '\r'))
        result.pop_back();
    return result;
}

void writeFamily(const TempDir& dir, const std::string& familyKey, const std::string& deviceAcd) {
    dir.write(std::string(kBadDataPm) + "/family.key", familyKey);
    dir.write(std::string(kBadDataPm) + "/device.acd", deviceAcd);
}

std::vector<std::string> loadedParts(const std::string& dir, const std::string& pm) {
    DataDirScope scope(dir);
    std::vector<std::string> parts;
    auto* mngr = tarn::vyxpn::TarnDeviceMngr::getInstance();
    mngr->getAllPartsByPM(pm, parts, true, false);
    return parts;
}

std::vector<std::string> linesMentioning(const TraceCapture& traces, const std::string& text) {
    std::vector<std::string> found;
    for (const std::string& line : traces.lines())
        if (line.find(text) != std::string::npos)
            found.push_back(line);
    return found;
}

}  // namespace devctrl_test
