// SPDX-License-Identifier: MIT
#include "devctrl/mngr/near_names.h"

#include <algorithm>
#include <cctype>

#include "devctrl/util/comparators.h"
#include "devctrl/util/quote.h"
#include "devctrl/util/string_utils.h"

namespace tarn::vyxpn {

namespace {

// Whether `a` becomes `b` by one insertion, removal or replacement. Linear:
// after the common prefix the rest must line up with one step skipped.
bool oneEditApart(const std::string& a, const std::string& b) {
    const std::string& shorter = a.size() <= b.size() ? a : b;
    const std::string& longer = a.size() <= b.size() ? b : a;
    if (longer.size() - shorter.size() > 1)
        return false;
    std::size_t i = 0;
    while (i < shorter.size() && shorter[i] == longer[i])
        ++i;
    if (shorter.size() == longer.size())
        return i < shorter.size() && shorter.compare(i + 1, std::string::npos, longer, i + 1) == 0;
    return shorter.compare(i, std::string::npos, longer, i + 1) == 0;
}

void sortUnique(std::vector<std::string>& names) {
    sortNatural(names);
    names.erase(std::unique(names.begin(), names.end()), names.end());
}

}  // namespace

NearNames::NearNames(std::string query, std::size_t limit)
    : m_query(std::move(query)), m_foldedQuery(util::toUpper(m_query)), m_limit(limit) {}

void NearNames::consider(const std::string& candidate) {
    if (candidate.empty() || m_query.empty() || candidate == m_query)
        return;
    const std::size_t length = candidate.size();
    if (length + 2 < m_query.size() || length > m_query.size() + 2)
        return;
    // Short names (speed grades) differ in their first character as often
    // as anywhere else.
    if (m_query.size() >= 4 && std::toupper(static_cast<unsigned char>(candidate[0])) !=
                                   static_cast<unsigned char>(m_foldedQuery[0]))
        return;
    const std::string folded = util::toUpper(candidate);
    if (folded == m_foldedQuery)
        m_sameFolded.push_back(candidate);
    else if (oneEditApart(folded, m_foldedQuery))
        m_oneOff.push_back(candidate);
}

std::vector<std::string> NearNames::best() const {
    // A name that differs only in letter case is surely the one meant; the
    // one-character neighbours would only add noise then.
    std::vector<std::string> names = m_sameFolded.empty() ? m_oneOff : m_sameFolded;
    sortUnique(names);
    if (names.size() > m_limit)
        names.resize(m_limit);
    return names;
}

std::string unknownNameMessage(const std::string& kind, const std::string& name,
                               const std::vector<std::string>& suggestions,
                               const std::string& where) {
    // Names come from the user and the data files: escaped, so that the
    // message stays one line and sends nothing to the terminal.
    std::string message = "unknown " + kind + " " + util::quotedForMessage(name);
    if (!where.empty())
        message += " in " + util::escapedForMessage(where);
    for (std::size_t i = 0; i < suggestions.size(); ++i)
        message += (i == 0 ? "; did you mean " : ", ") + util::escapedForMessage(suggestions[i]);
    if (!suggestions.empty())
        message += "?";
    return message;
}

UnknownNameError::UnknownNameError(std::string kind, std::string name,
                                   std::vector<std::string> suggestions, std::string where)
    : std::invalid_argument(unknownNameMessage(kind, name, suggestions, where)),
      m_kind(std::move(kind)),
      m_name(std::move(name)),
      m_suggestions(std::move(suggestions)) {}

}  // namespace tarn::vyxpn
