// SPDX-License-Identifier: MIT
#pragma once
// Progress of TarnDeviceMngr::init, for a host's progress bar, and a way for
// the host to stop the load.

#include <functional>
#include <string>

#include "devctrl/util/export.h"

namespace tarn::vyxpn {

struct DEVCTRL_API LoadProgress {
    std::string pm;      // the PM about to load
    std::string family;  // its family name (the PM record's), "" if none
    int index = 0;       // 1 for the first PM, up to count
    int count = 0;       // the distinct installed PMs
};

// Called by init() before each PM loads, on the thread that runs init, in
// load order; a PM listed under two family names is announced once. Return
// false to stop: init() then loads nothing more (the families already loaded
// stay) and loadCancelled() is true. An exception thrown by the handler
// leaves init() as it is. Families may be building on helper threads
// meanwhile, so no handler may drop the part-model database (or switch the
// data directory and rebuild it) while init() runs.
using LoadProgressHandler = std::function<bool(const LoadProgress&)>;

// Installs the handler that every later init() calls, getInstance()'s first
// one included, and returns the one it replaces; an empty handler stops the
// announcements. Not to be called while a load runs on another thread.
DEVCTRL_API LoadProgressHandler setLoadProgressHandler(LoadProgressHandler handler);

// Tells the installed handler that `pm`, the index-th of `count` PMs, is
// about to load. True when no handler is installed or the handler lets the
// load go on. Used by init().
DEVCTRL_API bool announceLoad(const std::string& pm, int index, int count);

}  // namespace tarn::vyxpn
