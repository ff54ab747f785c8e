// Setting and deleting keys and sections, and what a rewrite keeps.

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <string>

#include "devctrl/util/profile.h"
#include "support/test_env.h"

namespace {

using devctrl_test::readFile;
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
    EXPECT_EQ(WritePrivateProfileString("S", nullptr, nullptr, path.c_str()), 0);
    EXPECT_FALSE(std::filesystem::exists(path));
    EXPECT_EQ(WritePrivateProfileString("S", "k", "v", path.c_str()), 1);
    EXPECT_EQ(readFile(path), "[S]\nk=v\n");
    EXPECT_EQ(WritePrivateProfileString("S", "k", "v", dir.file("no/such/dir.ini").c_str()), 0);
}

TEST_F(ProfileWrite, ReplacesInsertsAndAppends) {
    // The matching line is replaced, spelled as the caller spells the key.
    EXPECT_EQ(change("[S]\n  k = old  \n[T]\nx=1\n", "s", "K", "new", 1), "[S]\nK=new\n[T]\nx=1\n");
    // A new key goes last in its section, after blank lines, before the next header.
    EXPECT_EQ(change("[S]\na=1\n\n[T]\nx=1\n", "S", "b", "2", 1), "[S]\na=1\n\nb=2\n[T]\nx=1\n");
    // Into the last section: at the end of the file.
    EXPECT_EQ(change("[S]\na=1\n", "S", "b", "2", 1), "[S]\na=1\nb=2\n");
    // A new section goes at the end.
    EXPECT_EQ(change("[S]\na=1", "T", "x", "9", 1), "[S]\na=1\n[T]\nx=9\n");
    // Only the first section of a name is changed.
    EXPECT_EQ(change("[S]\na=1\n[S]\nb=1\n", "S", "b", "2", 1), "[S]\na=1\nb=2\n[S]\nb=1\n");
    // Inside the section an unclosed header ends it like any other.
    EXPECT_EQ(change("[S]\na=1\n[Broken\n", "S", "b", "2", 1), "[S]\na=1\nb=2\n[Broken\n");
}

TEST_F(ProfileWrite, EveryLineIsRewrittenTrimmed) {
    EXPECT_EQ(change("  ; note  \n\t[S]  \n  a=1\t\n \r\n\n[T]\n", "T", "x", "1", 1),
              "; note\n[S]\na=1\n\n\n[T]\nx=1\n");
    // A line longer than the line buffer comes back as two lines.
    std::string longValue(1100, 'x');
    EXPECT_EQ(change("[S]\nk=" + longValue + "\n", "S", "z", "1", 1),
              "[S]\nk=" + std::string(1021, 'x') + "\n" + std::string(79, 'x') + "\nz=1\n");
}

TEST_F(ProfileWrite, UnclosedHeadersBeforeTheSectionVanish) {
    EXPECT_EQ(change("[bad\n[S]\na=1\n[also bad\n", "S", "a", "2", 1), "[S]\na=2\n[also bad\n");
    // With the section missing, every one of them goes.
    EXPECT_EQ(change("[bad\n[S]\na=1\n[worse\n", "T", "x", "1", 1), "[S]\na=1\n[T]\nx=1\n");
}

TEST_F(ProfileWrite, DeletingKeysReportsOnlyWhatItFoundBeforeAHeader) {
    EXPECT_EQ(change("[S]\na=1\nb=2\n[T]\nx=1\n", "S", "A", nullptr, 1), "[S]\nb=2\n[T]\nx=1\n");
    EXPECT_EQ(change("[S]\na=1\n", "S", "a", nullptr, 1), "[S]\n");
    // A key that is not there: 1 when a section follows, 0 when the section is last.
    EXPECT_EQ(change("[S]\n a=1\n[T]\n", "S", "zz", nullptr, 1), "[S]\na=1\n[T]\n");
    EXPECT_EQ(change("[S]\na=1\n", "S", "zz", nullptr, 0), "[S]\na=1\n");
    // In a missing section: the section header is added, and the result is 0.
    EXPECT_EQ(change("[S]\na=1\n", "Q", "zz", nullptr, 0), "[S]\na=1\n[Q]\n");
}

TEST_F(ProfileWrite, DeletingSectionsKeepsTheirComments) {
    EXPECT_EQ(change("[S]\n; keep me\na=1\n\n[T]\nx=1\n", "S", nullptr, nullptr, 1),
              "; keep me\n[T]\nx=1\n");
    // The last section is removed all the same, but the result is 0.
    EXPECT_EQ(change("[S]\na=1\n[T]\n; c\nx=1\n\n", "t", nullptr, nullptr, 0), "[S]\na=1\n; c\n");
    EXPECT_EQ(change("[S]\na=1\n", "Q", nullptr, nullptr, 0), "[S]\na=1\n");
}

TEST_F(ProfileWrite, NullSectionOrPathChangesNothing) {
    std::string path = dir.write("p.ini", "[S]\n a=1\n");
    EXPECT_EQ(WritePrivateProfileString(nullptr, "a", "2", path.c_str()), 0);
    EXPECT_EQ(WritePrivateProfileString("S", "a", "2", nullptr), 0);
    EXPECT_EQ(readFile(path), "[S]\n a=1\n");
}

TEST_F(ProfileWrite, RewriteKeepsModeAndReplacesTheFileWhole) {
    std::string path = dir.write("p.ini", "[S]\na=1\n");
    ASSERT_EQ(chmod(path.c_str(), 0640), 0);
    struct stat before {};
    ASSERT_EQ(stat(path.c_str(), &before), 0);
    EXPECT_EQ(WritePrivateProfileString("S", "a", "2", path.c_str()), 1);
    struct stat after {};
    ASSERT_EQ(stat(path.c_str(), &after), 0);
    EXPECT_EQ(after.st_mode & 07777, 0640u);
    EXPECT_NE(after.st_ino, before.st_ino);
    EXPECT_EQ(entryCount(), 1) << "no temporary file is left behind";
}

TEST_F(ProfileWrite, WritingThroughALinkKeepsTheLink) {
    std::string target = dir.write("real/p.ini", "[S]\na=1\n");
    std::string link = dir.file("link.ini");
    ASSERT_EQ(symlink(target.c_str(), link.c_str()), 0);
    EXPECT_EQ(WritePrivateProfileString("S", "a", "2", link.c_str()), 1);
    EXPECT_TRUE(std::filesystem::is_symlink(link));
    EXPECT_EQ(readFile(target), "[S]\na=2\n");
}

TEST_F(ProfileWrite, FailedRewriteLeavesTheFileAsItWas) {
    // A file size limit makes the rewrite fail as a full disk would.
    std::string path = dir.write("p.ini", "[S]\na=1\n");
    pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        signal(SIGXFSZ, SIG_IGN);
        rlimit limit{64, 64};
        setrlimit(RLIMIT_FSIZE, &limit);
        std::string big(500, 'v');
        _exit(WritePrivateProfileString("S", "a", big.c_str(), path.c_str()) == 1 ? 0 : 1);
    }
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFEXITED(status));
    // The result still tells what the rewrite found.
    EXPECT_EQ(WEXITSTATUS(status), 0);
    EXPECT_EQ(readFile(path), "[S]\na=1\n");
    EXPECT_EQ(entryCount(), 1);
}

}  // namespace
