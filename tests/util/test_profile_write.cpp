// SPDX-License-Identifier: MIT
// Setting and deleting keys and sections, and what a rewrite keeps.

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstring>
#include <filesystem>
#include <string>

#include "devctrl/util/profile.h"
#include "support/test_env.h"

namespace {

using devctrl_test::readFile;
using devctrl_test::runTool;
using devctrl_test::TempDir;

class ProfileWrite : public ::testing::Test {
  protected:
    // Writes `before`, applies the change, and returns the file afterwards.
    std::string change(const std::string& before, const char* section, const char* key,
                       const char* value, int expectedResult) {
        std::string path = dir.write("p.ini", before);
        EXPECT_EQ(WritePrivateProfileString(section, key, value, path.c_str()), expectedResult);
        return readFile(path);
    }
    int entryCount() const {
        auto entries = std::filesystem::directory_iterator(dir.path());
        return static_cast<int>(std::distance(begin(entries), end(entries)));
    }
    TempDir dir;
};

TEST_F(ProfileWrite, CreatesAMissingFileOnlyToSetAKey) {
    std::string path = dir.file("new.ini");
    EXPECT_EQ(WritePrivateProfileString("S", "k", nullptr, path.c_str()), 0);
    EXPECT_FALSE(std::filesystem::exists(path));
    EXPECT_EQ(WritePrivateProfileString("S", "k", "v", path.c_str()), 1);
    EXPECT_EQ(readFile(path), "[S]\nk=v\n");
}

TEST_F(ProfileWrite, ReplacesInsertsAndAppendsRewritingEveryLineTrimmed) {
    EXPECT_EQ(change("  ; note  \n[S]\n  k = old  \n[T]\nx=1\n", "s", "K", "new", 1),
              "; note\n[S]\nK=new\n[T]\nx=1\n");
    // A new key goes last in its section, after blank lines, before the next header.
    EXPECT_EQ(change("[S]\na=1\n\n[T]\nx=1\n", "S", "b", "2", 1), "[S]\na=1\n\nb=2\n[T]\nx=1\n");
    EXPECT_EQ(change("[S]\na=1", "T", "x", "9", 1), "[S]\na=1\n[T]\nx=9\n");
    // Only the first section of a name is changed.
    EXPECT_EQ(change("[S]\na=1\n[S]\nb=1\n", "S", "b", "2", 1), "[S]\na=1\nb=2\n[S]\nb=1\n");
}

TEST_F(ProfileWrite, UnclosedHeadersBeforeTheSectionVanish) {
    EXPECT_EQ(change("[bad\n[S]\na=1\n[also bad\n", "S", "a", "2", 1), "[S]\na=2\n[also bad\n");
    // With the section missing, every one of them goes.
    EXPECT_EQ(change("[bad\n[S]\na=1\n[worse\n", "T", "x", "1", 1), "[S]\na=1\n[T]\nx=1\n");
}

TEST_F(ProfileWrite, DeletingReportsOnlyWhatItFoundBeforeAHeader) {
    EXPECT_EQ(change("[S]\na=1\nb=2\n[T]\nx=1\n", "S", "A", nullptr, 1), "[S]\nb=2\n[T]\nx=1\n");
    // A key that is not there: 1 when a section follows, 0 when the section is last.
    EXPECT_EQ(change("[S]\n a=1\n[T]\n", "S", "zz", nullptr, 1), "[S]\na=1\n[T]\n");
    EXPECT_EQ(change("[S]\na=1\n", "S", "zz", nullptr, 0), "[S]\na=1\n");
    EXPECT_EQ(change("[S]\na=1\n", "Q", "zz", nullptr, 0), "[S]\na=1\n[Q]\n");
    // A deleted section keeps its comments; the last one goes although the result is 0.
    EXPECT_EQ(change("[S]\n; keep me\na=1\n\n[T]\nx=1\n", "S", nullptr, nullptr, 1),
              "; keep me\n[T]\nx=1\n");
    EXPECT_EQ(change("[S]\na=1\n[T]\n; c\nx=1\n\n", "t", nullptr, nullptr, 0), "[S]\na=1\n; c\n");
}

TEST_F(ProfileWrite, RewriteKeepsModeAndLinksAndLeavesNoTemporaryFile) {
    std::string target = dir.write("real/p.ini", "[S]\na=1\n");
    ASSERT_EQ(chmod(target.c_str(), 0640), 0);
    std::string link = dir.file("link.ini");
    ASSERT_EQ(symlink(target.c_str(), link.c_str()), 0);
    EXPECT_EQ(WritePrivateProfileString("S", "a", "2", link.c_str()), 1);
    EXPECT_TRUE(std::filesystem::is_symlink(link));
    EXPECT_EQ(readFile(target), "[S]\na=2\n");
    struct stat after {};
    ASSERT_EQ(stat(target.c_str(), &after), 0);
    EXPECT_EQ(after.st_mode & 07777, 0640u);
    EXPECT_EQ(entryCount(), 2) << "no temporary file is left behind";
}

TEST_F(ProfileWrite, FailedRewriteLeavesTheFileAsItWas) {
    // A file size limit makes the rewrite fail as a full disk would; the
    // result still tells what the rewrite found.
    std::string path = dir.write("p.ini", "[S]\na=1\n");
    if (fork() == 0) {
        signal(SIGXFSZ, SIG_IGN);
        rlimit limit{64, 64};
        setrlimit(RLIMIT_FSIZE, &limit);
        _exit(WritePrivateProfileString("S", "a", std::string(500, 'v').c_str(), path.c_str()));
    }
    int status = -1;
    wait(&status);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 1);
    EXPECT_EQ(readFile(path), "[S]\na=1\n");
    EXPECT_EQ(entryCount(), 1);
}

