// SPDX-License-Identifier: MIT
#pragma once
// A file in the user's cache directory that says, for every part name of the
// data directory, which PM a full load makes its owner. A program that asks
// about one part then loads one family instead of the whole catalogue.
//
// The file carries the size and modification time of every file of the data
// directory it was built from; any difference makes it stale. It is only
// ever replaced whole (a new file renamed over the old one), and anything
// short, foreign or out of bounds in it makes it unusable, never trusted: the
// caller then loads every family and writes the file anew.

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "devctrl/util/export.h"
#include "devctrl/util/string_list.h"

namespace tarn::vyxpn {

class TarnDeviceMngr;

// The data directory as it is now: its absolute path and, for each of its
// files (sub-directories included), path, size and modification time. Empty
// when the directory cannot be read or a file name could not be written down.
DEVCTRL_API std::string dataDirectoryStamp();

class DEVCTRL_API PartOwnerCache {
  public:
    // The cache file of the current data directory; empty without a cache
    // directory.
    static std::string path();

    // Opens the file for the current data directory; usable() says whether
    // it matches `stamp` (dataDirectoryStamp() when not given) and is whole.
    PartOwnerCache();
    explicit PartOwnerCache(const std::string& stamp);
    ~PartOwnerCache();
    PartOwnerCache(const PartOwnerCache&) = delete;
    PartOwnerCache& operator=(const PartOwnerCache&) = delete;

    // False once a lookup found the file damaged.
    bool usable() const { return m_base != nullptr && !m_damaged; }
    // The PM that owns `part`, or nullopt when the file knows no owner for it.
    std::optional<std::string> ownerOf(std::string_view part) const;
    // The PMs that own a name `pm` also holds, so decide what `pm`'s parts
    // answer through the manager (their ASC capacity, say).
    StringList ownersOfSharedNames(const std::string& pm) const;

    // Writes the file from `mngr`, which must have loaded every family it
    // could; `stamp` is dataDirectoryStamp() taken before that load, so that
    // a file changed while loading leaves the cache stale. False when the
    // file cannot be written (nothing else happens then).
    static bool write(TarnDeviceMngr& mngr, const std::string& stamp);

  private:
    struct Record;
    bool open(const std::string& stamp);
    bool readHeader(std::string_view text, const std::string& stamp);

    void* m_map = nullptr;
    std::size_t m_mapSize = 0;
    const char* m_base = nullptr;  // null while unusable
    mutable bool m_damaged = false;
    const Record* m_records = nullptr;
    std::size_t m_count = 0;
    const char* m_names = nullptr;
    std::size_t m_namesSize = 0;
    std::vector<std::string> m_pms;
    std::vector<StringList> m_sharedOwners;
};

// The families a question needs, in no particular order, or nullopt when
// only a full load answers it as a full load would (a name no family owns,
// an unusable cache, a PM name that is not installed).
//
// A question about parts needs the family that owns each of them.
DEVCTRL_API std::optional<StringList> familiesForParts(const PartOwnerCache& cache,
                                                       const StringList& parts);
// A question about one PM (a code, or a family name in any letter case)
// needs that family. Counting its parts by ASC capacity also needs the
// families that own names the PM shares: pass the cache for such a question
// (an unusable one gives nullopt).
DEVCTRL_API std::optional<StringList> familiesForPm(const std::string& pmOrFamily,
                                                    const PartOwnerCache* sharedNames = nullptr);

}  // namespace tarn::vyxpn
