// SPDX-License-Identifier: MIT
#pragma once
// Where the keys and records of a keyed data file stand, by line number, so
// that a report about a value can point at the line that holds it. Reading
// the values is PM_DEVKEY's job; this only finds them again.

#include <cstddef>
#include <map>
#include <string>
#include <vector>

class KeyedRecordLines {
  public:
    // Reads `path`; a file that cannot be read has no lines.
    explicit KeyedRecordLines(const std::string& path);

    // The first line of the last definition of `key` (a later line with the
    // same key replaces the earlier, as in PM_DEVKEY); 0 when absent.
    std::size_t keyLine(const std::string& key) const;
    // The line on which the last record of `key` whose leading fields are
    // `fields` starts; the key's line when no record matches, 0 when the key
    // is absent.
    std::size_t recordLine(const std::string& key, const std::vector<std::string>& fields) const;

  private:
    struct Record {
        std::size_t line = 0;
        std::vector<std::string> fields;
    };
    struct Key {
        std::size_t line = 0;
        std::vector<Record> records;
    };
    std::map<std::string, Key> m_keys;
};
