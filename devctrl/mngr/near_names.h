// SPDX-License-Identifier: MIT
#pragma once
// "Did you mean": the known names closest to a mistyped one, the message
// that reports an unknown name, and the error that carries both.

#include <cstddef>
#include <stdexcept>
#include <string>
#include <vector>

#include "devctrl/util/export.h"

namespace tarn::vyxpn {

// Collects the known names closest to a mistyped one: equal but for letter
// case, or one character inserted, removed or replaced (letter case aside).
// Only names within two characters of the length and, for names of four
// characters or more, with the same first letter are compared, which keeps
// a scan over a large catalogue cheap.
class DEVCTRL_API NearNames {
  public:
    explicit NearNames(std::string query, std::size_t limit = 5);
    void consider(const std::string& candidate);
    // The names that differ only in letter case or, when there are none,
    // those one character off; in natural order (sortNatural), each once, at
    // most `limit`.
    std::vector<std::string> best() const;

  private:
    std::string m_query;
    std::string m_foldedQuery;
    std::size_t m_limit;
    std::vector<std::string> m_sameFolded;
    std::vector<std::string> m_oneOff;
};

// "unknown <kind> '<name>'", then " in <where>" when given and, when there
// are any, "; did you mean A, B?".
DEVCTRL_API std::string unknownNameMessage(const std::string& kind, const std::string& name,
                                           const std::vector<std::string>& suggestions,
                                           const std::string& where = "");

// A name nothing loaded knows (an item of a filter, a PM). what() is
// unknownNameMessage of the parts.
class DEVCTRL_API UnknownNameError : public std::invalid_argument {
  public:
    UnknownNameError(std::string kind, std::string name, std::vector<std::string> suggestions,
                     std::string where = "");
    const std::string& kind() const { return m_kind; }
    const std::string& name() const { return m_name; }
    const std::vector<std::string>& suggestions() const { return m_suggestions; }

  private:
    std::string m_kind;
    std::string m_name;
    std::vector<std::string> m_suggestions;
};

}  // namespace tarn::vyxpn
