// SPDX-License-Identifier: MIT
#pragma once
// Part data: a file of named sections, each either a list of key = value
// entries or a table whose column 0 holds the row key. Read from the text form
// or from the binary form of pd_binary_format.h.
//
// Every string of a data set lives once in its string pool; sections refer to
// pool entries by index. A binary file can therefore name one long string many
// times without the reader copying it each time: memory stays proportional to
// the file size.

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

// Section kinds as kind() reports them.
enum PD_SECTION_KIND : int {
    PD_KEYSECT = 0,  // key = value entries
    PD_TBLSECT = 1,  // a table (PD_TABLE)
};

// The strings of one data set, each stored once.
class PD_STRING_POOL {
  public:
    // Index of `text`, adding it when new.
    std::uint32_t intern(const std::string& text);
    // Appends without looking for an equal string (used by the binary reader,
    // whose string table need not be unique). Interning later finds the first
    // of equal strings.
    std::uint32_t append(std::string text);
    const std::string& at(std::uint32_t index) const { return m_strings[index]; }
    std::size_t size() const { return m_strings.size(); }
    void reserve(std::size_t count) { m_strings.reserve(count); }

  private:
    std::vector<std::string> m_strings;
    std::unordered_map<std::string, std::uint32_t> m_index;
    std::size_t m_indexed = 0;  // m_strings[0, m_indexed) are in m_index
};

using PD_POOL_PTR = std::shared_ptr<PD_STRING_POOL>;

// A section of key = value entries (kind PD_KEYSECT). Tables derive from it.
class PD_SECTION {
  public:
    PD_SECTION(PD_POOL_PTR pool, std::uint32_t nameIndex);
    virtual ~PD_SECTION();
    virtual const char* name() const;
    // PD_KEYSECT or PD_TBLSECT.
    virtual int kind() const;

    std::uint32_t nameIndex() const { return m_name; }
    const PD_STRING_POOL& pool() const { return *m_pool; }

    // Entries in file order, as pool indices (key, value).
    using Entry = std::pair<std::uint32_t, std::uint32_t>;
    const std::vector<Entry>& entries() const { return m_entries; }
    void addEntry(std::uint32_t key, std::uint32_t value) { m_entries.emplace_back(key, value); }
    void reserveEntries(std::size_t count) { m_entries.reserve(count); }

  protected:
    PD_POOL_PTR m_pool;
    std::uint32_t m_name;
    std::vector<Entry> m_entries;
};

// A table section: named columns, column 0 being the row key. Rows may be
// shorter or longer than the column list; they keep the cells they were given.
class PD_TABLE : public PD_SECTION {
  public:
    // The name the text reader gives column 0.
    static constexpr const char* kKeyColumnName = "Key";

    PD_TABLE(PD_POOL_PTR pool, std::uint32_t nameIndex);
    int kind() const override;

    int GetNumOfColumns() const { return static_cast<int>(m_columns.size()); }
    // The column's name; "" outside the column list.
    const char* GetColumnName(int column) const;
    // The cell; "" when the row or column does not exist.
    const char* GetValueAt(int row, int column) const;
    int GetNumOfRows() const { return static_cast<int>(m_rows.size()); }

    // Pool indices: the column names and each row's cells (cell 0 is the key).
    using Row = std::vector<std::uint32_t>;
    const std::vector<std::uint32_t>& columns() const { return m_columns; }
    const std::vector<Row>& GetRowList() const { return m_rows; }
    void addColumn(std::uint32_t name) { m_columns.push_back(name); }
    void reserveColumns(std::size_t count) { m_columns.reserve(count); }
    void addRow(Row row) { m_rows.push_back(std::move(row)); }
    void reserveRows(std::size_t count) { m_rows.reserve(count); }

  private:
    std::vector<std::uint32_t> m_columns;
    std::vector<Row> m_rows;
};

class PD_DATA {
  public:
    PD_DATA();
    ~PD_DATA();
    PD_DATA(const PD_DATA&) = delete;
    PD_DATA& operator=(const PD_DATA&) = delete;

    // Each replaces the content; on failure the data set is left empty.
    // The text form is described in pd_text_reader.cpp, the binary form in
    // pd_binary_format.h. LoadBinFile traces one line naming a file that it
    // cannot read or that is damaged.
    bool LoadTxtFile(const char* path);
    bool LoadTxtString(const std::string& text, const char* sourceName = "<text>");
    bool LoadBinFile(const char* path);
    bool LoadBinBuffer(const unsigned char* bytes, std::size_t size);

    int GetNumOfSections() const { return static_cast<int>(m_sections.size()); }
    // Name and object of section `index`; null outside the list.
    const char* GetSectionName(int index) const;
    PD_SECTION* GetSection(int index) const;
    const std::vector<std::unique_ptr<PD_SECTION>>& GetSectionList() const { return m_sections; }

    // Building, for the readers and for programs that make part data.
    PD_STRING_POOL& pool() { return *m_pool; }
    const PD_STRING_POOL& pool() const { return *m_pool; }
    PD_SECTION* AddKeySection(const std::string& name);
    PD_TABLE* AddTable(const std::string& name);
    // Appends a section made over this data set's pool (sharedPool()).
    // False (and the section dropped) when it uses another pool.
    bool AdoptSection(std::unique_ptr<PD_SECTION> section);
    const PD_POOL_PTR& sharedPool() const { return m_pool; }
    void Clear();

  private:
    PD_POOL_PTR m_pool;
    std::vector<std::unique_ptr<PD_SECTION>> m_sections;
};
