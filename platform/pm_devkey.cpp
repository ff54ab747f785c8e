// SPDX-License-Identifier: MIT
// Reader of keyed data files. Choices the file format leaves open, settled
// here:
// - A comment line never continues, even when it ends with a backslash; a
//   continuation line that looks like a comment is value text.
// - A line continues when its last character other than blanks and tabs is a
//   backslash, so invisible trailing blanks do not break a list.
// - A NUL byte ends the content of its line; the rest of that line is ignored.
//   The first such line is traced (once per file).
// - "= value" is a key named "" rather than a malformed line.
// - A malformed line is reported with the number of its first physical line.

#include "platform/pm_devkey.h"

#include <cstring>
#include <string>

#include "platform/data_file.h"
#include "platform/pm_pic.h"
#include "platform/pm_text.h"
#include "platform/ut_quote.h"
#include "platform/ut_trace.h"

using tarn::vyxpn::util::stripContinuation;
using tarn::vyxpn::util::trimmed;

namespace {

// The whole content of the file, or nothing when it cannot be read (which
// is traced unless the file is simply absent).
std::string readWholeFile(const std::string& path) {
    std::string content;
    tarn::vyxpn::platform::DataFile file(path);
    if (file.openOrTrace() && !file.readAll(content))
        file.trace();
    return content;
}

// Splits text into physical lines: LF or CRLF ends a line, and a NUL byte
// ends the usable content of its line (the rest up to the newline is dropped).
class LineReader {
  public:
    explicit LineReader(std::string_view text) : m_text(text) {}

    bool next(std::string_view& line) {
        if (m_pos >= m_text.size())
            return false;
        const char* start = m_text.data() + m_pos;
        std::size_t left = m_text.size() - m_pos;
        const void* newline = std::memchr(start, '\n', left);
        std::size_t length = newline ? static_cast<const char*>(newline) - start : left;
        m_pos += newline ? length + 1 : length;
        ++m_lineNumber;

        line = std::string_view(start, length);
        if (!line.empty() && line.back() == '\r')
            line.remove_suffix(1);
        if (const void* nul = std::memchr(line.data(), '\0', line.size())) {
            line = line.substr(0, static_cast<const char*>(nul) - line.data());
            if (m_firstNulLine == 0)
                m_firstNulLine = m_lineNumber;
        }
        return true;
    }

    std::size_t lineNumber() const { return m_lineNumber; }
    // The first line that held a NUL byte, or 0.
    std::size_t firstNulLine() const { return m_firstNulLine; }

  private:
    std::string_view m_text;
    std::size_t m_pos = 0;
    std::size_t m_lineNumber = 0;
    std::size_t m_firstNulLine = 0;
};

}  // namespace

PM_DEVKEY::PM_DEVKEY(const char* path, unsigned char /*flags*/) {
    if (!path)
        return;
    m_path = path;
    parse(readWholeFile(m_path));
}

PM_DEVKEY::PM_DEVKEY(const char* fileName, const PM_PIC_HDL& family, unsigned char, unsigned char,
                     unsigned char) {
    if (!fileName)
        return;
    if (!family.valid()) {
        m_path = fileName;
        return;
    }
    m_path = family.directory() + "/" + fileName;
    parse(readWholeFile(m_path));
}

PM_DEVKEY PM_DEVKEY::fromText(std::string_view text, const std::string& sourceName) {
    PM_DEVKEY keys;
    keys.m_path = sourceName;
    keys.parse(text);
    return keys;
}

const char* PM_DEVKEY::getkeyeddata(const char* key) const {
    if (!key)
        return nullptr;
    auto found = m_values.find(key);
    return found == m_values.end() ? nullptr : found->second.c_str();
}

void PM_DEVKEY::parse(std::string_view text) {
    TraceFileLimit traceLimit(m_path);
    LineReader lines(text);
    std::string_view line;
    std::string joined;  // only used when a line has continuations
    while (lines.next(line)) {
        std::size_t firstLineNumber = lines.lineNumber();
        std::string_view content = trimmed(line);
        if (content.empty() || content.front() == '#')
            continue;

        // Continuation lines are rare; the common case stays a view into the
        // file buffer and costs no copy until the value is stored.
        std::string_view logical = line;
        if (stripContinuation(logical)) {
            joined.assign(logical.data(), logical.size());
            std::string_view more;
            bool continues = true;
            while (continues && lines.next(more)) {
                // Trimmed like any line, except that blanks written before a
                // further backslash separate words and so are kept.
                std::string_view piece = trimmed(more);
                continues = stripContinuation(piece);
                joined.append(piece.data(), piece.size());
            }
            logical = joined;
        }

        std::size_t equals = logical.find('=');
        if (equals == std::string_view::npos) {
            std::string message = tarn::vyxpn::util::escapedForMessage(m_path) + ":" +
                                  std::to_string(firstLineNumber) +
                                  ": malformed line skipped (no '=')";
            diagTrace(message.c_str(), nullptr);
            continue;
        }
        std::string_view key = trimmed(logical.substr(0, equals));
        std::string_view value = trimmed(logical.substr(equals + 1));
        m_values.insert_or_assign(std::string(key), std::string(value));
    }
    // Reported once per file: a file with one stray NUL usually has many.
    if (lines.firstNulLine() != 0) {
        std::string message = tarn::vyxpn::util::escapedForMessage(m_path) + ":" +
                              std::to_string(lines.firstNulLine()) +
                              ": NUL byte; the rest of the line is ignored";
        diagTrace(message.c_str(), nullptr);
    }
}
