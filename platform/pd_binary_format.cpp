// SPDX-License-Identifier: MIT
#include "platform/pd_binary_format.h"

#include <array>
#include <cstdio>
#include <cstring>
#include <limits>
#include <memory>
#include <unordered_map>

#include "platform/file_writer.h"
#include "platform/pd_data.h"
#include "platform/pd_util.h"
#include "platform/ut_quote.h"
#include "platform/ut_trace.h"

const unsigned char PD_BIN_MAGIC[PD_BIN_MAGIC_SIZE] = {0x89, 'P', 'W', 'D', 0x0D, 0x0A, 0x1A, 0x0A};

std::uint32_t PD_Crc32(const unsigned char* bytes, std::size_t size) {
    static const std::array<std::uint32_t, 256> table = [] {
        std::array<std::uint32_t, 256> entries{};
        for (std::uint32_t n = 0; n < 256; ++n) {
            std::uint32_t c = n;
            for (int bit = 0; bit < 8; ++bit)
                c = (c & 1) ? 0xEDB88320u ^ (c >> 1) : c >> 1;
            entries[n] = c;
        }
        return entries;
    }();
    std::uint32_t crc = 0xFFFFFFFFu;
    for (std::size_t i = 0; i < size; ++i)
        crc = table[(crc ^ bytes[i]) & 0xFF] ^ (crc >> 8);
    return crc ^ 0xFFFFFFFFu;
}

// ---- writing ----------------------------------------------------------------

namespace {

void putVarint(std::string& out, std::uint32_t value) {
    while (value >= 0x80) {
        out.push_back(static_cast<char>((value & 0x7F) | 0x80));
        value >>= 7;
    }
    out.push_back(static_cast<char>(value));
}

void putLittleEndian(std::string& out, std::uint32_t value, int bytes) {
    for (int i = 0; i < bytes; ++i)
        out.push_back(static_cast<char>((value >> (8 * i)) & 0xFF));
}

bool fits32(std::size_t value) {
    return value <= std::numeric_limits<std::uint32_t>::max();
}

// Renumbers the strings a data set uses in order of first use, so the file
// holds no unused string and the same data always give the same bytes.
class StringTable {
  public:
    explicit StringTable(const PD_STRING_POOL& pool) : m_pool(pool) {}
    std::uint32_t id(std::uint32_t poolIndex) {
        auto [entry, added] = m_ids.emplace(m_pool.at(poolIndex), 0);
        if (added) {
            entry->second = static_cast<std::uint32_t>(m_order.size());
            m_order.push_back(poolIndex);
        }
        return entry->second;
    }
    bool write(std::string& out) const {
        putVarint(out, static_cast<std::uint32_t>(m_order.size()));
        for (std::uint32_t poolIndex : m_order) {
            const std::string& text = m_pool.at(poolIndex);
            if (!fits32(text.size()))
                return false;
            putVarint(out, static_cast<std::uint32_t>(text.size()));
            out += text;
        }
        return true;
    }

  private:
    const PD_STRING_POOL& m_pool;
    std::unordered_map<std::string, std::uint32_t> m_ids;
    std::vector<std::uint32_t> m_order;
};

bool encodeSections(const PD_DATA& data, StringTable& strings, std::string& out) {
    const auto& sections = data.GetSectionList();
    if (!fits32(sections.size()))
        return false;
    putVarint(out, static_cast<std::uint32_t>(sections.size()));
    for (const auto& section : sections) {
        auto* table = dynamic_cast<const PD_TABLE*>(section.get());
        out.push_back(table ? PD_TBLSECT : PD_KEYSECT);
        putVarint(out, strings.id(section->nameIndex()));
        if (!table) {
            if (!fits32(section->entries().size()))
                return false;
            putVarint(out, static_cast<std::uint32_t>(section->entries().size()));
            for (const auto& [key, value] : section->entries()) {
                putVarint(out, strings.id(key));
                putVarint(out, strings.id(value));
            }
            continue;
        }
        putVarint(out, static_cast<std::uint32_t>(table->columns().size()));
        for (std::uint32_t column : table->columns())
            putVarint(out, strings.id(column));
        putVarint(out, static_cast<std::uint32_t>(table->GetRowList().size()));
        for (const auto& row : table->GetRowList()) {
            if (!fits32(row.size()))
                return false;
            putVarint(out, static_cast<std::uint32_t>(row.size()));
            for (std::uint32_t cell : row)
                putVarint(out, strings.id(cell));
        }
    }
    return true;
}

}  // namespace

