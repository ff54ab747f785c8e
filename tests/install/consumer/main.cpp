// SPDX-License-Identifier: MIT
// Uses the installed library the way a host program would: the umbrella
// header, the platform headers through <devctrl/platform/...>, and the
// settings store, the one part of the interface that needs Qt.
#include <devctrl/devctrl.h>
#include <devctrl/platform/base_settings.h>
#include <devctrl/platform/ut_trace.h>

#include <cstdio>

int main() {
    using namespace tarn::vyxpn;
    setDiagTraceHandler(diagTraceToStderr);
    if (!BaseSystem::getDataPath().exists()) {
        std::fprintf(stderr, "consumer: the installed sample data were not found\n");
        return 1;
    }
    StringList pms;
    TarnDeviceMngr::baseGetAllPMs(pms);
    TarnDeviceMngr* mngr = TarnDeviceMngr::getInstance();
    if (pms.empty() || mngr == nullptr || mngr->getFamilyFiles().empty()) {
        std::fprintf(stderr, "consumer: the installed sample data did not load\n");
        return 1;
    }
    for (const auto& pm : pms)
        std::printf("%s\n", pm.c_str());
    return 0;
}
