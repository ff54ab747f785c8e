// SPDX-License-Identifier: MIT
#include "devctrl/util/profile_lock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "platform/file_writer.h"

namespace tarn::vyxpn::util::profile {

namespace {

bool lockExclusive(int fd) {
    while (flock(fd, LOCK_EX) != 0)
        if (errno != EINTR)
            return false;
    return true;
}

bool sameFile(int fd, const std::string& path) {
    struct stat held {
    }, named{};
    return fstat(fd, &held) == 0 && stat(path.c_str(), &named) == 0 &&
           held.st_dev == named.st_dev && held.st_ino == named.st_ino;
}

}  // namespace

ProfileLock::ProfileLock(const std::string& target) {
    m_fd = open(platform::directoryOf(target).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (m_fd >= 0) {
        if (!lockExclusive(m_fd)) {
            // A file system without flock: the write goes ahead unlocked.
        }
        return;
    }
    for (int attempt = 0; attempt < 1000; ++attempt) {
        m_fd = open(target.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
        if (m_fd < 0)
            return;  // nothing to lock yet, or nothing we may lock
        if (!lockExclusive(m_fd) || sameFile(m_fd, target))
            return;
        close(m_fd);  // replaced while we waited: lock the new file
        m_fd = -1;
    }
}

ProfileLock::~ProfileLock() {
    if (m_fd >= 0)
        close(m_fd);  // releases the lock
}

}  // namespace tarn::vyxpn::util::profile