bool PD_EncodeBinary(const PD_DATA& data, std::string& bytes) {
    bytes.clear();
    StringTable strings(data.pool());
    std::string sections;
    if (!encodeSections(data, strings, sections))
        return false;
    std::string payload;
    if (!strings.write(payload))
        return false;
    payload += sections;
    if (!fits32(payload.size()))
        return false;

    bytes.assign(reinterpret_cast<const char*>(PD_BIN_MAGIC), PD_BIN_MAGIC_SIZE);
    putLittleEndian(bytes, PD_BIN_VERSION, 2);
    putLittleEndian(bytes, 0, 2);
    putLittleEndian(bytes, static_cast<std::uint32_t>(payload.size()), 4);
    putLittleEndian(
        bytes, PD_Crc32(reinterpret_cast<const unsigned char*>(payload.data()), payload.size()), 4);
    bytes += payload;
    return true;
}

bool PD_SaveBinFile(const PD_DATA& data, const char* path) {
    if (!path)
        return false;
    std::string bytes;
    if (!PD_EncodeBinary(data, bytes))
        return false;
    return tarn::vyxpn::platform::writeWholeFile(path, bytes);
}

// ---- reading ----------------------------------------------------------------

namespace {

// A cursor over the payload that refuses to read past its end.
class Reader {
  public:
    Reader(const unsigned char* bytes, std::size_t size) : m_at(bytes), m_end(bytes + size) {}
    std::size_t left() const { return static_cast<std::size_t>(m_end - m_at); }
    bool atEnd() const { return m_at == m_end; }

    bool byte(unsigned char& value) {
        if (m_at == m_end)
            return false;
        value = *m_at++;
        return true;
    }
    bool varint(std::uint32_t& value) {
        value = 0;
        for (int shift = 0; shift < 35; shift += 7) {
            unsigned char next;
            if (!byte(next))
                return false;
            // The fifth byte may carry only the top four bits of 32.
            if (shift == 28 && (next & 0xF0) != 0)
                return false;
            value |= static_cast<std::uint32_t>(next & 0x7F) << shift;
            if (!(next & 0x80))
                return true;
        }
        return false;
    }
    // A count of items taking at least `minBytes` each: more than the rest of
    // the payload could hold is damage, and would make the caller reserve
    // memory the file cannot justify.
    bool count(std::uint32_t& value, std::size_t minBytes) {
        return varint(value) && value <= left() / minBytes &&
               value <= static_cast<std::uint32_t>(std::numeric_limits<int>::max());
    }
    bool text(std::string& value) {
        std::uint32_t length;
        if (!varint(length) || length > left())
            return false;
        value.assign(reinterpret_cast<const char*>(m_at), length);
        m_at += length;
        return true;
    }

  private:
    const unsigned char* m_at;
    const unsigned char* m_end;
};

std::uint32_t readLittleEndian(const unsigned char* bytes, int count) {
    std::uint32_t value = 0;
    for (int i = 0; i < count; ++i)
        value |= static_cast<std::uint32_t>(bytes[i]) << (8 * i);
    return value;
}

class Decoder {
  public:
    Decoder(Reader& in, PD_DATA& data) : m_in(in), m_data(data) {}

    bool run(std::string& why) {
        if (!strings())
            return fail(why, "bad string table");
        std::uint32_t count;
        if (!m_in.count(count, 3))
            return fail(why, "bad section count");
        for (std::uint32_t i = 0; i < count; ++i)
            if (!section())
                return fail(why, "bad section " + std::to_string(i));
        if (!m_in.atEnd())
            return fail(why, "data after the last section");
        return true;
    }

  private:
    static bool fail(std::string& why, std::string reason) {
        why = std::move(reason);
        return false;
    }

    bool strings() {
        std::uint32_t count;
        if (!m_in.count(count, 1))
            return false;
        PD_STRING_POOL& pool = m_data.pool();
        pool.reserve(count);
        m_stringCount = count;
        std::string text;
        for (std::uint32_t i = 0; i < count; ++i) {
            if (!m_in.text(text))
                return false;
            pool.append(std::move(text));
        }
        return true;
    }

    bool index(std::uint32_t& value) { return m_in.varint(value) && value < m_stringCount; }

    bool section() {
        unsigned char kind;
        std::uint32_t name;
        if (!m_in.byte(kind) || !index(name))
            return false;
        if (kind == PD_KEYSECT)
            return keySection(name);
        if (kind == PD_TBLSECT)
            return table(name);
        return false;
    }

