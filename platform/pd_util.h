// SPDX-License-Identifier: MIT
#pragma once
// Helpers of the part-data layer: where a PM's part data file lives, which
// form it has, and the small text rules the readers and writers share.

#include <cstddef>
#include <string>

class PD_UTIL {
  public:
    // Size of the buffer the one-argument GetFilenameRTF assumes.
    static constexpr std::size_t kPathBufferSize = 4096;
    // The section name of every table the text form holds.
    static constexpr const char* kFormatSectionName = "Format";

    // Rewrites a part data file name "<pm>.pwd" in place to its path in the
    // PM's data directory, <data>/<pm>/<pm>.pwd (the PM being the name
    // without its extension). A name holding a '/' is taken as a path already
    // and left alone. `size` is the size of the buffer `name` points to; when
    // the path (with its NUL) would not fit, or `name` is null or empty, the
    // buffer is left unchanged and the result is false. The file need not
    // exist.
    static bool GetFilenameRTF(char* name, std::size_t size);
    // The same for a buffer of at least kPathBufferSize bytes. The caller
    // guarantees that size; a smaller buffer is a caller error.
    static bool GetFilenameRTF(char* name);

    // True when the file begins with the binary form's magic number.
    static bool IsBinaryFile(const char* path);

    // Reads a whole regular file of at most `maxSize` bytes; false when it is
    // larger, cannot be opened or cannot be read.
    static bool ReadWholeFile(const char* path, std::string& bytes,
                              std::size_t maxSize = static_cast<std::size_t>(-1));

    // Strips blanks, tabs, CR and LF from both ends.
    static std::string Trim(const std::string& text);
    // True for the key that starts a table: "Format" in any case.
    static bool IsFormatKey(const std::string& key);
};
