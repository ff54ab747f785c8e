// SPDX-License-Identifier: MIT
#include "devctrl/sds/data_error.h"

#include "devctrl/util/quote.h"

namespace tarn::vyxpn {

namespace {
std::string detailOf(const std::string& key, const std::string& row, const std::string& problem) {
    // Keys and records come from data files: escaped, so that one error
    // stays one line.
    std::string text = util::escapedForMessage(key);
    if (!row.empty())
        text += " record " + util::escapedForMessage(row);
    return (text.empty() ? "" : text + ": ") + problem;
}

std::string describe(const std::string& pm, const std::string& file, const std::string& key,
                     const std::string& row, const std::string& problem) {
    return util::escapedForMessage(file.empty() ? "device.acd of " + pm : file) + ": " +
           detailOf(key, row, problem);
}
}  // namespace

DataError::DataError(std::string pm, std::string file, std::string key, std::string row,
                     const std::string& problem)
    : std::out_of_range(describe(pm, file, key, row, problem)),
      m_pm(std::move(pm)),
      m_file(std::move(file)),
      m_key(std::move(key)),
      m_row(std::move(row)),
      m_problem(problem) {}

std::string DataError::detail() const {
    return detailOf(m_key, m_row, m_problem);
}

}  // namespace tarn::vyxpn
