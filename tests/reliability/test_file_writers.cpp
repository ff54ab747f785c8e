// SPDX-License-Identifier: MIT
// Writers facing targets that are not plain files of their own: nothing a
// write goes to is ever replaced by something else, a file shared through
// links or open descriptors keeps its identity, and nothing half-written is
// left visible.

#include <fcntl.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <functional>

#include "devctrl/util/profile.h"
#include "platform/file_writer.h"
#include "reliability/file_fault_support.h"

namespace {

using namespace devctrl_test;
using tarn::vyxpn::platform::writeWholeFile;

TEST(FileWriters, NoTargetIsReplacedByAFileOfAnotherKindOrIdentity) {
    TempDir dir;
    const std::string content = "[S]\nk=v\n";
    const struct {
        const char* name;
        std::function<std::string(const TempDir&)> make;  // returns the target
        bool written;
        bool keepsIdentity;
    } cases[] = {
        {"plain file", [](const TempDir& d) { return d.write("plain", "old\n"); }, true, false},
        {"file with a second hard link",
         [](const TempDir& d) {
             std::string path = d.write("linked", "old\n");
             link(path.c_str(), d.file("linked-too").c_str());
             return path;
         },
         true, true},
        {"directory",
         [](const TempDir& d) {
             mkdir(d.file("dir").c_str(), 0755);
             return d.file("dir");
         },
         false, true},
        {"socket",
         [](const TempDir& d) {
             bindSocketAt(d.file("sock"));
             return d.file("sock");
         },
         false, true},
        {"FIFO nobody reads",
         [](const TempDir& d) {
             mkfifo(d.file("fifo").c_str(), 0644);
             return d.file("fifo");
         },
         false, true},
    };
    for (const auto& c : cases) {
        const std::string target = c.make(dir);
        const struct stat before = statOf(target);
        std::string error;
        EXPECT_EQ(writeWholeFile(target, content, &error), c.written) << c.name;
        const struct stat after = statOf(target);
        EXPECT_EQ(after.st_mode & S_IFMT, before.st_mode & S_IFMT) << c.name;
        EXPECT_EQ(after.st_ino == before.st_ino, c.keepsIdentity) << c.name;
        if (c.written)
            EXPECT_EQ(readFile(target), content) << c.name;
        else
            EXPECT_EQ(error.find("cannot write " + target + ": "), 0u) << c.name << ": " << error;
    }
    // Both names of the linked file see the new content.
    EXPECT_EQ(readFile(dir.file("linked-too")), content);
}

TEST(FileWriters, FifoAndCharacterDeviceAreStreamedInto) {
    TempDir dir;
    const std::string fifo = dir.file("fifo");
    ASSERT_EQ(mkfifo(fifo.c_str(), 0644), 0);
    {
        FifoReader reader(fifo);
        // The reader may not have opened its end yet: a writer finding no
        // reader refuses, so it is tried until the reader is there.
        bool written = false;
        for (int attempt = 0; attempt < 500 && !written; ++attempt) {
            written = writeWholeFile(fifo, "through the pipe\n");
            if (!written)
                usleep(10000);
        }
        EXPECT_TRUE(written);
        EXPECT_EQ(reader.text(), "through the pipe\n");
    }
    EXPECT_TRUE(S_ISFIFO(statOf(fifo).st_mode));

    // A private copy of the null device (only root may make one).
    const std::string null = dir.file("null");
    if (mknod(null.c_str(), S_IFCHR | 0666, makedev(1, 3)) != 0)
        GTEST_SKIP() << "no device node can be made here";
    EXPECT_TRUE(writeWholeFile(null, "discarded\n"));
    EXPECT_TRUE(S_ISCHR(statOf(null).st_mode));
}

TEST(FileWriters, SymbolicLinkStaysAndItsFileGetsTheContent) {
    TempDir dir;
    const std::string real = dir.write("real.ini", "old\n");
    const std::string link = dir.file("link.ini");
    ASSERT_EQ(symlink(real.c_str(), link.c_str()), 0);
    ASSERT_TRUE(writeWholeFile(link, "new\n"));
    EXPECT_TRUE(S_ISLNK(statOf(link).st_mode));
    EXPECT_EQ(readFile(real), "new\n");
}

TEST(FileWriters, FileHeldOpenByAReaderKeepsItsIdentityAndModeIsKept) {
    TempDir dir;
    const std::string path = dir.write("held.ini", "[S]\nk=old\n");
    chmod(path.c_str(), 0640);
    const ino_t before = statOf(path).st_ino;
    {
        int reader = open(path.c_str(), O_RDONLY);
        ASSERT_EQ(WritePrivateProfileString("S", "k", "held", path.c_str()), 1);
        EXPECT_EQ(statOf(path).st_ino, before);
        // The reader sees the new content through its open descriptor.
        char buffer[64] = {};
        ASSERT_GT(pread(reader, buffer, sizeof buffer - 1, 0), 0);
        EXPECT_STREQ(buffer, "[S]\nk=held\n");
        close(reader);
    }
    // Nobody else has it open now: replaced whole, mode kept.
    ASSERT_EQ(WritePrivateProfileString("S", "k", "alone", path.c_str()), 1);
    EXPECT_NE(statOf(path).st_ino, before);
    EXPECT_EQ(statOf(path).st_mode & 07777, 0640u);
    EXPECT_EQ(readFile(path), "[S]\nk=alone\n");
}

// A shared settings file in a directory its users may not write: the
// profile functions rewrite it in place. Run as an unprivileged user, since
// permission bits do not stop root.
TEST(FileWriters, WritableFileInAnUnwritableDirectoryIsRewrittenInPlace) {
    if (!canDropPrivileges())
        GTEST_SKIP() << "needs to run as an unprivileged user";
    TempDir dir;
    const std::string shared = dir.file("shared");
    mkdir(shared.c_str(), 0755);
    const std::string path = dir.write("shared/settings.ini", "[S]\nk=old\n");
    chmod(dir.path().c_str(), 0755);
    chmod(path.c_str(), 0666);
    const ino_t before = statOf(path).st_ino;
    std::string out, err;
    EXPECT_EQ(runToolLimited("ini set " + path + " S k new", &out, &err, true), 0) << err;
    EXPECT_EQ(readFile(path), "[S]\nk=new\n");
    EXPECT_EQ(statOf(path).st_ino, before);
    EXPECT_EQ(listDirectory(shared), std::vector<std::string>{"settings.ini"});
    // A file the user may not write is left alone, with one line.
    chmod(path.c_str(), 0644);
    EXPECT_EQ(runToolLimited("ini set " + path + " S k other", &out, &err, true), 1);
    EXPECT_EQ(err, "devctrl: cannot write " + path + ": Permission denied\n");
    EXPECT_EQ(readFile(path), "[S]\nk=new\n");
}

// A writer killed at any moment leaves no partial file in sight, and the
// temporaries of writers that died are cleared by the next write.
TEST(FileWriters, KilledWritersLeaveNothingVisible) {
    TempDir dir;
    const std::string path = dir.write("big.sds", "old\n");
    const std::string big(64 << 20, 'x');
    for (int delayMs : {0, 5, 20, 60}) {
        pid_t child = fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            writeWholeFile(path, big);
            _exit(0);
        }
        usleep(delayMs * 1000);
        kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
        EXPECT_EQ(listDirectory(dir.path()), std::vector<std::string>{"big.sds"}) << delayMs;
        const std::string now = readFile(path);
        EXPECT_TRUE(now == "old\n" || now == big) << delayMs;
    }

