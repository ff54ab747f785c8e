// SPDX-License-Identifier: MIT
#pragma once
// Opening the files of an installation for reading. Every reader goes through
// here so that a FIFO, a device or a directory where a data file belongs can
// never block a load or be read as data: the file is opened without blocking
// and must be a regular file.

#include <cstddef>
#include <cstdio>
#include <string>

namespace tarn::vyxpn::platform {

// An open regular file, or the reason there is none.
class DataFile {
  public:
    // Opens `path` read-only. Fails for anything that is not a regular file,
    // without ever waiting for a writer or a device.
    explicit DataFile(const std::string& path);
    ~DataFile();
    DataFile(const DataFile&) = delete;
    DataFile& operator=(const DataFile&) = delete;

    bool isOpen() const { return m_fd >= 0; }
    int fd() const { return m_fd; }
    // Size when it was opened (regular files only).
    std::size_t size() const { return m_size; }
    // Nothing at the path at all: an optional file that is simply absent.
    bool missing() const { return m_missing; }
    // Why the file could not be opened, as "cannot read PATH: reason";
    // empty when it is open.
    const std::string& failure() const { return m_failure; }

    // True when open; otherwise one trace line names the file and the
    // reason, unless it is simply missing, which is for the caller to judge.
    bool openOrTrace() const;
    // Traces the failure (of opening or of readAll) as one line. A process
    // that reads a file again and again (the shared device table is read for
    // every family) says so once per file and reason.
    void trace() const;

    // Reads the whole file into `bytes`; false on a read error or when it
    // holds more than `maxSize` bytes. Reads until the end rather than
    // trusting the size from opening, so a file that grew is not cut short.
    bool readAll(std::string& bytes, std::size_t maxSize = static_cast<std::size_t>(-1));

    // Hands the open file over as a stream the caller closes; null when the
    // file is not open or no stream could be made.
    std::FILE* releaseAsStream();

  private:
    bool readFailed(std::string& bytes);

    int m_fd = -1;
    std::size_t m_size = 0;
    bool m_missing = false;
    std::string m_path;
    std::string m_failure;
};

}  // namespace tarn::vyxpn::platform
