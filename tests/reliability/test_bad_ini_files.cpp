// SPDX-License-Identifier: MIT
// INI files as editors and transfers leave them. The profile functions report
// nothing by design, so these check that each damaged file reads as the line
// rules say and that a write leaves a file that reads back.

#include <gtest/gtest.h>

#include "devctrl/util/profile.h"
#include "reliability/bad_data_support.h"

namespace {

using devctrl_test::TempDir;

std::string valueOf(const std::string& path, const char* section, const char* key) {
    char value[1024] = {};
    GetPrivateProfileString(section, key, "(none)", value, sizeof value, path.c_str());
    return value;
}

TEST(BadIniFiles, LineEndsBytesAndNulsReadAndWriteBack) {
    TempDir dir;
    for (const std::string& text :
         {std::string("[S]\r\nk = v\r\n[T]\r\nj=w\r\n"), std::string("[S]\nk = v\n[T]\nj=w")}) {
        const std::string path = dir.write("crlf.ini", text);
        EXPECT_EQ(valueOf(path, "S", "k"), "v");
        ASSERT_EQ(WritePrivateProfileString("T", "added", "1", path.c_str()), 1);
        EXPECT_EQ(devctrl_test::readFile(path), "[S]\nk = v\n[T]\nj=w\nadded=1\n");
    }
    const std::string latin = dir.write("latin.ini", "[Cl\xc3\xa9s]\nn\xe9=v\xc3\xa4lue\n");
    EXPECT_EQ(valueOf(latin, "Cl\xc3\xa9s", "n\xe9"), "v\xc3\xa4lue");

    // A NUL ends its line; the lines after it still count.
    const std::string nul = dir.write("nul.ini", std::string("[S]\nk=a\0b\n\0\0\nnext=1\n", 21));
    EXPECT_EQ(valueOf(nul, "S", "k"), "a");
    ASSERT_EQ(WritePrivateProfileString("S", "next", "2", nul.c_str()), 1);
    EXPECT_EQ(valueOf(nul, "S", "k"), "a");
    EXPECT_EQ(valueOf(nul, "S", "next"), "2");
}

TEST(BadIniFiles, LongLinesAreReadInPiecesAndTheNextLinesStillCount) {
    TempDir dir;
    const std::string path =
        dir.write("long.ini", "[S]\nk=" + std::string(3000, 'v') + "\nnext=1\n[" +
                                  std::string(2000, 's') + "]\nlate=2\n");
    // The first piece holds 1023 characters: "k=" and 1021 of the value.
    EXPECT_EQ(valueOf(path, "S", "k"), std::string(1021, 'v'));
    EXPECT_EQ(GetPrivateProfileInt("S", "next", -1, path.c_str()), 1);
}

TEST(BadIniFiles, SectionListingDoesNotOverrunOnAnEmptyValueAtTheLimit) {
    TempDir dir;
    // "abcdef=" fills a 10-byte listing up to its last two places; the empty
    // value's place and the next key must not be written past the end.
    const std::string path = dir.write("edge.ini", "[S]\nabcdef=\nk2=v2\n");
    for (unsigned size = 2; size < 24; ++size) {
        std::vector<char> buffer(size, 'x');
        unsigned length = GetPrivateProfileSection("S", buffer.data(), size, path.c_str());
        ASSERT_LE(length, size - 2) << size;
        // The list ends in a double NUL inside the buffer.
        std::string listed(buffer.begin(), buffer.end());
        EXPECT_NE(listed.find(std::string(2, '\0'), length == 0 ? 0 : length - 1),
                  std::string::npos)
            << size;
    }
}

}  // namespace
