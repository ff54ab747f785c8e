// SPDX-License-Identifier: MIT
#pragma once
// The package types generated families choose from, smallest first. BGN256
// is the lead-free twin of BG256 and shares its short code, so a device
// offered in both generates some part names twice.

#include <string>
#include <vector>

namespace tarn::vyxpn::gen {

struct PackageType {
    std::string name;
    int pins;
    std::vector<std::string> aliases;
};

const std::vector<PackageType>& packageTypes();

}  // namespace tarn::vyxpn::gen
