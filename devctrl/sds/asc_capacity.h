// SPDX-License-Identifier: MIT
#pragma once
// The one question a family cannot answer from its own tables: whether a part
// may use ASC chips. That depends on which loaded family owns the part's name,
// so whoever holds all the families (the manager) answers it.

#include <cstdint>
#include <string>

#include "devctrl/util/export.h"

namespace tarn::vyxpn {

class DEVCTRL_API PartAscCapacity {
  public:
    virtual ~PartAscCapacity() = default;
    virtual bool enableASC(const std::string& part) = 0;
    // Checks the held families for changes first. While it returns the same
    // number, enableASC keeps its answers, so a family may cache them.
    virtual std::uint64_t ascCapacityGeneration() = 0;
};

}  // namespace tarn::vyxpn
