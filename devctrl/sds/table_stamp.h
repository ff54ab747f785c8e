// SPDX-License-Identifier: MIT
#pragma once
// A constant-time picture of the tables an index was built from, so that a
// query can tell that a host has changed them since: rows added or removed,
// a table cleared or refilled, columns added or removed. An edit that keeps
// the row and column counts and the first and last keys (a cell changed in
// place, a middle row replaced by another) goes unseen; invalidateIndexes()
// is there for those.

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

#include "devctrl/sds/sds_file_section.h"

namespace tarn::vyxpn {

class TarnSDSFile;

class TableStamp {
  public:
    TableStamp() = default;
    explicit TableStamp(const TarnSDSFileSection& table)
        : m_rows(table.m_datas.size()), m_columns(table.m_items.size()) {
        if (m_rows != 0) {
            m_firstKey = table.m_datas.begin()->first;
            m_lastKey = table.m_datas.rbegin()->first;
        }
    }

    bool matches(const TarnSDSFileSection& table) const {
        if (table.m_datas.size() != m_rows || table.m_items.size() != m_columns)
            return false;
        return m_rows == 0 || (table.m_datas.begin()->first == m_firstKey &&
                               table.m_datas.rbegin()->first == m_lastKey);
    }

  private:
    std::size_t m_rows = 0, m_columns = 0;
    std::string m_firstKey, m_lastKey;
};

// The tables of one family that indexed answers depend on: the part table,
// and the tables item lookups read (a part's Status and ASCMaxNum), and the
// family's version, which its invalidateIndexes() bumps for edits in place.
class FamilyTablesStamp {
  public:
    explicit FamilyTablesStamp(const TarnSDSFile& file);
    // The part table alone, which is all a name lookup reads.
    bool partTableMatches(const TarnSDSFile& file) const;
    bool matches(const TarnSDSFile& file) const;

  private:
    static constexpr std::size_t kTables = 5;
    static std::array<const TarnSDSFileSection*, kTables> tablesOf(const TarnSDSFile& file);

    const TarnSDSFile* m_file;
    std::uint64_t m_version;
    std::array<TableStamp, kTables> m_tables;
};

}  // namespace tarn::vyxpn
