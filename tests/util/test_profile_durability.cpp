// Writers that die at any moment, and writers that run at the same time.

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <random>
#include <string>
#include <vector>

#include "devctrl/util/profile.h"
#include "support/test_env.h"

namespace {

using devctrl_test::readFile;
using devctrl_test::TempDir;

constexpr int kSlots = 8;

// The value written in step `step`: long enough that a rewrite takes a few
// writes to the disk, and checkable.
std::string valueOf(long step) {
    std::string value = std::to_string(step) + ":";
    for (int i = 0; i < 12; ++i)
        value += std::to_string(step * 7919 % 100003 + i);
    return value;
}

std::string slotKey(long step) {
    return "slot" + std::to_string(step % kSlots);
}

// The exact file after steps 0..last: each slot holds the latest step that
// went to it, the slots in the order they were first written.
std::string expectedAfter(long last) {
    std::string text = "[state]\n";
    for (long slot = 0; slot < kSlots && slot <= last; ++slot) {
        long step = last - ((last - slot) % kSlots);
        text += slotKey(step) + "=" + valueOf(step) + "\n";
    }
    return text;
}

// The last step whose write is in `text`, or -1 when nothing is there yet.
long lastStepIn(const std::string& path) {
    long last = -1;
    for (int slot = 0; slot < kSlots; ++slot) {
        char value[1024] = {};
        std::string key = "slot" + std::to_string(slot);
        if (GetPrivateProfileString("state", key.c_str(), "", value, sizeof value, path.c_str()))
            last = std::max(last, std::strtol(value, nullptr, 10));
    }
    return last;
}

TEST(ProfileDurability, WriterKilledAtRandomMomentsLeavesAWholeFile) {
    TempDir dir;
    const std::string path = dir.file("state.ini");
    std::mt19937 random(20261122);
    // A rewrite takes several milliseconds, most of it waiting for the disk;
    // the kills land inside and between writes.
    std::uniform_int_distribution<int> delayMicroseconds(0, 12000);
    long last = -1;
    for (int round = 0; round < 50; ++round) {
        int reports[2];
        ASSERT_EQ(pipe(reports), 0);
        pid_t child = fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            // One byte on the pipe for every write that returned.
            close(reports[0]);
            for (long step = last + 1;; ++step) {
                if (!WritePrivateProfileString("state", slotKey(step).c_str(),
                                               valueOf(step).c_str(), path.c_str()) ||
                    write(reports[1], "+", 1) != 1)
                    _exit(1);
            }
        }
        close(reports[1]);
        char report;
        ASSERT_EQ(read(reports[0], &report, 1), 1) << "the writer failed in round " << round;
        usleep(delayMicroseconds(random));
        kill(child, SIGKILL);
        int status = 0;
        ASSERT_EQ(waitpid(child, &status, 0), child);
        ASSERT_TRUE(WIFSIGNALED(status)) << "the writer failed in round " << round;
        long completed = 1;
        while (read(reports[0], &report, 1) == 1)
            ++completed;
        close(reports[0]);

        // Every write that returned is in the file, and at most one more that
        // was killed after its rename.
        long now = lastStepIn(path);
        ASSERT_GE(now, last + completed) << "an update was lost in round " << round;
        ASSERT_LE(now, last + completed + 1) << "round " << round;
        ASSERT_EQ(readFile(path), expectedAfter(now)) << "round " << round;
        last = now;
    }
}

TEST(ProfileDurability, ConcurrentWritersLoseNoUpdate) {
    TempDir dir;
    const std::string path = dir.file("shared.ini");
    constexpr int kWriters = 4;
    constexpr int kKeysEach = 10;
    std::vector<pid_t> children;
    for (int writer = 0; writer < kWriters; ++writer) {
        pid_t child = fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            std::string own = "writer" + std::to_string(writer);
            for (int n = 0; n < kKeysEach; ++n) {
                std::string key = own + "_" + std::to_string(n);
                std::string value = std::to_string(writer * 1000 + n);
                // Alternate between a section all share and one of the writer's own.
                const char* section = n % 2 ? own.c_str() : "shared";
                if (!WritePrivateProfileString(section, key.c_str(), value.c_str(), path.c_str()))
                    _exit(1);
            }
            _exit(0);
        }
        children.push_back(child);
    }
    for (pid_t child : children) {
        int status = 0;
        ASSERT_EQ(waitpid(child, &status, 0), child);
        ASSERT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
    }
    for (int writer = 0; writer < kWriters; ++writer) {
        std::string own = "writer" + std::to_string(writer);
        for (int n = 0; n < kKeysEach; ++n) {
            std::string key = own + "_" + std::to_string(n);
            const char* section = n % 2 ? own.c_str() : "shared";
            EXPECT_EQ(GetPrivateProfileInt(section, key.c_str(), -1, path.c_str()),
                      writer * 1000 + n)
                << "[" << section << "] " << key;
        }
    }
}

}  // namespace
