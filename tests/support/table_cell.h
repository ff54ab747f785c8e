// SPDX-License-Identifier: MIT
#pragma once
// A cell found by its part and its column's name, so that a test says which
// item it edits and survives a change of column order.

#include <stdexcept>
#include <string>

#include "devctrl/sds/sds_file_section.h"
#include "devctrl/util/string_utils.h"

namespace devctrl_test {

inline std::string& cellOf(tarn::vyxpn::TarnSDSFileSection& table, const std::string& part,
                           const std::string& column) {
    const int at = tarn::vyxpn::util::indexOf(table.m_items, column);
    if (at < 0)
        throw std::invalid_argument("no column " + column);
    return table.m_datas.at(part).at(static_cast<std::size_t>(at));
}

}  // namespace devctrl_test
