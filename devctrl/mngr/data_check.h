// SPDX-License-Identifier: MIT
#pragma once
// A linter for an installation: every problem of every family, found the way
// start-up would meet it, without stopping at the first.

#include <cstddef>
#include <string>
#include <vector>

#include "devctrl/util/export.h"

namespace tarn::vyxpn {

struct DEVCTRL_API DataProblem {
    std::string file;      // the data file (or directory) at fault
    std::size_t line = 0;  // 1-based; 0 when the problem is the file as a whole
    std::string message;
    std::string pm;  // the family it belongs to; "" for the installation
};

// "FILE:LINE: message", or "FILE: message" without a line.
DEVCTRL_API std::string formatProblem(const DataProblem& problem);

// Reads the data directory the library is pointed at (BaseSystem::
// getDataPath()) family by family and reports, in PM order and without
// limit per file:
// - every trace that reading and building raise (malformed lines, damaged
//   part data files, parts named with '?', shared family names, ...);
// - every family that cannot load, with the reason (no PM_ENABLE, no
//   PKG_ALIAS). A family switched off on purpose (PM_ENABLE written and not
//   true) is configuration, not a problem;
// - every value that makes start-up raise DataError: each negative PKGIndex
//   of a device and package with package aliases, and each listed part
//   without a condition, not only the first one met.
// The part-model database is built afresh for the check (so its own traces
// are seen); a loaded manager is left alone. Traces are collected, not
// printed, while it runs.
DEVCTRL_API std::vector<DataProblem> checkInstallation();

}  // namespace tarn::vyxpn
