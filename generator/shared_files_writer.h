// SPDX-License-Identifier: MIT
#pragma once
// The files every family shares: the ASC chip catalogue (device.acd at the
// top of the data directory) and the renamed device list (pqrndev.lst).

#include <string>
#include <vector>

#include "generator/random_source.h"

namespace tarn::vyxpn::gen {

void writeAscCatalogue(const std::string& dataDirectory);

// `parts`: existing part names to draw the entries from (byte-wise sorted
// or not; the order is kept). Writes a few hundred entries when there are
// enough names.
void writeRenamedDevices(const std::string& dataDirectory, const std::vector<std::string>& parts,
                         RandomSource random);

}  // namespace tarn::vyxpn::gen