TEST_F(ProfileWrite, ConcurrentWritersLoseNoUpdate) {
    std::string path = dir.file("shared.ini");
    for (int writer = 0; writer < 4; ++writer) {
        if (fork() != 0)
            continue;
        for (int n = 0; n < 10; ++n) {
            std::string key = std::to_string(writer) + "_" + std::to_string(n);
            WritePrivateProfileString("shared", key.c_str(), "1", path.c_str());
        }
        _exit(0);
    }
    for (int status = 0; wait(&status) > 0;)
        EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
    char keys[1024] = {};
    GetPrivateProfileString("shared", nullptr, "", keys, sizeof keys, path.c_str());
    int count = 0;
    for (const char* key = keys; *key; key += strlen(key) + 1)
        ++count;
    EXPECT_EQ(count, 40);
}

// The "devctrl ini" command, run as a user would.
TEST(ProfileTool, ReadsWritesAndNamesWhatIsMissing) {
    TempDir dir;
    const std::string file =
        dir.write("names.ini", "[Name Transfer]\nzr1a00 = 'ZR4A00'\n[MIGRATION]\nzr2b00=ZR4B00\n");
    std::string out, err;
    EXPECT_EQ(runTool("ini get " + file + " 'name transfer' ZR1A00", &out, &err), 0) << err;
    EXPECT_EQ(out, "ZR4A00\n");
    EXPECT_EQ(runTool("ini get " + file + " MIGRATION nothing", &out, &err), 1);
    EXPECT_NE(err.find("no key nothing in section [MIGRATION]"), std::string::npos) << err;

    EXPECT_EQ(runTool("ini set " + file + " MIGRATION zr3c00 ZR4C00", &out, &err), 0) << err;
    // The last section: removed although the library reports 0.
    EXPECT_EQ(runTool("ini delete " + file + " MIGRATION zr2b00", &out, &err), 0) << err;
    EXPECT_EQ(readFile(file), "[Name Transfer]\nzr1a00 = 'ZR4A00'\n[MIGRATION]\nzr3c00=ZR4C00\n");
    EXPECT_EQ(runTool("ini delete " + file + " MIGRATION", &out, &err), 0) << err;
    EXPECT_EQ(readFile(file), "[Name Transfer]\nzr1a00 = 'ZR4A00'\n");
}

}  // namespace
