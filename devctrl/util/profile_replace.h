#pragma once
// Safe replacement of a file by new content: the content goes to a fresh file
// beside the target, which is renamed over the target once it is complete and
// on disk. Readers see the old file or the new one, never a part of either.
// Not part of the exported interface.

#include <stdio.h>
#include <sys/stat.h>

#include <string>

namespace tarn::vyxpn::util::profile {

// The file a write to `path` really replaces: symbolic links are followed so
// that the link stays and the file it names gets the new content. A path that
// does not resolve (the file does not exist yet) is used as given.
std::string resolveTarget(const char* path);

// The directory part of `path` ("." when it has none).
std::string directoryOf(const std::string& path);

// Serialises writers of the files of one directory.
//
// The lock is an flock on the directory itself. Locking the target file would
// race: the rewrite renames a new inode over it, so a writer that opened the
// old inode and waits for its lock would then hold a lock on a file that is no
// longer the target, and two writers could each rewrite from the same old
// content. The directory survives every rename, needs no extra lock file next
// to each INI file, and also covers a file that does not exist yet. The price
// is that writers of different files of one directory wait for each other,
// which for small profile files is nothing. When the directory cannot be
// opened or locked (no read permission, a file system without flock) the
// write goes ahead unlocked.
class DirectoryLock {
  public:
    explicit DirectoryLock(const std::string& directory);
    ~DirectoryLock();
    DirectoryLock(const DirectoryLock&) = delete;
    DirectoryLock& operator=(const DirectoryLock&) = delete;

    // The open directory (-1 if it could not be opened), also used to make
    // a rename durable.
    int fd() const { return m_fd; }

  private:
    int m_fd = -1;
};

class FileReplacement {
  public:
    // A new file for `target`, created in its directory. With `original`, the
    // new file takes over its owner (where allowed) and permission bits;
    // without, it gets the usual mode of a new file (0666 less the umask).
    FileReplacement(const std::string& target, const struct stat* original);
    ~FileReplacement();  // removes the new file unless committed
    FileReplacement(const FileReplacement&) = delete;
    FileReplacement& operator=(const FileReplacement&) = delete;

    // Null when the new file could not be created.
    FILE* file() const { return m_file; }

    // Flushes and syncs the new file and renames it over the target; false
    // (and the target untouched) on any failure. `directoryFd`, when not -1,
    // is synced after the rename so that the rename itself is on disk.
    bool commit(int directoryFd);

  private:
    std::string m_target;
    std::string m_temporary;
    FILE* m_file = nullptr;
};

}  // namespace tarn::vyxpn::util::profile
