// Whole sections as "key=value" lists.

#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "devctrl/util/profile.h"
#include "support/test_env.h"

namespace {

using devctrl_test::TempDir;

std::string bytes(const char* buffer, size_t count) {
    return std::string(buffer, count);
}

class ProfileSection : public ::testing::Test {
  protected:
    void SetUp() override { memset(buffer, 'X', sizeof buffer); }
    unsigned read(const char* content, unsigned size) {
        path = dir.write("s.ini", content);
        return GetPrivateProfileSection("S", buffer, size, path.c_str());
    }
    TempDir dir;
    std::string path;
    char buffer[64];
};

TEST_F(ProfileSection, EntriesInFileOrderWithReadValues) {
    EXPECT_EQ(read("[T]\nz=0\n[S]\nalpha = 1 \n; note\nBeta='two'\n[U]\nq=1\n", 64), 17u);
    EXPECT_EQ(bytes(buffer, 18), bytes("alpha=1\0Beta=two\0", 18));
}

TEST_F(ProfileSection, EmptyValueTakesAnExtraPlace) {
    // The place after "=" reads as the entry's end, the NUL after it as the
    // list's end: callers walking the list stop at an empty value.
    EXPECT_EQ(read("[S]\na=\nb=2\n", 64), 8u);
    EXPECT_EQ(bytes(buffer, 9), bytes("a=\0\0b=2\0", 9));
}

TEST_F(ProfileSection, CutsKeepTwoNulsAtTheEnd) {
    // The key does not fit.
    EXPECT_EQ(read("[S]\nalpha=1\n", 4), 2u);
    EXPECT_EQ(bytes(buffer, 5), bytes("al\0\0X", 5));
    // The key fits, its "=" reaches the end.
    SetUp();
    EXPECT_EQ(read("[S]\nalpha=1\n", 8), 6u);
    EXPECT_EQ(bytes(buffer, 9), bytes("alpha=\0\0X", 9));
    // The value does not fit.
    SetUp();
    EXPECT_EQ(read("[S]\nk=abcdef\n", 8), 6u);
    EXPECT_EQ(bytes(buffer, 9), bytes("k=abcd\0\0X", 9));
    // A second entry that does not fit at all.
    SetUp();
    EXPECT_EQ(read("[S]\nalpha=1\nbeta=2\n", 10), 8u);
    EXPECT_EQ(bytes(buffer, 11), bytes("alpha=1\0\0\0X", 11));
}

TEST_F(ProfileSection, NothingForMissingOrEmptySections) {
    EXPECT_EQ(read("[T]\nk=v\n", 64), 0u);
    EXPECT_EQ(buffer[0], '\0');
    EXPECT_EQ(read("[S]\n; only a comment\n[T]\nk=v\n", 64), 0u);
    std::string missing = dir.file("missing.ini");
    EXPECT_EQ(GetPrivateProfileSection("S", buffer, 64, missing.c_str()), 0u);
}

}  // namespace
