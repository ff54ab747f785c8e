// SPDX-License-Identifier: MIT
#pragma once
// Reads one PM's "family.key" into its database record.

#include <memory>
#include <string>

#include "platform/pm_database.h"

namespace tarn::vyxpn::util {

// The record of PM `pm` kept in `directory`, built from its key data. A
// record without family names is not an installed PM.
PM_RECORD readPmRecord(const std::string& pm, const std::string& directory,
                       std::shared_ptr<const PM_DEVKEY> keys);

// A speed grade as written in SPEEDS ("6", "6/CI", "7/C"): the grade before
// the '/' and the conditions after it (C commercial, I industrial; without
// '/' both).
PM_SPEED_RECORD parseSpeedGrade(const std::string& text);

}  // namespace tarn::vyxpn::util