    // Left-overs named as the writer names its temporaries: one of a writer
    // that is gone, one of a live process (this test).
    pid_t gone = fork();
    if (gone == 0)
        _exit(0);
    waitpid(gone, nullptr, 0);
    const std::string stale = ".big.sds.tmp-" + std::to_string(gone) + "-abcdefgh";
    const std::string live = ".big.sds.tmp-" + std::to_string(getppid()) + "-abcdefgh";
    dir.write(stale, "partial");
    dir.write(live, "in progress");
    ASSERT_TRUE(writeWholeFile(path, "new\n"));
    EXPECT_EQ(listDirectory(dir.path()), (std::vector<std::string>{live, "big.sds"}));
}

// Several processes setting keys in one file at once: every call succeeds
// and every key is there afterwards.
TEST(FileWriters, ConcurrentToolWritersLoseNothingAndNeverFailFalsely) {
    TempDir dir;
    const std::string path = dir.file("shared.ini");
    constexpr int kWriters = 4, kKeys = 20;
    std::vector<pid_t> writers;
    for (int w = 0; w < kWriters; ++w) {
        pid_t child = fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            int failures = 0;
            for (int k = 0; k < kKeys; ++k) {
                std::string key = "w" + std::to_string(w) + "k" + std::to_string(k);
                std::string command = std::string(DEVCTRL_TOOL_PATH) + " ini set " + path + " S " +
                                      key + " " + std::to_string(k) + " >/dev/null";
                failures += std::system(command.c_str()) != 0;
            }
            _exit(failures);
        }
        writers.push_back(child);
    }
    for (pid_t writer : writers) {
        int status = 0;
        waitpid(writer, &status, 0);
        EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << "failed sets: " << status;
    }
    for (int w = 0; w < kWriters; ++w)
        for (int k = 0; k < kKeys; ++k) {
            std::string key = "w" + std::to_string(w) + "k" + std::to_string(k);
            EXPECT_EQ(GetPrivateProfileInt("S", key.c_str(), -1, path.c_str()), k) << key;
        }
    EXPECT_EQ(listDirectory(dir.path()), std::vector<std::string>{"shared.ini"});
}

}  // namespace
