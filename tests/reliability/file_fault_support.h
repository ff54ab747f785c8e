// SPDX-License-Identifier: MIT
#pragma once
// Targets that are not plain files, and runs of the tool that must not hang
// or that need an unprivileged user, for the writer and reader fault tests.

#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <thread>

#include "support/test_env.h"

namespace devctrl_test {

inline struct stat statOf(const std::string& path) {
    struct stat info {};
    lstat(path.c_str(), &info);
    return info;
}

// A listening-less socket bound at `path`; the descriptor stays open.
inline int bindSocketAt(const std::string& path) {
    int fd = socket(AF_UNIX, SOCK_STREAM, 0);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    path.copy(address.sun_path, sizeof address.sun_path - 1);
    bind(fd, reinterpret_cast<sockaddr*>(&address), sizeof address);
    return fd;
}

// Reads a FIFO to its end on a thread, as a consumer at the other end would.
class FifoReader {
  public:
    explicit FifoReader(const std::string& path)
        : m_thread([this, path] { m_text = readFile(path); }) {}
    // What came through; waits for the writer to close.
    const std::string& text() {
        if (m_thread.joinable())
            m_thread.join();
        return m_text;
    }
    ~FifoReader() {
        if (m_thread.joinable())
            m_thread.join();
    }

  private:
    std::string m_text;
    std::thread m_thread;
};

// Whether tests can act as an unprivileged user (they run as root in CI, where
// permission bits alone do not stop anything).
inline bool canDropPrivileges() {
    return geteuid() != 0 || std::system("command -v setpriv >/dev/null 2>&1") == 0;
}

// A directory holding a copy of the tool and its library that "nobody" can
// run: the build tree may sit where only root can reach it (under /root,
// say). Made once.
inline const std::string& toolCopyForNobody() {
    namespace fs = std::filesystem;
    static TempDir copy;
    static const bool made = [] {
        chmod(copy.path().c_str(), 0755);
        const fs::path built(DEVCTRL_TOOL_PATH);
        for (const fs::directory_entry& entry : fs::directory_iterator(built.parent_path()))
            if (entry.path().filename().string().rfind("libdevctrl.so", 0) == 0)
                fs::copy(entry.path(), copy.file(entry.path().filename().string()),
                         fs::copy_options::copy_symlinks);
        fs::copy_file(built, copy.file("devctrl"));
        return true;
    }();
    (void)made;
    return copy.path();
}

// Runs the tool with `args` (shell-quoted) under a time limit, as the
// unprivileged user "nobody" when `unprivileged` and the tests run as root.
// A run that hangs is killed and reads as status 124.
inline int runToolLimited(const std::string& args, std::string* out, std::string* err,
                          bool unprivileged = false) {
    TempDir scratch;
    chmod(scratch.path().c_str(), 0777);
    std::string command = "timeout -s KILL 20 ";
    if (unprivileged && geteuid() == 0) {
        const std::string& copy = toolCopyForNobody();
        command = "LD_LIBRARY_PATH=" + copy + " " + command +
                  "setpriv --reuid=65534 --regid=65534 --clear-groups " + copy + "/devctrl";
    } else {
        command += DEVCTRL_TOOL_PATH;
    }
    command += " " + args + " >" + scratch.file("out") + " 2>" + scratch.file("err");
    int status = std::system(command.c_str());
    if (out)
        *out = readFile(scratch.file("out"));
    if (err)
        *err = readFile(scratch.file("err"));
    if (!WIFEXITED(status))
        return -1;
    return WEXITSTATUS(status) == 137 ? 124 : WEXITSTATUS(status);
}

}  // namespace devctrl_test
