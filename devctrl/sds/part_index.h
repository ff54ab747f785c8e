// SPDX-License-Identifier: MIT
#pragma once
// Indexes over one family's part table, so that the lists a device-selection
// dialog asks for, and full part names, come back without walking every part.
//
// Each index answers exactly what the walk over the table answers. Where it
// cannot (a row too short for a column the walk reads, a filter that raises
// on some part) it says so and the caller walks the table instead, so that
// the walk's own behaviour, exceptions included, is what the caller sees.

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "devctrl/sds/part_list_kind.h"
#include "devctrl/sds/table_stamp.h"

namespace tarn::vyxpn {

class TarnSDSFile;

// The distinct values of one column over the parts that match the given
// leading cells, in first-seen order over the part names, and the same list
// in the order users see, sorted when first asked for.
class CachedPartList {
  public:
    explicit CachedPartList(PartListKind kind) : m_kind(kind) {}
    const std::vector<std::string>& firstSeen() const { return m_firstSeen; }
    const std::vector<std::string>& sorted() const;
    void add(std::string value) { m_firstSeen.push_back(std::move(value)); }

  private:
    PartListKind m_kind;
    std::vector<std::string> m_firstSeen;
    mutable std::optional<std::vector<std::string>> m_sorted;
};

// The part lists for one setting of the obsolete and ASC filters.
class FilteredPartLists {
  public:
    // `usable` is false for a kind the walk must answer itself.
    std::array<bool, 4> usable{};
    // Lists keyed by the encoded cells they match on (see listKey).
    std::array<std::unordered_map<std::string, CachedPartList>, 4> lists;
};

// Everything indexed for one family object. Built piece by piece, when a
// query first needs a piece; the family drops it whenever its tables change.
// It holds copies and positions, never pointers into the tables, so a table
// edited behind its back makes it stale at worst, never unsafe.
class TarnPartIndex {
  public:
    explicit TarnPartIndex(const TarnSDSFile& file) : m_file(file), m_stamp(file) {}

    // False once the family's tables no longer look as they did when the
    // index was begun (see FamilyTablesStamp); the family then drops it.
    bool tablesUnchanged() const { return m_stamp.matches(m_file); }

    // The cached list of `kind` for the given cells (unused trailing cells are
    // ignored). Null with `usable` false: walk the table; null with `usable`
    // true: no part matches.
    const CachedPartList* find(PartListKind kind, const std::string& device,
                               const std::string& package, const std::string& speed,
                               bool withObsolete, bool ascOnly, bool& usable);

    // Readies the per-part flags the filters need; false when a filter raised
    // for some part, so that only the walk can answer.
    bool prepareFilters(bool withObsolete, bool ascOnly);
    // Whether the part at `position` (in the part table's key order) passes
    // the filters; prepareFilters must have succeeded.
    bool passes(std::size_t position, bool withObsolete, bool ascOnly) const {
        return (withObsolete || !m_obsolete[position]) && (!ascOnly || m_ascEnabled[position]);
    }

    // The first part, in key order, whose device, package, speed and
    // condition cells equal the given ones without regard to ASCII case.
    // Null when none does. The columns must exist. A part whose row is gone
    // or no longer matches is never returned.
    const std::string* partByFields(const std::string& device, const std::string& package,
                                    const std::string& speed, const std::string& condition);

    static std::string listKey(PartListKind kind, const std::string& device,
                               const std::string& package, const std::string& speed);

  private:
    bool buildObsoleteFlags();
    bool buildAscFlags();
    void buildPartsByFields();
    bool rowMatches(const std::string& part, const std::string& foldedKey) const;
    void buildLists(FilteredPartLists& lists, bool withObsolete, bool ascOnly);
    std::uint64_t managerGeneration() const;

    const TarnSDSFile& m_file;
    FamilyTablesStamp m_stamp;
    // Per part in key order; empty until needed. A filter that raised for a
    // part leaves its flags unusable (failed) for good.
    std::vector<bool> m_obsolete;
    bool m_obsoleteReady = false, m_obsoleteFailed = false;
    // Whether a part may use ASC chips depends on which family owns its name
    // among everything the manager holds, hence the manager's generation.
    std::vector<bool> m_ascEnabled;
    std::optional<std::uint64_t> m_ascGeneration;
    bool m_ascFailed = false;
    std::array<std::optional<FilteredPartLists>, 4> m_lists;
    std::array<std::uint64_t, 4> m_listsGeneration{};
    // Folded cells to part name.
    std::optional<std::unordered_map<std::string, std::string>> m_partsByFields;
};

}  // namespace tarn::vyxpn
