// SPDX-License-Identifier: MIT
#pragma once
// The four cells of the part table that a part's name is made of. Lookups by
// name, the part lists and the name splitting all read the same columns, so
// their literal names live here once.

#include <algorithm>
#include <array>
#include <cstddef>

#include "devctrl/sds/sds_file_section.h"

namespace tarn::vyxpn {

// In the order a name is narrowed down: device, package, speed, condition.
inline constexpr std::array<const char*, 4> kNameColumnNames{"Device", "Package", "Speed",
                                                             "Condition"};

struct NameColumns {
    int device, package, speed, condition;

    // Whether the table has all four columns.
    bool complete() const { return device >= 0 && package >= 0 && speed >= 0 && condition >= 0; }
    // The cells a row needs for all four to be read (complete() first).
    std::size_t rowNeeds() const {
        return static_cast<std::size_t>(std::max({device, package, speed, condition})) + 1;
    }
};

inline NameColumns nameColumnsOf(const TarnSDSFileSection& table) {
    return {table.columnOf(kNameColumnNames[0]), table.columnOf(kNameColumnNames[1]),
            table.columnOf(kNameColumnNames[2]), table.columnOf(kNameColumnNames[3])};
}

}  // namespace tarn::vyxpn
