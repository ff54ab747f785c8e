// SPDX-License-Identifier: MIT
#pragma once
// Keyed data files ("device.acd", "family.key"): KEY = VALUE lines with '#'
// comments and '\' continuation lines. Malformed lines are traced with the
// file name and line number and skipped.

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "export.h"

class PM_PIC_HDL;

class DEVCTRL_API PM_DEVKEY {
  public:
    // An empty key set.
    PM_DEVKEY() = default;
    // Reads the file at `path`; an unreadable file reads as an empty one.
    explicit PM_DEVKEY(const char* path, unsigned char flags = 0);
    // Reads `fileName` from the data directory of the family that `family`
    // names; a handle on an unknown family gives an empty key set.
    PM_DEVKEY(const char* fileName, const PM_PIC_HDL& family, unsigned char, unsigned char,
              unsigned char);

    // Parses keyed text; `sourceName` names it in traces.
    static PM_DEVKEY fromText(std::string_view text, const std::string& sourceName);

    // The value of `key`, or null when the key is absent. Keys are
    // case-sensitive; a later line with the same key replaced the earlier.
    const char* getkeyeddata(const char* key) const;

    const std::string& path() const { return m_path; }
    std::size_t size() const { return m_values.size(); }

  private:
    void parse(std::string_view text);

    std::string m_path;
    std::unordered_map<std::string, std::string> m_values;
};

// Walks the records of one key's value (cut at the record separator) and the
// fields of each record (cut at the field separator). Records and fields are
// trimmed of blanks and tabs; empty fields are kept. An absent key and an
// empty value have no record; an empty record has no field. With a field
// separator of 0 the whole non-empty record is its one field.
class DEVCTRL_API PM_DEVKEY_KEYITER {
  public:
    PM_DEVKEY_KEYITER(const PM_DEVKEY* keys, const char* key, char recordSeparator,
                      char fieldSeparator, unsigned char flags = 0);

    // The current record and its current field; null past the end.
    const char* record() const;
    const char* field() const;

    // Steps to the next record and its first field.
    void setupNextIAndJ();
    // Steps to the next field of the current record.
    void advanceToNextJ();

  private:
    // Cuts the current record into its fields.
    void splitRecord();

    // Every record, trimmed and NUL-terminated, one after the other; a list
    // of a million names costs its own size and one offset per name.
    std::string m_records;
    std::vector<std::size_t> m_recordStarts;
    // The fields of the current record only, likewise.
    char m_fieldSeparator = 0;
    std::string m_fields;
    std::vector<std::size_t> m_fieldStarts;
    std::size_t m_i = 0;
    std::size_t m_j = 0;
};
