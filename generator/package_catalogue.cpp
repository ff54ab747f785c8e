// SPDX-License-Identifier: MIT
#include "generator/package_catalogue.h"

namespace tarn::vyxpn::gen {

const std::vector<PackageType>& packageTypes() {
    static const std::vector<PackageType> types{
        {"WL25", 25, {}},         {"QN32", 32, {"N32"}},       {"WLCSP36", 36, {"W36", "WL36"}},
        {"QN40", 40, {"N40"}},    {"QN48", 48, {"N48"}},       {"QF48", 48, {"Q48"}},
        {"QF64", 64, {"Q64"}},    {"CS81", 81, {"C81"}},       {"BG100", 100, {"B100", "BG100X"}},
        {"TQ100", 100, {"T100"}}, {"BG121", 121, {"B121"}},    {"CS121", 121, {"C121"}},
        {"CB132", 132, {"C132"}}, {"BG144", 144, {"B144"}},    {"TQ144", 144, {"T144"}},
        {"BG196", 196, {"B196"}}, {"BG256", 256, {"B256"}},    {"BGN256", 256, {"B256", "BN256"}},
        {"FT256", 256, {"F256"}}, {"FG484", 484, {"F484"}},    {"FG676", 676, {"F676", "FG676X"}},
        {"FG900", 900, {"F900"}}, {"FG1156", 1156, {"F1156"}},
    };
    return types;
}

}  // namespace tarn::vyxpn::gen
