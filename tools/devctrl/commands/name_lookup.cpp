#include "name_lookup.h"

#include <algorithm>
#include <cctype>

#include "command.h"
#include "devctrl/mngr/comparators.h"
#include "devctrl/mngr/device_mngr.h"
#include "devctrl/sds/sds_file.h"
#include "devctrl/util/string_utils.h"

namespace devctrl_tool {

using tarn::vyxpn::TarnDeviceMngr;

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

void sortNatural(std::vector<std::string>& names) {
    tarn::vyxpn::sortNatural(names);
    names.erase(std::unique(names.begin(), names.end()), names.end());
}

}  // namespace

NearNames::NearNames(std::string query, std::size_t limit)
    : m_query(std::move(query)),
      m_foldedQuery(tarn::vyxpn::util::toUpper(m_query)),
      m_limit(limit) {}

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
    const std::string folded = tarn::vyxpn::util::toUpper(candidate);
    if (folded == m_foldedQuery)
        m_sameFolded.push_back(candidate);
    else if (oneEditApart(folded, m_foldedQuery))
        m_oneOff.push_back(candidate);
}

std::vector<std::string> NearNames::best() const {
    // A name that differs only in letter case is surely the one meant; the
    // one-character neighbours would only add noise then.
    std::vector<std::string> names = m_sameFolded.empty() ? m_oneOff : m_sameFolded;
    sortNatural(names);
    if (names.size() > m_limit)
        names.resize(m_limit);
    return names;
}

std::string unknownNameMessage(const std::string& kind, const std::string& name,
                               const std::vector<std::string>& suggestions,
                               const std::string& where) {
    std::string message = "unknown " + kind + " '" + name + "'";
    if (!where.empty())
        message += " in " + where;
    for (std::size_t i = 0; i < suggestions.size(); ++i)
        message += (i == 0 ? "; did you mean " : ", ") + suggestions[i];
    if (!suggestions.empty())
        message += "?";
    return message;
}

std::string resolvePm(TarnDeviceMngr& mngr, const std::string& argument) {
    if (mngr.getFamilyFile(argument))
        return argument;
    const std::string pm = TarnDeviceMngr::baseFamilyToPm(argument);
    if (!pm.empty()) {
        if (mngr.getFamilyFile(pm))
            return pm;
        throw ToolError("family '" + argument + "' (PM " + pm + ") is installed but did not load");
    }
    tarn::vyxpn::StringList installed;
    TarnDeviceMngr::baseGetAllPMs(installed);
    if (std::find(installed.begin(), installed.end(), argument) != installed.end())
        throw ToolError("PM '" + argument + "' is installed but did not load");
    NearNames near(argument);
    for (const auto& entry : mngr.getFamilyFiles()) {
        near.consider(entry.first);
        near.consider(TarnDeviceMngr::basePmToFamily(entry.first));
    }
    throw ToolError(unknownNameMessage("PM or family", argument, near.best()));
}

void requireKnownPart(TarnDeviceMngr& mngr, const std::string& part) {
    if (mngr.exists(part))
        return;
    NearNames near(part);
    for (const auto& entry : mngr.getFamilyFiles()) {
        if (!entry.second)
            continue;
        for (const auto& row : entry.second->m_genericDevices.m_datas)
            near.consider(row.first);
    }
    throw ToolError(unknownNameMessage("part", part, near.best()));
}

void requireListed(const std::string& kind, const std::string& name,
                   const std::vector<std::string>& known, const std::string& where) {
    if (std::find(known.begin(), known.end(), name) != known.end())
        return;
    NearNames near(name);
    for (const std::string& candidate : known)
        near.consider(candidate);
    throw ToolError(unknownNameMessage(kind, name, near.best(), where));
}

void requireSelection(tarn::vyxpn::TarnDeviceMngr& mngr, const std::string& pm,
                      const std::string& device, const std::string* package,
                      const std::string* speed) {
    tarn::vyxpn::StringList known;
    mngr.getDevices(pm, known, true, false);
    requireListed("device", device, known, pm);
    if (!package)
        return;
    known.clear();
    mngr.getPackages(pm, device, known, true, false);
    requireListed("package", *package, known, pm);
    if (!speed)
        return;
    known.clear();
    mngr.getSpeeds(pm, device, *package, known, true, false);
    requireListed("speed grade", *speed, known, pm);
}

}  // namespace devctrl_tool
