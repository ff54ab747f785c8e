// SPDX-License-Identifier: MIT
#include "generator/keyed_file_writer.h"

#include <stdexcept>

namespace tarn::vyxpn::gen {

KeyedFileWriter::KeyedFileWriter(const std::string& path) : m_path(path) {
    m_file = std::fopen(path.c_str(), "wb");
    if (!m_file)
        throw std::runtime_error("cannot create " + path);
    std::setvbuf(m_file, nullptr, _IOFBF, 1 << 20);
}

KeyedFileWriter::~KeyedFileWriter() {
    if (m_file)
        std::fclose(m_file);
}

void KeyedFileWriter::write(const char* text, std::size_t size) {
    if (std::fwrite(text, 1, size, m_file) != size)
        m_failed = true;
}

void KeyedFileWriter::write(const std::string& text) {
    write(text.data(), text.size());
}

void KeyedFileWriter::comment(const std::string& text) {
    write("# " + text + "\n");
}

void KeyedFileWriter::blank() {
    write("\n", 1);
}

void KeyedFileWriter::value(const std::string& key, const std::string& text) {
    write(key + " = " + text + "\n");
}

void KeyedFileWriter::list(const std::string& key, const std::vector<std::string>& items) {
    write(key + " = ");
    for (std::size_t i = 0; i < items.size(); ++i) {
        if (i > 0)
            write(", ", 2);
        write(items[i]);
    }
    write("\n", 1);
}

void KeyedFileWriter::beginRecords(const std::string& key) {
    write(key + " = ");
    m_indent.assign(key.size() + 3, ' ');
    m_firstRecord = true;
}

void KeyedFileWriter::record(const std::vector<std::string>& fields) {
    if (!m_firstRecord) {
        write(" : \\\n", 5);
        write(m_indent);
    }
    m_firstRecord = false;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (i > 0)
            write(", ", 2);
        write(fields[i]);
    }
}

void KeyedFileWriter::endRecords() {
    write("\n", 1);
}

void KeyedFileWriter::close() {
    if (!m_file)
        return;
    const bool closed = std::fclose(m_file) == 0;
    m_file = nullptr;
    if (m_failed || !closed)
        throw std::runtime_error("cannot write " + m_path);
}

}  // namespace tarn::vyxpn::gen
