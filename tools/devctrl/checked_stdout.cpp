// SPDX-License-Identifier: MIT
#include "checked_stdout.h"

#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>

namespace devctrl_tool {

CheckedStdout::CheckedStdout() {
    setp(m_buffer, m_buffer + sizeof m_buffer);
}

CheckedStdout::~CheckedStdout() {
    drain();
}

bool CheckedStdout::writeAll(const char* data, std::size_t size) {
    while (size > 0 && m_errno == 0) {
        const ssize_t written = ::write(STDOUT_FILENO, data, size);
        if (written < 0) {
            if (errno != EINTR)
                m_errno = errno;
            continue;
        }
        data += written;
        size -= static_cast<std::size_t>(written);
    }
    return m_errno == 0;
}

bool CheckedStdout::drain() {
    const bool ok = writeAll(pbase(), static_cast<std::size_t>(pptr() - pbase()));
    setp(m_buffer, m_buffer + sizeof m_buffer);
    return ok;
}

CheckedStdout::int_type CheckedStdout::overflow(int_type c) {
    if (!drain())
        return traits_type::eof();
    if (!traits_type::eq_int_type(c, traits_type::eof())) {
        *pptr() = traits_type::to_char_type(c);
        pbump(1);
    }
    return traits_type::not_eof(c);
}

int CheckedStdout::sync() {
    return drain() ? 0 : -1;
}

std::streamsize CheckedStdout::xsputn(const char* data, std::streamsize size) {
    // Large pieces go straight out rather than through the buffer.
    if (size > epptr() - pptr()) {
        if (!drain() || !writeAll(data, static_cast<std::size_t>(size)))
            return 0;
        return size;
    }
    std::memcpy(pptr(), data, static_cast<std::size_t>(size));
    pbump(static_cast<int>(size));
    return size;
}

std::string CheckedStdout::finish() {
    drain();
    // Whatever went through C stdio (a library writing to stdout) too.
    if ((std::fflush(stdout) != 0 || std::ferror(stdout)) && m_errno == 0)
        m_errno = errno != 0 ? errno : EIO;
    // A closed standard output (EBADF) was already reported by the first
    // write, and a command that printed nothing has nothing to lose.
    if (::close(STDOUT_FILENO) != 0 && m_errno == 0 && errno != EINTR && errno != EBADF)
        m_errno = errno;
    return m_errno == 0 ? std::string() : std::strerror(m_errno);
}

void restoreBrokenPipeDefault() {
    std::signal(SIGPIPE, SIG_DFL);
}

}  // namespace devctrl_tool
