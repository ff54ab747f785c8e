#include "devctrl/util/profile_replace.h"

#include <errno.h>
#include <fcntl.h>
#include <stdlib.h>
#include <sys/file.h>
#include <time.h>
#include <unistd.h>

#include <atomic>
#include <cstdint>

namespace tarn::vyxpn::util::profile {

namespace {

std::string baseOf(const std::string& path) {
    size_t slash = path.rfind('/');
    return slash == std::string::npos ? path : path.substr(slash + 1);
}

// Creates a new file named `prefix` + a random suffix with exclusive
// creation. mkstemp would do, but it fixes the mode at 0600, and a file that
// is new for the caller should get 0666 less the umask like any other.
int createUnique(const std::string& prefix, mode_t mode, std::string* name) {
    static std::atomic<std::uint64_t> counter{0};
    static const char alphabet[] = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789";
    for (int attempt = 0; attempt < 100; ++attempt) {
        timespec now{};
        clock_gettime(CLOCK_MONOTONIC, &now);
        std::uint64_t seed =
            (static_cast<std::uint64_t>(getpid()) << 40) ^ static_cast<std::uint64_t>(now.tv_nsec) ^
            (static_cast<std::uint64_t>(now.tv_sec) << 20) ^ (++counter * 0x9E3779B97F4A7C15ull);
        std::string candidate = prefix;
        for (int i = 0; i < 8; ++i) {
            seed = seed * 6364136223846793005ull + 1442695040888963407ull;
            candidate += alphabet[(seed >> 33) % (sizeof alphabet - 1)];
        }
        int fd = open(candidate.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, mode);
        if (fd >= 0) {
            *name = candidate;
            return fd;
        }
        if (errno != EEXIST)
            return -1;
    }
    return -1;
}

}  // namespace

std::string resolveTarget(const char* path) {
    char* real = realpath(path, nullptr);
    if (!real)
        return path;
    std::string resolved = real;
    free(real);
    return resolved;
}

std::string directoryOf(const std::string& path) {
    size_t slash = path.rfind('/');
    if (slash == std::string::npos)
        return ".";
    if (slash == 0)
        return "/";
    return path.substr(0, slash);
}

DirectoryLock::DirectoryLock(const std::string& directory) {
    m_fd = open(directory.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (m_fd < 0)
        return;
    while (flock(m_fd, LOCK_EX) != 0 && errno == EINTR) {
    }
}

DirectoryLock::~DirectoryLock() {
    if (m_fd >= 0)
        close(m_fd);  // releases the lock
}

FileReplacement::FileReplacement(const std::string& target, const struct stat* original)
    : m_target(target) {
    std::string prefix = directoryOf(target) + "/." + baseOf(target) + ".";
    int fd = createUnique(prefix, original ? 0600 : 0666, &m_temporary);
    if (fd < 0)
        return;
    if (original) {
        // Ownership first: changing the owner may clear set-id bits.
        if (fchown(fd, original->st_uid, original->st_gid) != 0) {
            // Only a privileged writer may give a file away; keep our own.
        }
        fchmod(fd, original->st_mode & 07777);
    }
    m_file = fdopen(fd, "w");
    if (!m_file) {
        close(fd);
        unlink(m_temporary.c_str());
    }
}

FileReplacement::~FileReplacement() {
    if (!m_file)
        return;
    fclose(m_file);
    unlink(m_temporary.c_str());
}

bool FileReplacement::commit(int directoryFd) {
    if (!m_file)
        return false;
    bool written = fflush(m_file) == 0 && !ferror(m_file) && fsync(fileno(m_file)) == 0;
    written = (fclose(m_file) == 0) && written;
    m_file = nullptr;
    if (!written || rename(m_temporary.c_str(), m_target.c_str()) != 0) {
        unlink(m_temporary.c_str());
        return false;
    }
    if (directoryFd >= 0)
        fsync(directoryFd);
    return true;
}

}  // namespace tarn::vyxpn::util::profile
