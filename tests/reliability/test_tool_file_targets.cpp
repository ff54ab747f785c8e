// SPDX-License-Identifier: MIT
// The tool's file-writing commands: "-" is standard output, a FIFO is written
// into, and INI values the profile functions could not give back exactly are
// refused before anything is written.

#include <sys/stat.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>

#include "devctrl/util/profile.h"
#include "reliability/bad_data_support.h"
#include "reliability/file_fault_support.h"

namespace {

using namespace devctrl_test;

// One shell word holding `text` exactly.
std::string quoted(const std::string& text) {
    std::string word = "'";
    for (char c : text)
        word += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return word + "'";
}

std::string sampleArgs() {
    return std::string("-q --data ") + DEVCTRL_TEST_SAMPLE_DATA + " ";
}

TEST(ToolFileTargets, DashIsStandardOutputAndAFifoIsWrittenInto) {
    TempDir dir;
    const std::string text = dir.write("zr.txt", "[[Device Info]]\nFormat = LUT\nZR4_QF48 = 640\n");
    const std::string fifo = dir.file("fifo");
    ASSERT_EQ(mkfifo(fifo.c_str(), 0644), 0);
    const struct {
        std::string command;  // the output file is appended
        std::string begins;   // what the written content begins with
    } cases[] = {
        {sampleArgs() + "write-sds zr1 ", "[Device Support]\nTitle = zr1a00\n"},
        {"pwd-compile " + text + " ", "\x89PWD"},
    };
    for (const auto& c : cases) {
        std::string out, err;
        EXPECT_EQ(runToolLimited(c.command + "-", &out, &err), 0) << c.command << err;
        EXPECT_EQ(out.compare(0, c.begins.size(), c.begins), 0) << c.command;
        EXPECT_FALSE(std::ifstream(dir.file("-")).good());

        FifoReader reader(fifo);
        EXPECT_EQ(runToolLimited(c.command + fifo, nullptr, &err), 0) << c.command << err;
        EXPECT_EQ(reader.text().compare(0, c.begins.size(), c.begins), 0) << c.command;
        EXPECT_TRUE(S_ISFIFO(statOf(fifo).st_mode)) << c.command;
    }
}

TEST(ToolFileTargets, TargetsThatCannotBeWrittenAreRefusedInOneLine) {
    TempDir dir;
    mkdir(dir.file("dir").c_str(), 0755);
    const int socket = bindSocketAt(dir.file("sock"));
    const struct {
        std::string command, target, reason;
    } cases[] = {
        {sampleArgs() + "write-sds zr1", dir.file("dir"), "is a directory"},
        {sampleArgs() + "write-sds zr1", dir.file("sock"), "not a regular file"},
        {sampleArgs() + "write-sds zr1", dir.file("missing/out.sds"), "No such file or directory"},
        {"ini set", dir.file("sock"), "socket, not a regular file"},
    };
    for (const auto& c : cases) {
        std::string err;
        const std::string args =
            c.command + " " + c.target + (c.command == "ini set" ? " S k v" : "");
        EXPECT_EQ(runToolLimited(args, nullptr, &err), 1) << args;
        EXPECT_EQ(err.rfind('\n'), err.size() - 1) << err;
        EXPECT_EQ(err.find('\n'), err.size() - 1) << err;
        EXPECT_NE(err.find(c.target), std::string::npos) << err;
        EXPECT_NE(err.find(c.reason), std::string::npos) << err;
    }
    EXPECT_TRUE(S_ISSOCK(statOf(dir.file("sock")).st_mode));
    close(socket);
}

// A line of key, "=" and value is read in one piece only up to the line
// buffer; the tool refuses what would come back cut, split or changed.
TEST(ToolFileTargets, IniSetRefusesWhatWouldNotReadBackExactly) {
    TempDir dir;
    const std::string path = dir.write("limits.ini", "[S]\nkept=1\n");
    const std::string longest(1022 - 2, 'y');  // "k=" and this fill the line
    const struct {
        std::string key, value;
        const char* refusal;  // null: accepted and read back exactly
    } cases[] = {
        {"k", longest, nullptr},
        {"k", longest + "y", "longer than the 1022 characters an INI line may hold"},
        {"k", std::string(1100, 'y'), "longer than the 1022 characters"},
        {std::string(1030, 'k'), "v", "longer than the 1022 characters"},
        {"k", " padded", "must not begin or end with a blank"},
        {"k", "'quoted'", "without its enclosing quotes"},
        {"k", "a'b'", nullptr},
        {"k", "line\nbreak", "must not contain a line break"},
    };
    for (const auto& c : cases) {
        std::string out, err;
        const std::string args = "ini set " + path + " S " + quoted(c.key) + " " + quoted(c.value);
        const std::string before = readFile(path);
        const int status = runToolLimited(args, &out, &err);
        if (!c.refusal) {
            EXPECT_EQ(status, 0) << err;
            EXPECT_EQ(runToolLimited("ini get " + path + " S " + quoted(c.key), &out, &err), 0);
            EXPECT_EQ(out, c.value + "\n");
            EXPECT_EQ(runToolLimited("ini keys " + path + " S", &out, &err), 0);
            EXPECT_EQ(out, "kept\nk\n");
            continue;
        }
        EXPECT_EQ(status, 1) << c.value.substr(0, 20);
        EXPECT_EQ(err.find("devctrl: "), 0u) << err;
        EXPECT_EQ(err.find('\n'), err.size() - 1) << err;
        EXPECT_NE(err.find(c.refusal), std::string::npos) << err;
        EXPECT_EQ(readFile(path), before);
    }
}

// A section whose only entry has an empty key holds an entry: the key list
// is that empty key, and the default does not stand in for it.
TEST(ToolFileTargets, EmptyKeyIsAnEntryAndNotAMissingSection) {
    TempDir dir;
    const struct {
        std::string file;
        std::string listed;  // NUL-separated, as returned
        unsigned count;
    } cases[] = {
        {"[s]\n=v\n", std::string("\0\0", 2), 0},
        {"[s]\n=v\nk=w\n", std::string("\0k\0\0", 4), 2},
        {"[s]\n[t]\nk=w\n", std::string("dflt\0", 5), 4},
        {"[s]\n; only a comment\n", std::string("dflt\0", 5), 4},
    };
    for (const auto& c : cases) {
        const std::string path = dir.write("empty-key.ini", c.file);
        char buffer[64];
        std::fill(std::begin(buffer), std::end(buffer), 'x');
        EXPECT_EQ(
            GetPrivateProfileString("s", nullptr, "dflt", buffer, sizeof buffer, path.c_str()),
            c.count)
            << c.file;
        EXPECT_EQ(std::string(buffer, c.listed.size()), c.listed) << c.file;
    }
}

}  // namespace
