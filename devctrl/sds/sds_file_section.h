// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <string>
#include <vector>

#include "devctrl/util/export.h"

namespace tarn::vyxpn {

// A table with named columns and keyed rows. Value i of a row belongs to
// column i; a row may be shorter than the column list (the missing cells are
// simply not there) or longer (the extra values are never found by name).
class DEVCTRL_API TarnSDSFileSection {
  public:
    void clear() {
        m_items.clear();
        m_datas.clear();
    }

    // Position of a column, or -1.
    int columnOf(const std::string& item) const;
    // The cell of row `key` in column `column`; null when the row is missing,
    // the column is negative or the row is too short.
    const std::string* cell(const std::string& key, int column) const;

    std::vector<std::string> m_items;
    std::map<std::string, std::vector<std::string>> m_datas;
};

// The row key of tables kept per device and package (the package table, the
// resource table).
inline std::string devicePackageKey(const std::string& device, const std::string& package) {
    return device + "_" + package;
}

}  // namespace tarn::vyxpn
