// SPDX-License-Identifier: MIT
#pragma once
// Serialises the writers of one INI file across processes. Not part of the
// exported interface.

#include <string>

namespace tarn::vyxpn::util::profile {

// Held from reading the old content to putting the new one in place.
//
// The lock is an flock on the file's directory. Locking the target file
// itself would race: a rewrite renames a new inode over it, so a writer that
// opened the old inode and waits for its lock would then hold a lock on a file
// that is no longer the target, and two writers could each rewrite from the
// same old content. The directory survives every rename and also covers a
// file that does not exist yet. The price is that writers of different files
// of one directory wait for each other, which for small profile files is
// nothing. When the directory cannot be opened (no read permission) the file
// itself is locked, and the lock is taken again whenever the path turned out
// to name another file by the time the lock was granted.
class ProfileLock {
  public:
    explicit ProfileLock(const std::string& target);
    ~ProfileLock();
    ProfileLock(const ProfileLock&) = delete;
    ProfileLock& operator=(const ProfileLock&) = delete;

  private:
    int m_fd = -1;
};

}  // namespace tarn::vyxpn::util::profile
