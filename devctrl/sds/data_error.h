// SPDX-License-Identifier: MIT
#pragma once
// The error that bad installed data raise while a family is built or asked:
// a standard out-of-range error that also says where the bad value is.

#include <stdexcept>
#include <string>

#include "devctrl/util/export.h"

namespace tarn::vyxpn {

class DEVCTRL_API DataError : public std::out_of_range {
  public:
    // `file` is the data file holding the value ("" when the family was not
    // read from the installation), `key` the key of that file and `row` the
    // record of the key (its leading fields, as written). what() is
    // "FILE: KEY record ROW: PROBLEM".
    DataError(std::string pm, std::string file, std::string key, std::string row,
              const std::string& problem);

    const std::string& pm() const { return m_pm; }
    const std::string& file() const { return m_file; }
    const std::string& key() const { return m_key; }
    const std::string& row() const { return m_row; }
    const std::string& problem() const { return m_problem; }
    // what() without the file: "KEY record ROW: PROBLEM".
    std::string detail() const;

  private:
    std::string m_pm, m_file, m_key, m_row, m_problem;
};

}  // namespace tarn::vyxpn
