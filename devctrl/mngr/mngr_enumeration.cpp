// SPDX-License-Identifier: MIT
#include "devctrl/mngr/device_mngr.h"
#include "devctrl/sds/sds_file.h"
#include "devctrl/util/comparators.h"

namespace tarn::vyxpn {

// The family lists in table order; users see every list in natural order.

void TarnDeviceMngr::getDevices(const std::string& pm, StringList& out, bool withObsolete,
                                bool ascOnly) {
    const TarnSDSFile* file = getFamilyFile(pm);
    if (!file)
        return;
    file->getSortedList(PartListKind::Devices, "", "", "", out, withObsolete, ascOnly);
}

void TarnDeviceMngr::getPackages(const std::string& pm, const std::string& device, StringList& out,
                                 bool withObsolete, bool ascOnly) {
    const TarnSDSFile* file = getFamilyFile(pm);
    if (!file)
        return;
    file->getSortedList(PartListKind::Packages, device, "", "", out, withObsolete, ascOnly);
}

void TarnDeviceMngr::getSpeeds(const std::string& pm, const std::string& device,
                               const std::string& package, StringList& out, bool withObsolete,
                               bool ascOnly) {
    const TarnSDSFile* file = getFamilyFile(pm);
    if (!file)
        return;
    file->getSortedList(PartListKind::Speeds, device, package, "", out, withObsolete, ascOnly);
}

void TarnDeviceMngr::getOperations(const std::string& pm, const std::string& device,
                                   const std::string& package, const std::string& speed,
                                   StringList& out, bool withObsolete, bool ascOnly) {
    const TarnSDSFile* file = getFamilyFile(pm);
    if (!file)
        return;
    file->getSortedList(PartListKind::Conditions, device, package, speed, out, withObsolete,
                        ascOnly);
}

void TarnDeviceMngr::getAllPartsByPM(const std::string& pm, StringList& out, bool withObsolete,
                                     bool ascOnly) {
    const TarnSDSFile* file = getFamilyFile(pm);
    if (!file)
        return;
    file->getAllParts(out, withObsolete, ascOnly);
    sortNatural(out);
}

void TarnDeviceMngr::getAllFamilies(StringList& out, bool withObsolete, bool ascOnly) {
    // A family shows only when at least one of its parts passes the filters;
    // this is how obsolete-only and ASC-less families drop out of the list.
    for (const auto& [pm, file] : m_familyFiles) {
        if (!file || !file->anyPartPasses(withObsolete, ascOnly))
            continue;
        const std::string family = basePmToFamily(pm);
        if (!family.empty())
            out.push_back(family);
    }
    sortNatural(out);
}

}  // namespace tarn::vyxpn
