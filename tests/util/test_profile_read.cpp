// Reading values, key lists and section lists.

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <utility>

#include "devctrl/util/profile.h"
#include "support/test_env.h"

namespace {

using devctrl_test::TempDir;

// The first `count` bytes of `buffer`, NULs included.
std::string bytes(const char* buffer, size_t count) {
    return std::string(buffer, count);
}

const char* kNames =
    "; device names\n"
    "[Name Transfer]\n"
    "Key = 'a b'\n"
    "zr1a00=ZR4A00\n"
    "bare\n"
    "[MIGRATION]\n"
    "k=first\n"
    "[Name Transfer]\n"
    "late=hidden\n";

TEST(ProfileRead, KeyModeMatchesCaseAndBlanksAndStripsQuotes) {
    TempDir dir;
    std::string path = dir.write("names.ini", kNames);
    char buffer[64] = {};
    EXPECT_EQ(GetPrivateProfileString("name transfer", "key", "", buffer, 64, path.c_str()), 3u);
    EXPECT_STREQ(buffer, "a b");
    EXPECT_EQ(GetPrivateProfileString("Name Transfer", "ZR1A00", "", buffer, 64, path.c_str()), 6u);
    EXPECT_STREQ(buffer, "ZR4A00");
    // Only the first section of a name is searched, and only up to the next header.
    EXPECT_EQ(GetPrivateProfileString("Name Transfer", "late", "dflt", buffer, 64, path.c_str()),
              4u);
    EXPECT_STREQ(buffer, "dflt");
    EXPECT_EQ(GetPrivateProfileString("Name Transfer", "k", "", buffer, 64, path.c_str()), 0u);
    // A matching line without "=" is not a value.
    EXPECT_EQ(GetPrivateProfileString("Name Transfer", "bare", "d", buffer, 64, path.c_str()), 1u);
    EXPECT_STREQ(buffer, "d");
}

TEST(ProfileRead, DefaultIsTrimmedButNotUsedForAMissingFile) {
    TempDir dir;
    std::string path = dir.write("names.ini", kNames);
    char buffer[16];
    memset(buffer, 'X', sizeof buffer);
    EXPECT_EQ(GetPrivateProfileString("Nope", "k", "  \"x y\"  ", buffer, 16, path.c_str()), 3u);
    EXPECT_STREQ(buffer, "x y");
    // Cut to the buffer before trimming.
    EXPECT_EQ(GetPrivateProfileString("Nope", "k", "abcdefgh", buffer, 5, path.c_str()), 4u);
    EXPECT_STREQ(buffer, "abcd");
    EXPECT_EQ(GetPrivateProfileString("Nope", "k", nullptr, buffer, 16, path.c_str()), 0u);
    EXPECT_STREQ(buffer, "");

    memset(buffer, 'X', sizeof buffer);
    std::string missing = dir.file("missing.ini");
    EXPECT_EQ(GetPrivateProfileString("S", "k", "dflt", buffer, 16, missing.c_str()), 0u);
    EXPECT_STREQ(buffer, "");
}

TEST(ProfileRead, LongValueIsCutAndTerminated) {
    TempDir dir;
    std::string path = dir.write("v.ini", "[S]\nk=abcdefgh\nm=abcd\n");
    char buffer[8];
    memset(buffer, 'X', sizeof buffer);
    EXPECT_EQ(GetPrivateProfileString("S", "k", "", buffer, 5, path.c_str()), 4u);
    EXPECT_EQ(bytes(buffer, 5), bytes("abcd", 5));
    EXPECT_EQ(GetPrivateProfileString("S", "m", "", buffer, 5, path.c_str()), 4u);
    EXPECT_STREQ(buffer, "abcd");
    EXPECT_EQ(GetPrivateProfileString("S", "k", "", buffer, 1, path.c_str()), 0u);
    EXPECT_EQ(buffer[0], '\0');
}

TEST(ProfileRead, SectionListSkipsCommentsAndUnclosedHeaders) {
    TempDir dir;
    std::string path = dir.write("s.ini", "[A]\nx=1\n; [Hidden]\n[Broken\n  [B]  \n");
    char buffer[32];
    memset(buffer, 'X', sizeof buffer);
    EXPECT_EQ(GetPrivateProfileString(nullptr, nullptr, "dflt", buffer, 32, path.c_str()), 3u);
    EXPECT_EQ(bytes(buffer, 5), bytes("A\0B\0", 5));

    std::string none = dir.write("none.ini", "x=1\n");
    EXPECT_EQ(GetPrivateProfileString(nullptr, nullptr, "dflt", buffer, 32, none.c_str()), 0u);
    EXPECT_EQ(buffer[0], '\0');
}

TEST(ProfileRead, ListsAreCutLeavingRoomForTwoNuls) {
    TempDir dir;
    std::string path = dir.write("s.ini", "[Alpha]\n[Beta]\n[Gamma]\n");
    char buffer[16];
    memset(buffer, 'X', sizeof buffer);
    EXPECT_EQ(GetPrivateProfileString(nullptr, nullptr, nullptr, buffer, 10, path.c_str()), 8u);
    EXPECT_EQ(bytes(buffer, 10), bytes("Alpha\0Be\0", 10));
    EXPECT_EQ(buffer[10], 'X');

    std::string keys = dir.write("k.ini", "[S]\nalpha=1\nbeta=2\n");
    memset(buffer, 'X', sizeof buffer);
    EXPECT_EQ(GetPrivateProfileString("S", nullptr, "dflt", buffer, 9, keys.c_str()), 7u);
    EXPECT_EQ(bytes(buffer, 9), bytes("alpha\0b\0", 9));
    // Too small for anything: no default, nothing written past the buffer.
    memset(buffer, 'X', sizeof buffer);
    EXPECT_EQ(GetPrivateProfileString("S", nullptr, "dflt", buffer, 2, keys.c_str()), 0u);
    EXPECT_EQ(bytes(buffer, 3), bytes("\0\0X", 3));
}

TEST(ProfileRead, KeyListStopsAtNextHeaderAndFallsBackToDefault) {
    TempDir dir;
    std::string path =
        dir.write("k.ini", "[S]\nk1=1\n; c\nK2 = 2\n\nnovalue\n[T]\nz=1\n[Empty]\n; only\n");
    char buffer[64];
    memset(buffer, 'X', sizeof buffer);
    EXPECT_EQ(GetPrivateProfileString("s", nullptr, "dflt", buffer, 64, path.c_str()), 13u);
    EXPECT_EQ(bytes(buffer, 15), bytes("k1\0K2\0novalue\0", 15));
    EXPECT_EQ(GetPrivateProfileString("Missing", nullptr, "dflt", buffer, 64, path.c_str()), 4u);
    EXPECT_STREQ(buffer, "dflt");
    EXPECT_EQ(GetPrivateProfileString("Empty", nullptr, "dflt", buffer, 64, path.c_str()), 4u);
    EXPECT_STREQ(buffer, "dflt");
    // An unclosed header names no section but still ends the one before it.
    std::string broken = dir.write("b.ini", "[S]\na=1\n[Broken\nb=2\n");
    EXPECT_EQ(GetPrivateProfileString("S", nullptr, "", buffer, 64, broken.c_str()), 1u);
    EXPECT_EQ(bytes(buffer, 3), bytes("a\0", 3));
    EXPECT_EQ(GetPrivateProfileString("S", "b", "none", buffer, 64, broken.c_str()), 4u);
}

TEST(ProfileRead, WhitespaceOnlyLineRepeatsThePreviousKey) {
    TempDir dir;
    // "\r\n" is not skipped as an empty line; it trims to nothing and has no key
    // of its own.
    std::string path = dir.write("k.ini", "[S]\na=1\n\r\nb=2\n");
    char buffer[32] = {};
    EXPECT_EQ(GetPrivateProfileString("S", nullptr, "", buffer, 32, path.c_str()), 5u);
    EXPECT_EQ(bytes(buffer, 7), bytes("a\0a\0b\0", 7));
}

TEST(ProfileRead, LongLinesAreReadInPieces) {
    TempDir dir;
    std::string path = dir.write("long.ini", "[S]\nk=" + std::string(1100, 'x') + "\n");
    char buffer[2048] = {};
    EXPECT_EQ(GetPrivateProfileString("S", "k", "", buffer, 2048, path.c_str()), 1021u);
    // The rest of the line is a line of its own, with a key and no value.
    EXPECT_EQ(GetPrivateProfileString("S", nullptr, "", buffer, 2048, path.c_str()), 2u + 79u);
    EXPECT_EQ(std::string(buffer + 2), std::string(79, 'x'));
}

TEST(ProfileRead, NullArgumentsAndZeroSizesAreHarmless) {
    TempDir dir;
    std::string path = dir.write("k.ini", "[S]\nk=v\n");
    char buffer[8];
    memset(buffer, 'X', sizeof buffer);
    EXPECT_EQ(GetPrivateProfileString("S", "k", "d", nullptr, 8, path.c_str()), 0u);
    EXPECT_EQ(GetPrivateProfileString("S", "k", "d", buffer, 8, nullptr), 0u);
    EXPECT_EQ(GetPrivateProfileString("S", "k", "d", buffer, 0, path.c_str()), 0u);
    EXPECT_EQ(buffer[0], 'X');
    EXPECT_EQ(GetPrivateProfileSection("S", buffer, 0, path.c_str()), 0u);
    EXPECT_EQ(GetPrivateProfileSection("S", nullptr, 8, path.c_str()), 0u);
    EXPECT_EQ(GetPrivateProfileSection("S", buffer, 8, nullptr), 0u);
    EXPECT_EQ(GetPrivateProfileSection(nullptr, buffer, 8, path.c_str()), 0u);
    EXPECT_EQ(buffer[0], '\0');
    EXPECT_EQ(GetPrivateProfileSection("S", buffer, 1, path.c_str()), 0u);
    EXPECT_EQ(GetPrivateProfileInt("S", "k", 5, nullptr), 5);
}

TEST(ProfileRead, IntTreatsZeroAsMissingUnlessWrittenAsZero) {
    TempDir dir;
    std::string path = dir.write("n.ini",
                                 "[N]\nzero=0\ndouble=00\nminus=-0\nmixed=12abc\nword=abc\n"
                                 "hex=0x10\nlead=05\nneg=-3\nwide=4294967297\nquoted=\"7\"\n");
    const char* file = path.c_str();
    // "-0" reads as 0 and so as missing; "wide" keeps its low 32 bits.
    // clang-format off
    for (auto [key, expected] : {std::pair{"zero", 0}, {"double", 0}, {"minus", 9}, {"mixed", 12},
                                 {"word", 9}, {"hex", 9}, {"lead", 5}, {"neg", -3}, {"wide", 1},
                                 {"quoted", 7}, {"missing", 9}}) {
        // clang-format on
        EXPECT_EQ(GetPrivateProfileInt("N", key, 9, file), expected) << key;
    }
    EXPECT_EQ(GetPrivateProfileInt(nullptr, "zero", 9, file), 9);
    EXPECT_EQ(GetPrivateProfileInt("N", nullptr, 9, file), 9);
}

}  // namespace
