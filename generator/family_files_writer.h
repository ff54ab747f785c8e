// SPDX-License-Identifier: MIT
#pragma once
// Writes a planned family's key data (family.key), device table (device.acd)
// and part data file (<pm>.pwd, text or binary) into its PM directory.

#include <string>

#include "generator/family_plan.h"

namespace tarn::vyxpn::gen {

// The chip types every family lists, in the order of the ASCStockNum and
// ASCExtTypes fields; the shared device table defines them.
const std::vector<std::string>& ascChipTypes();

void writeFamilyKey(const FamilyPlan& plan, const std::string& directory);
void writeDeviceTable(const FamilyPlan& plan, const std::string& directory);
void writePartData(const FamilyPlan& plan, const std::string& directory);

}  // namespace tarn::vyxpn::gen
