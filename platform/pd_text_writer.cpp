// SPDX-License-Identifier: MIT
#include "platform/pd_text_writer.h"

#include "platform/pd_data.h"
#include "platform/pd_util.h"

namespace {

bool plain(const std::string& text) {
    return text.find('\n') == std::string::npos && PD_UTIL::Trim(text) == text;
}

bool usableKey(const std::string& key) {
    return plain(key) && key.find('=') == std::string::npos && key.compare(0, 2, "[[") != 0 &&
           !PD_UTIL::IsFormatKey(key);
}

bool usableCell(const std::string& cell) {
    return plain(cell) && cell.find(',') == std::string::npos;
}

void putLine(std::string& text, const std::string& key, const std::string& value) {
    text += key;
    text += key.empty() ? "=" : " =";
    if (!value.empty())
        text += " " + value;
    text += '\n';
}

class Writer {
  public:
    Writer(const PD_DATA& data, std::string& text) : m_data(data), m_text(text) {}

    bool run(std::string& why) {
        const auto& sections = m_data.GetSectionList();
        for (std::size_t i = 0; i < sections.size(); ++i) {
            auto* table = dynamic_cast<const PD_TABLE*>(sections[i].get());
            bool ok = table ? i > 0 && writeTable(*table) : writeKeySection(*sections[i], i > 0);
            if (!ok) {
                if (table && i == 0)
                    m_why = "table before the first header";
                why = "section " + std::to_string(i) + ": " + m_why;
                return false;
            }
        }
        return true;
    }

  private:
    const std::string& str(std::uint32_t index) const { return m_data.pool().at(index); }

    bool refuse(const std::string& why) {
        m_why = why;
        return false;
    }

    bool writeKeySection(const PD_SECTION& section, bool separate) {
        if (!plain(section.name()))
            return refuse("name not writable");
        if (separate)
            m_text += '\n';
        m_text += "[[" + std::string(section.name()) + "]]\n";
        for (const auto& [key, value] : section.entries()) {
            if (!usableKey(str(key)))
                return refuse("key \"" + str(key) + "\" not writable");
            if (!plain(str(value)))
                return refuse("value of \"" + str(key) + "\" not writable");
            putLine(m_text, str(key), str(value));
        }
        return true;
    }

    bool writeTable(const PD_TABLE& table) {
        if (std::string(table.name()) != PD_UTIL::kFormatSectionName)
            return refuse("table not named Format");
        const auto& columns = table.columns();
        if (columns.size() < 2 || str(columns[0]) != PD_TABLE::kKeyColumnName)
            return refuse("column list not writable");
        std::string names;
        for (std::size_t c = 1; c < columns.size(); ++c) {
            if (!usableCell(str(columns[c])))
                return refuse("column name not writable");
            names += (c > 1 ? ", " : "") + str(columns[c]);
        }
        putLine(m_text, PD_UTIL::kFormatSectionName, names);
        for (const auto& row : table.GetRowList()) {
            if (row.size() < 2 || !usableKey(str(row[0])))
                return refuse("row not writable");
            std::string cells;
            for (std::size_t c = 1; c < row.size(); ++c) {
                if (!usableCell(str(row[c])))
                    return refuse("cell of row \"" + str(row[0]) + "\" not writable");
                cells += (c > 1 ? ", " : "") + str(row[c]);
            }
            putLine(m_text, str(row[0]), cells);
        }
        return true;
    }

    const PD_DATA& m_data;
    std::string& m_text;
    std::string m_why;
};

}  // namespace

bool PD_FormatText(const PD_DATA& data, std::string& text, std::string* error) {
    text.clear();
    std::string why;
    if (Writer(data, text).run(why))
        return true;
    text.clear();
    if (error)
        *error = why;
    return false;
}
