// SPDX-License-Identifier: MIT
#pragma once
// Streams a keyed data file (KEY = value lines, '#' comments, records cut at
// ':' and continued with '\' one record per line) so that a family of a
// hundred thousand parts is written without building the text in memory.

#include <cstdio>
#include <string>
#include <vector>

namespace tarn::vyxpn::gen {

class KeyedFileWriter {
  public:
    // Creates (or truncates) the file; throws std::runtime_error naming it
    // when it cannot be opened.
    explicit KeyedFileWriter(const std::string& path);
    ~KeyedFileWriter();
    KeyedFileWriter(const KeyedFileWriter&) = delete;
    KeyedFileWriter& operator=(const KeyedFileWriter&) = delete;

    void comment(const std::string& text);
    void blank();
    void value(const std::string& key, const std::string& text);
    // KEY = a, b, c
    void list(const std::string& key, const std::vector<std::string>& items);

    // KEY = record : \  (one record per line)
    void beginRecords(const std::string& key);
    void record(const std::vector<std::string>& fields);
    void endRecords();

    // Flushes and closes; throws std::runtime_error on a write error.
    void close();

  private:
    void write(const std::string& text);
    void write(const char* text, std::size_t size);

    std::string m_path;
    std::FILE* m_file = nullptr;
    std::string m_indent;
    bool m_firstRecord = true;
    bool m_failed = false;
};

}  // namespace tarn::vyxpn::gen
