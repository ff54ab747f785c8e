// SPDX-License-Identifier: MIT
#include "platform/file_writer.h"

#include <dirent.h>
#include <fcntl.h>
#include <signal.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <ctime>

#include "platform/ut_quote.h"

namespace tarn::vyxpn::platform {

namespace {

// Closes a descriptor however a write ends.
class Fd {
  public:
    explicit Fd(int fd = -1) : m_fd(fd) {}
    ~Fd() { reset(); }
    Fd(const Fd&) = delete;
    Fd& operator=(const Fd&) = delete;
    int get() const { return m_fd; }
    void reset(int fd = -1) {
        if (m_fd >= 0)
            ::close(m_fd);
        m_fd = fd;
    }

  private:
    int m_fd;
};

bool fail(std::string* error, const std::string& path, const std::string& reason) {
    if (error)
        *error = "cannot write " + tarn::vyxpn::util::escapedForMessage(path) + ": " + reason;
    return false;
}

bool failErrno(std::string* error, const std::string& path) {
    return fail(error, path, std::strerror(errno));
}

std::string baseOf(const std::string& path) {
    std::size_t slash = path.rfind('/');
    return slash == std::string::npos ? path : path.substr(slash + 1);
}

bool writeAll(int fd, std::string_view content) {
    std::size_t done = 0;
    while (done < content.size()) {
        ssize_t wrote = ::write(fd, content.data() + done, content.size() - done);
        if (wrote < 0 && errno == EINTR)
            continue;
        if (wrote <= 0) {
            if (wrote == 0)
                errno = EIO;
            return false;
        }
        done += static_cast<std::size_t>(wrote);
    }
    return true;
}

// Temporaries are named ".<name>.tmp-<pid>-<random>" beside the target, so
// that the writer that left one behind can be told from a live one.
std::string temporaryPrefix(const std::string& target) {
    return directoryOf(target) + "/." + baseOf(target) + ".tmp-";
}

std::string uniqueName(const std::string& prefix) {
    static std::atomic<std::uint64_t> counter{0};
    static const char alphabet[] = "abcdefghijklmnopqrstuvwxyz0123456789";
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    std::uint64_t seed = static_cast<std::uint64_t>(now.tv_nsec) ^
                         (static_cast<std::uint64_t>(now.tv_sec) << 30) ^
                         (++counter * 0x9E3779B97F4A7C15ull);
    std::string name = prefix + std::to_string(getpid()) + "-";
    for (int i = 0; i < 8; ++i) {
        seed = seed * 6364136223846793005ull + 1442695040888963407ull;
        name += alphabet[(seed >> 33) % (sizeof alphabet - 1)];
    }
    return name;
}

// Removes the temporaries for `target` whose writer has died (killed between
// creating and renaming them). Those of live writers are left alone.
void removeStaleTemporaries(const std::string& target) {
    const std::string directory = directoryOf(target);
    const std::string start = "." + baseOf(target) + ".tmp-";
    DIR* listing = ::opendir(directory.c_str());
    if (!listing)
        return;
    while (dirent* entry = ::readdir(listing)) {
        std::string name = entry->d_name;
        if (name.compare(0, start.size(), start) != 0)
            continue;
        char* end = nullptr;
        long pid = std::strtol(name.c_str() + start.size(), &end, 10);
        if (pid <= 0 || *end != '-' || pid == getpid())
            continue;
        if (::kill(static_cast<pid_t>(pid), 0) != 0 && errno == ESRCH)
            ::unlink((directory + "/" + name).c_str());
    }
    ::closedir(listing);
}

// True when some other open file description refers to the file (a reader
// holding it, another writer): a write lease is only granted to the sole
// opener. False when that cannot be told (a file we do not own, a file
// system without leases). No owner is set for the lease, so a lease break
// would send no signal.
bool openElsewhere(int fd) {
    if (::fcntl(fd, F_SETLEASE, F_WRLCK) == 0) {
        ::fcntl(fd, F_SETLEASE, F_UNLCK);
        return false;
    }
    return errno == EAGAIN;
}

// The new content in a file of its own in the target's directory, complete
// and on disk; -1 (errno set) when no such file can be made. `named` gets
// the name of a named temporary, and stays empty for an unnamed one.
int createComplete(const std::string& target, const struct stat* original, std::string_view content,
                   std::string* named) {
    const mode_t mode = original ? 0600 : 0666;
    // Writers killed in the moment between naming and renaming their file
    // leave it behind; whoever writes next clears those away.
    removeStaleTemporaries(target);
    int fd = ::open(directoryOf(target).c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, mode);
    if (fd < 0) {
        if (errno != EOPNOTSUPP && errno != EISDIR && errno != EINVAL)
            return -1;
        // No unnamed files here: a named one instead.
        const std::string prefix = temporaryPrefix(target);
        for (int attempt = 0; attempt < 100 && fd < 0; ++attempt) {
            *named = uniqueName(prefix);
            fd = ::open(named->c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
            if (fd < 0 && errno != EEXIST)
                break;
        }
        if (fd < 0) {
            named->clear();
            return -1;
        }
    }
    if (original) {
        // Ownership first: changing the owner may clear set-id bits. Only a
        // privileged writer may give a file away; others keep their own.
        if (::fchown(fd, original->st_uid, original->st_gid) != 0) {
        }
        ::fchmod(fd, original->st_mode & 07777);
    }
    if (!writeAll(fd, content) || ::fsync(fd) != 0) {
        int saved = errno;
        ::close(fd);
        if (!named->empty())
            ::unlink(named->c_str());
        named->clear();
        errno = saved;
        return -1;
    }
    return fd;
}

// Gives the unnamed file `fd` a temporary name beside the target.
bool linkIn(int fd, const std::string& target, std::string* named) {
    const std::string self = "/proc/self/fd/" + std::to_string(fd);
    const std::string prefix = temporaryPrefix(target);
    for (int attempt = 0; attempt < 100; ++attempt) {
        *named = uniqueName(prefix);
        if (::linkat(AT_FDCWD, self.c_str(), AT_FDCWD, named->c_str(), AT_SYMLINK_FOLLOW) == 0)
            return true;
        if (errno == ENOENT && ::linkat(fd, "", AT_FDCWD, named->c_str(), AT_EMPTY_PATH) == 0)
            return true;  // no /proc, but the privilege to link by descriptor
        if (errno != EEXIST)
            break;
    }
    named->clear();
    return false;
}

enum class Replaced { Done, Failed, NotHere };

// The crash-safe path: a complete new file renamed over the target. NotHere
// when the directory does not let us create files in it.
Replaced replaceByRename(const std::string& target, const struct stat* original,
                         std::string_view content, std::string* error) {
    std::string named;
    Fd file(createComplete(target, original, content, &named));
    if (file.get() < 0) {
        if (original && (errno == EACCES || errno == EPERM || errno == EROFS))
            return Replaced::NotHere;
        failErrno(error, target);
        return Replaced::Failed;
    }
    if (named.empty() && !linkIn(file.get(), target, &named)) {
        failErrno(error, target);
        return Replaced::Failed;
    }
    if (::rename(named.c_str(), target.c_str()) != 0) {
        failErrno(error, target);
        ::unlink(named.c_str());
        return Replaced::Failed;
    }
    // The rename itself on disk too.
    Fd directory(::open(directoryOf(target).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (directory.get() >= 0)
        ::fsync(directory.get());
    return Replaced::Done;
}

bool rewriteInPlace(int fd, const std::string& target, std::string_view content,
                    std::string* error) {
    if (::lseek(fd, 0, SEEK_SET) != 0 || !writeAll(fd, content) ||
        ::ftruncate(fd, static_cast<off_t>(content.size())) != 0 || ::fsync(fd) != 0)
        return failErrno(error, target);
    return true;
}

// Streams into a FIFO or character device. Opened without blocking, so a
// FIFO nobody reads is refused instead of waiting forever.
bool streamInto(const std::string& target, std::string_view content, std::string* error) {
    Fd fd(::open(target.c_str(), O_WRONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    if (fd.get() < 0) {
        if (errno == ENXIO)
            return fail(error, target, "a FIFO that nobody reads");
        return failErrno(error, target);
    }
    ::fcntl(fd.get(), F_SETFL, ::fcntl(fd.get(), F_GETFL) & ~O_NONBLOCK);
    if (!writeAll(fd.get(), content))
        return failErrno(error, target);
    return true;
}

}  // namespace

std::string resolveWriteTarget(const std::string& path) {
    char* real = ::realpath(path.c_str(), nullptr);
    if (!real)
        return path;
    std::string resolved = real;
    ::free(real);
    return resolved;
}

std::string directoryOf(const std::string& path) {
    std::size_t slash = path.rfind('/');
    if (slash == std::string::npos)
        return ".";
    if (slash == 0)
        return "/";
    return path.substr(0, slash);
}

bool writeWholeFile(const std::string& path, std::string_view content, std::string* error) {
    const std::string target = resolveWriteTarget(path);
    struct stat info {};
    if (::stat(target.c_str(), &info) != 0) {
        if (errno != ENOENT)
            return failErrno(error, path);
        return replaceByRename(target, nullptr, content, error) == Replaced::Done;
    }
    if (S_ISFIFO(info.st_mode) || S_ISCHR(info.st_mode))
        return streamInto(target, content, error);
    if (S_ISDIR(info.st_mode))
        return fail(error, path, "is a directory");
    if (!S_ISREG(info.st_mode))
        return fail(error, path, "not a regular file");

    // Opened for writing although the rename path does not need it: a file
    // we may not write is left alone.
    Fd file(::open(target.c_str(), O_WRONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    if (file.get() < 0)
        return failErrno(error, path);
    struct stat opened {};
    if (::fstat(file.get(), &opened) != 0 || !S_ISREG(opened.st_mode))
        return fail(error, path, "changed while it was opened");
    if (opened.st_nlink <= 1 && !openElsewhere(file.get())) {
        Replaced replaced = replaceByRename(target, &opened, content, error);
        if (replaced != Replaced::NotHere)
            return replaced == Replaced::Done;
    }
    return rewriteInPlace(file.get(), path, content, error);
}

}  // namespace tarn::vyxpn::platform
