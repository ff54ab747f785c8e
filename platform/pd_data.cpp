// SPDX-License-Identifier: MIT
#include "platform/pd_data.h"

std::uint32_t PD_STRING_POOL::intern(const std::string& text) {
    // Strings appended unindexed are indexed on the first lookup.
    for (; m_indexed < m_strings.size(); ++m_indexed)
        m_index.emplace(m_strings[m_indexed], static_cast<std::uint32_t>(m_indexed));
    auto found = m_index.find(text);
    if (found != m_index.end())
        return found->second;
    auto index = static_cast<std::uint32_t>(m_strings.size());
    m_strings.push_back(text);
    m_index.emplace(text, index);
    ++m_indexed;
    return index;
}

std::uint32_t PD_STRING_POOL::append(std::string text) {
    auto index = static_cast<std::uint32_t>(m_strings.size());
    m_strings.push_back(std::move(text));
    return index;
}

PD_SECTION::PD_SECTION(PD_POOL_PTR pool, std::uint32_t nameIndex)
    : m_pool(std::move(pool)), m_name(nameIndex) {}

PD_SECTION::~PD_SECTION() = default;

const char* PD_SECTION::name() const {
    return m_pool->at(m_name).c_str();
}

int PD_SECTION::kind() const {
    return PD_KEYSECT;
}

PD_TABLE::PD_TABLE(PD_POOL_PTR pool, std::uint32_t nameIndex)
    : PD_SECTION(std::move(pool), nameIndex) {}

int PD_TABLE::kind() const {
    return PD_TBLSECT;
}

const char* PD_TABLE::GetColumnName(int column) const {
    if (column < 0 || column >= GetNumOfColumns())
        return "";
    return m_pool->at(m_columns[column]).c_str();
}

const char* PD_TABLE::GetValueAt(int row, int column) const {
    if (row < 0 || row >= GetNumOfRows() || column < 0)
        return "";
    const Row& cells = m_rows[row];
    if (static_cast<std::size_t>(column) >= cells.size())
        return "";
    return m_pool->at(cells[column]).c_str();
}

PD_DATA::PD_DATA() : m_pool(std::make_shared<PD_STRING_POOL>()) {}

PD_DATA::~PD_DATA() = default;

const char* PD_DATA::GetSectionName(int index) const {
    PD_SECTION* section = GetSection(index);
    return section ? section->name() : nullptr;
}

PD_SECTION* PD_DATA::GetSection(int index) const {
    if (index < 0 || index >= GetNumOfSections())
        return nullptr;
    return m_sections[index].get();
}

PD_SECTION* PD_DATA::AddKeySection(const std::string& name) {
    m_sections.push_back(std::make_unique<PD_SECTION>(m_pool, m_pool->intern(name)));
    return m_sections.back().get();
}

PD_TABLE* PD_DATA::AddTable(const std::string& name) {
    auto table = std::make_unique<PD_TABLE>(m_pool, m_pool->intern(name));
    PD_TABLE* result = table.get();
    m_sections.push_back(std::move(table));
    return result;
}

bool PD_DATA::AdoptSection(std::unique_ptr<PD_SECTION> section) {
    if (!section || &section->pool() != m_pool.get())
        return false;
    m_sections.push_back(std::move(section));
    return true;
}

void PD_DATA::Clear() {
    m_sections.clear();
    // A fresh pool: sections handed out earlier keep the old one alive.
    m_pool = std::make_shared<PD_STRING_POOL>();
}
