// SPDX-License-Identifier: MIT
#include "devctrl/mngr/known_names.h"

#include <algorithm>

#include "devctrl/mngr/device_mngr.h"
#include "devctrl/mngr/near_names.h"
#include "devctrl/sds/sds_file.h"
#include "devctrl/util/quote.h"

namespace tarn::vyxpn {

std::string requireLoadedPm(TarnDeviceMngr& mngr, const std::string& pmOrFamily) {
    if (mngr.getFamilyFile(pmOrFamily))
        return pmOrFamily;
    const std::string pm = TarnDeviceMngr::baseFamilyToPm(pmOrFamily);
    if (!pm.empty()) {
        if (mngr.getFamilyFile(pm))
            return pm;
        throw FamilyNotLoadedError("family " + util::quotedForMessage(pmOrFamily) + " (PM " +
                                   util::escapedForMessage(pm) + ") is installed but did not load");
    }
    StringList installed;
    TarnDeviceMngr::baseGetAllPMs(installed);
    if (std::find(installed.begin(), installed.end(), pmOrFamily) != installed.end())
        throw FamilyNotLoadedError("PM " + util::quotedForMessage(pmOrFamily) +
                                   " is installed but did not load");
    NearNames near(pmOrFamily);
    for (const auto& entry : mngr.getFamilyFiles()) {
        near.consider(entry.first);
        near.consider(TarnDeviceMngr::basePmToFamily(entry.first));
    }
    throw UnknownNameError("PM or family", pmOrFamily, near.best());
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
    throw UnknownNameError("part", part, near.best());
}

void requireListed(const std::string& kind, const std::string& name,
                   const std::vector<std::string>& known, const std::string& where) {
    if (std::find(known.begin(), known.end(), name) != known.end())
        return;
    NearNames near(name);
    for (const std::string& candidate : known)
        near.consider(candidate);
    throw UnknownNameError(kind, name, near.best(), where);
}

void requireSelection(TarnDeviceMngr& mngr, const std::string& pm, const std::string& device,
                      const std::string* package, const std::string* speed) {
    StringList known;
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

}  // namespace tarn::vyxpn
