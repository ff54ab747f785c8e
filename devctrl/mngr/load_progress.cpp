// SPDX-License-Identifier: MIT
#include "devctrl/mngr/load_progress.h"

#include <utility>

#include "devctrl/mngr/device_mngr.h"

namespace tarn::vyxpn {

namespace {

LoadProgressHandler& installedHandler() {
    static LoadProgressHandler handler;
    return handler;
}

}  // namespace

LoadProgressHandler setLoadProgressHandler(LoadProgressHandler handler) {
    return std::exchange(installedHandler(), std::move(handler));
}

bool announceLoad(const std::string& pm, int index, int count) {
    // A copy, so that a handler may replace itself while it runs.
    const LoadProgressHandler handler = installedHandler();
    if (!handler)
        return true;
    return handler(LoadProgress{pm, TarnDeviceMngr::basePmToFamily(pm), index, count});
}

}  // namespace tarn::vyxpn
