// SPDX-License-Identifier: MIT
#pragma once
// What the part-model library lists for one PM, as plain string lists, and
// the members of a device table key. The family reads these while it builds
// its tables; the manager's base queries answer with the same functions.

#include <string>
#include <vector>

class PM_DEVKEY;

namespace tarn::vyxpn {

// Each empties `out` first. Speeds come in natural order.
void pmDevices(const std::string& pm, std::vector<std::string>& out);
void pmPackages(const std::string& pm, const std::string& device, std::vector<std::string>& out);
void pmSpeeds(const std::string& pm, const std::string& device, const std::string& package,
              std::vector<std::string>& out);
// "Commercial" and/or "Industrial", as the speed record allows.
void pmOperations(const std::string& pm, const std::string& device, const std::string& package,
                  const std::string& speed, std::vector<std::string>& out);

// The ','-separated members of one key; empties `out` and returns the count.
int g_getMemerItems(PM_DEVKEY& keys, const char* key, std::vector<std::string>& out);

}  // namespace tarn::vyxpn
