// SPDX-License-Identifier: MIT
#include "platform/data_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "platform/ut_quote.h"
#include "platform/ut_trace.h"
#include "platform/ut_trace_recording.h"

namespace tarn::vyxpn::platform {

namespace {

const char* kindOf(mode_t mode) {
    if (S_ISDIR(mode))
        return "a directory";
    if (S_ISFIFO(mode))
        return "a FIFO";
    if (S_ISCHR(mode) || S_ISBLK(mode))
        return "a device";
    if (S_ISSOCK(mode))
        return "a socket";
    return "not a regular file";
}

}  // namespace

DataFile::DataFile(const std::string& path) : m_path(path) {
    // O_NONBLOCK: opening a FIFO for reading would otherwise wait for a
    // writer, and a device may wait for its hardware.
    int fd = ::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    if (fd < 0) {
        const int error = errno;
        m_missing = error == ENOENT;
        // A socket cannot be opened at all; say what is there instead.
        struct stat info {};
        if (!m_missing && ::stat(path.c_str(), &info) == 0 && !S_ISREG(info.st_mode))
            m_failure = "cannot read " + tarn::vyxpn::util::escapedForMessage(path) + ": " +
                        kindOf(info.st_mode) + ", not a regular file";
        else
            m_failure = "cannot read " + tarn::vyxpn::util::escapedForMessage(path) + ": " +
                        std::strerror(error);
        return;
    }
    struct stat info {};
    if (::fstat(fd, &info) != 0) {
        m_failure = "cannot read " + tarn::vyxpn::util::escapedForMessage(path) + ": " +
                    std::strerror(errno);
        ::close(fd);
        return;
    }
    if (!S_ISREG(info.st_mode)) {
        m_failure = "cannot read " + tarn::vyxpn::util::escapedForMessage(path) + ": " +
                    kindOf(info.st_mode) + ", not a regular file";
        ::close(fd);
        return;
    }
    // Regular files never block; the flag is dropped so reads behave normally.
    ::fcntl(fd, F_SETFL, ::fcntl(fd, F_GETFL) & ~O_NONBLOCK);
    m_fd = fd;
    m_size = static_cast<std::size_t>(info.st_size);
}

DataFile::~DataFile() {
    if (m_fd >= 0)
        ::close(m_fd);
}

bool DataFile::readAll(std::string& bytes, std::size_t maxSize) {
    bytes.clear();
    if (m_fd < 0 || m_size > maxSize)
        return false;
    // Straight into the result up to the size seen at opening (a file that
    // shrank since ends where it ends now), then in chunks for whatever was
    // appended meanwhile.
    bytes.resize(m_size);
    std::size_t filled = 0;
    bool atEnd = false;
    while (filled < m_size && !atEnd) {
        ssize_t got = ::read(m_fd, &bytes[filled], m_size - filled);
        if (got < 0 && errno == EINTR)
            continue;
        if (got < 0)
            return readFailed(bytes);
        atEnd = got == 0;
        filled += static_cast<std::size_t>(got);
    }
    bytes.resize(filled);
    char chunk[4096];
    while (!atEnd) {
        ssize_t got = ::read(m_fd, chunk, sizeof chunk);
        if (got < 0 && errno == EINTR)
            continue;
        if (got < 0)
            return readFailed(bytes);
        if (static_cast<std::size_t>(got) > maxSize - bytes.size()) {
            bytes.clear();
            return false;
        }
        bytes.append(chunk, static_cast<std::size_t>(got));
        atEnd = got == 0;
    }
    return true;
}

bool DataFile::readFailed(std::string& bytes) {
    m_failure =
        "cannot read " + tarn::vyxpn::util::escapedForMessage(m_path) + ": " + std::strerror(errno);
    bytes.clear();
    return false;
}

std::FILE* DataFile::releaseAsStream() {
    if (m_fd < 0)
        return nullptr;
    std::FILE* stream = ::fdopen(m_fd, "r");
    if (stream)
        m_fd = -1;
    return stream;
}

bool DataFile::openOrTrace() const {
    if (m_fd < 0 && !m_missing)
        trace();
    return m_fd >= 0;
}

void DataFile::trace() const {
    diagTraceOnce(m_failure.c_str());
}

}  // namespace tarn::vyxpn::platform
