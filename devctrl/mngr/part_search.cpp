// SPDX-License-Identifier: MIT
#include "devctrl/mngr/part_search.h"

#include "devctrl/mngr/device_mngr.h"
#include "devctrl/mngr/near_names.h"
#include "devctrl/mngr/part_filter.h"
#include "devctrl/sds/sds_file.h"
#include "devctrl/util/comparators.h"
#include "devctrl/util/glob_match.h"

namespace tarn::vyxpn {

namespace {

std::vector<const TarnSDSFile*> searchedFamilies(TarnDeviceMngr& mngr, const std::string& pm) {
    std::vector<const TarnSDSFile*> families;
    if (pm.empty()) {
        for (const auto& entry : mngr.getFamilyFiles())
            if (entry.second)
                families.push_back(entry.second);
        return families;
    }
    if (const TarnSDSFile* family = mngr.getFamilyFile(pm)) {
        families.push_back(family);
        return families;
    }
    NearNames near(pm);
    for (const auto& entry : mngr.getFamilyFiles())
        near.consider(entry.first);
    throw UnknownNameError("PM", pm, near.best());
}

bool matchesAny(const std::vector<std::string>& patterns, const std::string& name) {
    if (patterns.empty())
        return true;
    for (const std::string& pattern : patterns)
        if (util::matchesGlob(pattern, name))
            return true;
    return false;
}

}  // namespace

std::vector<FoundPart> searchParts(TarnDeviceMngr& mngr, const PartQuery& query) {
    const std::vector<const TarnSDSFile*> families = searchedFamilies(mngr, query.pm);
    const PartFilter filter(query.where);
    filter.requireKnownNames(families, query.pm);

    std::vector<FoundPart> found;
    std::vector<std::string> names;
    for (const TarnSDSFile* family : families) {
        // The family's own filter rule (indexed flags), then the cheap name
        // test, then the item lookups.
        family->getAllParts(names, query.withObsolete, query.ascOnly);
        std::vector<std::string> selected;
        for (std::string& name : names)
            if (matchesAny(query.patterns, name) && filter.accepts(*family, name))
                selected.push_back(std::move(name));
        sortNatural(selected);
        found.reserve(found.size() + selected.size());
        for (std::string& name : selected)
            found.push_back({family->m_pm, std::move(name)});
    }
    return found;
}

}  // namespace tarn::vyxpn
