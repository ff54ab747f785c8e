// SPDX-License-Identifier: MIT
#pragma once
// Taking the loaded catalogue down between cases, shared by the unit tests
// and the fuzz targets so both start each case from the same clean state.

namespace devctrl_test {

// Destroys the device manager (if any) and the part-model database, so the
// next getInstance() reads the data directory again.
void dropManager();

}  // namespace devctrl_test