    bool keySection(std::uint32_t name) {
        auto section = std::make_unique<PD_SECTION>(m_data.sharedPool(), name);
        std::uint32_t count;
        if (!m_in.count(count, 2))
            return false;
        section->reserveEntries(count);
        for (std::uint32_t i = 0; i < count; ++i) {
            std::uint32_t key, value;
            if (!index(key) || !index(value))
                return false;
            section->addEntry(key, value);
        }
        return m_data.AdoptSection(std::move(section));
    }

    bool table(std::uint32_t name) {
        auto table = std::make_unique<PD_TABLE>(m_data.sharedPool(), name);
        std::uint32_t columns;
        if (!m_in.count(columns, 1))
            return false;
        table->reserveColumns(columns);
        for (std::uint32_t i = 0; i < columns; ++i) {
            std::uint32_t column;
            if (!index(column))
                return false;
            table->addColumn(column);
        }
        std::uint32_t rows;
        if (!m_in.count(rows, 1))
            return false;
        table->reserveRows(rows);
        for (std::uint32_t r = 0; r < rows; ++r) {
            std::uint32_t cells;
            if (!m_in.count(cells, 1))
                return false;
            PD_TABLE::Row row;
            row.reserve(cells);
            for (std::uint32_t c = 0; c < cells; ++c) {
                std::uint32_t cell;
                if (!index(cell))
                    return false;
                row.push_back(cell);
            }
            table->addRow(std::move(row));
        }
        return m_data.AdoptSection(std::move(table));
    }

    Reader& m_in;
    PD_DATA& m_data;
    std::uint32_t m_stringCount = 0;
};

bool checkHeader(const unsigned char* bytes, std::size_t size, std::string& why) {
    if (size < PD_BIN_HEADER_SIZE) {
        why = "shorter than the header";
        return false;
    }
    if (std::memcmp(bytes, PD_BIN_MAGIC, PD_BIN_MAGIC_SIZE) != 0) {
        why = "not a binary part data file";
        return false;
    }
    if (readLittleEndian(bytes + 8, 2) != PD_BIN_VERSION) {
        why = "unknown version " + std::to_string(readLittleEndian(bytes + 8, 2));
        return false;
    }
    if (readLittleEndian(bytes + 10, 2) != 0) {
        why = "unknown flags";
        return false;
    }
    std::size_t payload = readLittleEndian(bytes + 12, 4);
    if (payload != size - PD_BIN_HEADER_SIZE) {
        why = payload > size - PD_BIN_HEADER_SIZE ? "truncated" : "data after the payload";
        return false;
    }
    if (PD_Crc32(bytes + PD_BIN_HEADER_SIZE, payload) != readLittleEndian(bytes + 16, 4)) {
        why = "checksum mismatch";
        return false;
    }
    return true;
}

}  // namespace

bool PD_DecodeBinary(const unsigned char* bytes, std::size_t size, PD_DATA& data,
                     std::string* error) {
    data.Clear();
    std::string why;
    bool ok = bytes && checkHeader(bytes, size, why);
    if (!bytes)
        why = "no data";
    if (ok) {
        Reader in(bytes + PD_BIN_HEADER_SIZE, size - PD_BIN_HEADER_SIZE);
        ok = Decoder(in, data).run(why);
    }
    if (!ok) {
        data.Clear();
        if (error)
            *error = why;
    }
    return ok;
}

bool PD_DATA::LoadBinBuffer(const unsigned char* bytes, std::size_t size) {
    return PD_DecodeBinary(bytes, size, *this);
}

bool PD_DATA::LoadBinFile(const char* path) {
    Clear();
    if (!path)
        return false;
    // A file that is there but cannot be used is named in one line; the
    // caller only learns that loading failed.
    std::string bytes;
    if (!PD_UTIL::ReadWholeFile(path, bytes, PD_BIN_MAX_FILE_SIZE)) {
        std::string message =
            tarn::vyxpn::util::escapedForMessage(path) + ": part data file cannot be read";
        diagTrace(message.c_str(), nullptr);
        return false;
    }
    std::string why;
    if (!PD_DecodeBinary(reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size(), *this,
                         &why)) {
        std::string message =
            tarn::vyxpn::util::escapedForMessage(path) + ": damaged part data file (" + why + ")";
        diagTrace(message.c_str(), nullptr);
        return false;
    }
    return true;
}
