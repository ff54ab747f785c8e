// SPDX-License-Identifier: MIT
#include "name_lookup.h"

#include <algorithm>

#include "command.h"
#include "devctrl/mngr/device_mngr.h"
#include "devctrl/sds/sds_file.h"
#include "devctrl/util/quote.h"

namespace devctrl_tool {

using tarn::vyxpn::TarnDeviceMngr;

std::string resolvePm(TarnDeviceMngr& mngr, const std::string& argument) {
    if (mngr.getFamilyFile(argument))
        return argument;
    const std::string pm = TarnDeviceMngr::baseFamilyToPm(argument);
    if (!pm.empty()) {
        if (mngr.getFamilyFile(pm))
            return pm;
        throw ToolError("family " + tarn::vyxpn::util::quotedForMessage(argument) + " (PM " +
                        tarn::vyxpn::util::escapedForMessage(pm) +
                        ") is installed but did not load");
    }
    tarn::vyxpn::StringList installed;
    TarnDeviceMngr::baseGetAllPMs(installed);
    if (std::find(installed.begin(), installed.end(), argument) != installed.end())
        throw ToolError("PM " + tarn::vyxpn::util::quotedForMessage(argument) +
                        " is installed but did not load");
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
