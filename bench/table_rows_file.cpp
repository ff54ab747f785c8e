// SPDX-License-Identifier: MIT
#include "table_rows_file.h"

#include <algorithm>
#include <stdexcept>

namespace devctrl_bench {

namespace {

constexpr char kMagic[8] = {'D', 'C', 'R', 'O', 'W', 'S', '1', '\n'};

template <typename Number>
void writeNumber(std::ostream& out, Number value) {
    out.write(reinterpret_cast<const char*>(&value), sizeof value);
}

void writeString(std::ostream& out, const std::string& text) {
    writeNumber(out, static_cast<std::uint32_t>(text.size()));
    out.write(text.data(), static_cast<std::streamsize>(text.size()));
}

template <typename Number>
Number readNumber(std::istream& in) {
    Number value{};
    if (!in.read(reinterpret_cast<char*>(&value), sizeof value))
        throw std::runtime_error("table rows file cut short");
    return value;
}

std::string readString(std::istream& in) {
    std::string text(readNumber<std::uint32_t>(in), '\0');
    if (!in.read(text.data(), static_cast<std::streamsize>(text.size())))
        throw std::runtime_error("table rows file cut short");
    return text;
}

}  // namespace

void writeTableRows(std::ostream& out,
                    const std::vector<const tarn::vyxpn::TarnSDSFileSection*>& tables) {
    out.write(kMagic, sizeof kMagic);
    writeNumber(out, static_cast<std::uint32_t>(tables.size()));
    for (const tarn::vyxpn::TarnSDSFileSection* table : tables) {
        writeNumber(out, static_cast<std::uint32_t>(table->m_items.size()));
        for (const std::string& column : table->m_items)
            writeString(out, column);
        writeNumber(out, static_cast<std::uint64_t>(table->m_datas.size()));
        for (const auto& [key, cells] : table->m_datas) {
            writeString(out, key);
            writeNumber(out, static_cast<std::uint32_t>(cells.size()));
            for (const std::string& cell : cells)
                writeString(out, cell);
        }
    }
    if (!out)
        throw std::runtime_error("cannot write the table rows file");
}

std::uint32_t readTableCount(std::istream& in) {
    char magic[sizeof kMagic];
    if (!in.read(magic, sizeof magic) || !std::equal(magic, magic + sizeof magic, kMagic))
        throw std::runtime_error("not a table rows file");
    return readNumber<std::uint32_t>(in);
}

bool readTableRows(std::istream& in, tarn::vyxpn::TarnSDSFileSection& table) {
    if (in.peek() == std::char_traits<char>::eof())
        return false;
    table.m_items.resize(readNumber<std::uint32_t>(in));
    for (std::string& column : table.m_items)
        column = readString(in);
    auto& datas = table.m_datas;
    for (auto rows = readNumber<std::uint64_t>(in); rows > 0; --rows) {
        std::string key = readString(in);
        std::vector<std::string> cells(readNumber<std::uint32_t>(in));
        for (std::string& cell : cells)
            cell = readString(in);
        datas.emplace_hint(datas.end(), std::move(key), std::move(cells));
    }
    return true;
}

}  // namespace devctrl_bench
