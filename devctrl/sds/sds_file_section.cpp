// SPDX-License-Identifier: MIT
#include "devctrl/sds/sds_file_section.h"

#include "devctrl/util/string_utils.h"

namespace tarn::vyxpn {

int TarnSDSFileSection::columnOf(const std::string& item) const {
    return util::indexOf(m_items, item);
}

const std::string* TarnSDSFileSection::cell(const std::string& key, int column) const {
    if (column < 0)
        return nullptr;
    auto row = m_datas.find(key);
    if (row == m_datas.end() || static_cast<std::size_t>(column) >= row->second.size())
        return nullptr;
    return &row->second[static_cast<std::size_t>(column)];
}

}  // namespace tarn::vyxpn
