// Uses the installed library the way a host program would.
#include <devctrl/devctrl.h>

#include <cstdio>

int main() {
    using namespace tarn::vyxpn;
    StringList pms;
    TarnDeviceMngr::baseGetAllPMs(pms);
    TarnDeviceMngr* mngr = TarnDeviceMngr::getInstance();
    if (pms.empty() || mngr == nullptr || mngr->getFamilyFiles().empty()) {
        std::fprintf(stderr, "consumer: the installed sample data did not load\n");
        return 1;
    }
    for (const auto& pm : pms) std::printf("%s\n", pm.c_str());
    return 0;
}
