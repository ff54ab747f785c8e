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
    // "count:" and the first `shown` bytes of a buffer of `size` filled with
    // 'X' before reading section S of `content`.
    std::string read(const char* content, unsigned size, size_t shown) {
        char buffer[64];
        memset(buffer, 'X', sizeof buffer);
        path = dir.write("s.ini", content);
        unsigned count = GetPrivateProfileSection("S", buffer, size, path.c_str());
        return std::to_string(count) + ":" + std::string(buffer, shown);
    }
    TempDir dir;
    std::string path;
};

TEST_F(ProfileSection, EntriesInFileOrderWithReadValues) {
    EXPECT_EQ(read("[T]\nz=0\n[S]\nalpha = 1 \n; note\nBeta='two'\n[U]\nq=1\n", 64, 18),
              bytes("17:alpha=1\0Beta=two\0", 21));
    // The place after "=" reads as the entry's end, the NUL after it as the
    // list's end: callers walking the list stop at an empty value.
    EXPECT_EQ(read("[S]\na=\nb=2\n", 64, 9), bytes("8:a=\0\0b=2\0", 11));
}

TEST_F(ProfileSection, CutsKeepTwoNulsAtTheEnd) {
    // The key does not fit; the key fits with its "=" at the end; the value
    // does not fit; a second entry does not fit at all.
    EXPECT_EQ(read("[S]\nalpha=1\n", 4, 5), bytes("2:al\0\0X", 7));
    EXPECT_EQ(read("[S]\nalpha=1\n", 8, 9), bytes("6:alpha=\0\0X", 11));
    EXPECT_EQ(read("[S]\nk=abcdef\n", 8, 9), bytes("6:k=abcd\0\0X", 11));
    EXPECT_EQ(read("[S]\nalpha=1\nbeta=2\n", 10, 11), bytes("8:alpha=1\0\0\0X", 13));
}

TEST_F(ProfileSection, NothingForMissingOrEmptySections) {
    EXPECT_EQ(read("[T]\nk=v\n", 64, 1), bytes("0:\0", 3));
    EXPECT_EQ(read("[S]\n; only a comment\n[T]\nk=v\n", 64, 0), "0:");
    char buffer[8];
    std::string missing = dir.file("missing.ini");
    EXPECT_EQ(GetPrivateProfileSection("S", buffer, 8, missing.c_str()), 0u);
}

}  // namespace
