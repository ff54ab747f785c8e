// SPDX-License-Identifier: MIT
// Loading only the families a question needs: a question about one part or
// one PM of a large catalogue then costs one family's load, not all of them.

#include <algorithm>
#include <cstdlib>
#include <cstring>

#include "command.h"
#include "devctrl/mngr/device_mngr.h"
#include "devctrl/mngr/part_owner_cache.h"

namespace devctrl_tool {

namespace {

using tarn::vyxpn::PartOwnerCache;
using tarn::vyxpn::StringList;
using tarn::vyxpn::TarnDeviceMngr;

// DEVCTRL_FULL_LOAD=1 loads every family whatever the command, for
// comparing answers and times.
bool fullLoadWanted() {
    const char* value = std::getenv("DEVCTRL_FULL_LOAD");
    return value && *value && std::strcmp(value, "0") != 0;
}

}  // namespace

TarnDeviceMngr& Context::loadFor(const std::optional<StringList>& pms,
                                 const std::string& cacheStamp) {
    if (!pms) {
        TarnDeviceMngr& loaded = mngr();
        // A cache that cannot be written only costs the next command a full
        // load.
        if (!cacheStamp.empty() && !loaded.loadCancelled())
            PartOwnerCache::write(loaded, cacheStamp);
        return loaded;
    }
    loadWith([&pms] { TarnDeviceMngr::getInstanceOf(*pms, TarnDeviceMngr::BrokenFamilies::Skip); });
    return *TarnDeviceMngr::m_pMngr;
}

TarnDeviceMngr& Context::mngrForParts(const std::vector<std::string>& parts) {
    if (TarnDeviceMngr::m_pMngr || fullLoadWanted())
        return mngr();
    requireData();
    // Taken before any load: a data file changed during the load leaves a
    // stale cache, never one that looks current.
    const std::string stamp = tarn::vyxpn::dataDirectoryStamp();
    const PartOwnerCache cache(stamp);
    const auto knowsAll = [&parts](TarnDeviceMngr& loaded) {
        return std::all_of(parts.begin(), parts.end(),
                           [&loaded](const std::string& part) { return loaded.exists(part); });
    };
    if (std::optional<StringList> owners = tarn::vyxpn::familiesForParts(cache, parts)) {
        TarnDeviceMngr& loaded = loadFor(owners, "");
        if (knowsAll(loaded))
            return loaded;
        // The owner it named does not know the name: the file is damaged.
        delete TarnDeviceMngr::m_pMngr;
    }
    // A name the cache does not know: its answer names the nearest names of
    // every family, which takes them all. Known to them, it shows the cache
    // damaged.
    TarnDeviceMngr& loaded = loadFor(std::nullopt, "");
    if ((!cache.usable() || knowsAll(loaded)) && !loaded.loadCancelled())
        PartOwnerCache::write(loaded, stamp);
    return loaded;
}

TarnDeviceMngr& Context::mngrForPm(const std::string& pmOrFamily, bool ascOnly) {
    if (TarnDeviceMngr::m_pMngr || fullLoadWanted())
        return mngr();
    requireData();
    if (!ascOnly)
        return loadFor(tarn::vyxpn::familiesForPm(pmOrFamily), "");
    const std::string stamp = tarn::vyxpn::dataDirectoryStamp();
    const PartOwnerCache cache(stamp);
    return loadFor(tarn::vyxpn::familiesForPm(pmOrFamily, &cache), cache.usable() ? "" : stamp);
}

TarnDeviceMngr& Context::mngrOf(const std::vector<std::string>& pms) {
    if (TarnDeviceMngr::m_pMngr || fullLoadWanted())
        return mngr();
    return loadFor(pms, "");
}

}  // namespace devctrl_tool
