// Reading values, key lists and section lists.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <string>
#include <utility>
#include <vector>

#include "devctrl/util/profile.h"
#include "support/test_env.h"

namespace {

using devctrl_test::TempDir;

// "count:text" for a read into a buffer of `size` bytes filled with 'X'
// before: the text up to its NUL, or the first `shown` bytes, NULs included.
std::string get(const std::string& path, const char* section, const char* key, const char* dflt,
                unsigned size = 64, size_t shown = 0) {
    std::vector<char> buffer(std::max<size_t>(size, shown) + 1, 'X');
    unsigned count = GetPrivateProfileString(section, key, dflt, buffer.data(), size, path.c_str());
    size_t length = shown ? shown : strnlen(buffer.data(), buffer.size());
    return std::to_string(count) + ":" + std::string(buffer.data(), length);
}

// `text` with '|' standing for NUL.
std::string nuls(std::string text) {
    for (char& c : text)
        if (c == '|')
            c = '\0';
    return text;
}

TEST(ProfileRead, KeyModeMatchesCaseAndBlanksAndStripsQuotes) {
    TempDir dir;
    std::string path =
        dir.write("names.ini",
                  "; device names\n[Name Transfer]\nKey = 'a b'\nzr1a00=ZR4A00\nbare\n"
                  "[MIGRATION]\nk=first\n[Name Transfer]\nlate=hidden\n");
    EXPECT_EQ(get(path, "name transfer", "key", ""), "3:a b");
    EXPECT_EQ(get(path, "Name Transfer", "ZR1A00", ""), "6:ZR4A00");
    // Only the first section of a name is searched, and only up to the next header.
    EXPECT_EQ(get(path, "Name Transfer", "late", "dflt"), "4:dflt");
    EXPECT_EQ(get(path, "Name Transfer", "k", ""), "0:");
    // A matching line without "=" is not a value.
    EXPECT_EQ(get(path, "Name Transfer", "bare", "d"), "1:d");
    // The default is cut to the buffer, then trimmed; a missing file gives nothing.
    EXPECT_EQ(get(path, "Nope", "k", "  \"x y\"  "), "3:x y");
    EXPECT_EQ(get(path, "Nope", "k", "abcdefgh", 5), "4:abcd");
    EXPECT_EQ(get(path, "Nope", "k", nullptr), "0:");
    EXPECT_EQ(get(dir.file("missing.ini"), "S", "k", "dflt"), "0:");
}

TEST(ProfileRead, LongValuesAreCutAndTerminated) {
    TempDir dir;
    std::string path = dir.write("v.ini", "[S]\nk=abcdefgh\nm=abcd\n");
    EXPECT_EQ(get(path, "S", "k", "", 5, 6), nuls("4:abcd|X"));
    EXPECT_EQ(get(path, "S", "m", "", 5), "4:abcd");
    EXPECT_EQ(get(path, "S", "k", "", 1, 2), nuls("0:|X"));
    // A line longer than the line buffer: the rest is a line of its own,
    // with a key and no value.
    std::string longLine = dir.write("long.ini", "[S]\nk=" + std::string(1100, 'x') + "\n");
    EXPECT_EQ(get(longLine, "S", "k", "", 2048), "1021:" + std::string(1021, 'x'));
    EXPECT_EQ(get(longLine, "S", nullptr, "", 2048, 2 + 79),
              "81:" + nuls("k|") + std::string(79, 'x'));
}

TEST(ProfileRead, SectionListSkipsCommentsAndUnclosedHeaders) {
    TempDir dir;
    std::string path = dir.write("s.ini", "[A]\nx=1\n; [Hidden]\n[Broken\n  [B]  \n");
    EXPECT_EQ(get(path, nullptr, nullptr, "dflt", 32, 5), nuls("3:A|B||"));
    std::string none = dir.write("none.ini", "x=1\n");
    EXPECT_EQ(get(none, nullptr, nullptr, "dflt", 32, 1), nuls("0:|"));
}

TEST(ProfileRead, ListsAreCutLeavingRoomForTwoNuls) {
    TempDir dir;
    std::string path = dir.write("s.ini", "[Alpha]\n[Beta]\n[Gamma]\n");
    EXPECT_EQ(get(path, nullptr, nullptr, nullptr, 10, 11), nuls("8:Alpha|Be||X"));
    std::string keys = dir.write("k.ini", "[S]\nalpha=1\nbeta=2\n");
    EXPECT_EQ(get(keys, "S", nullptr, "dflt", 9, 9), nuls("7:alpha|b||"));
    // Too small for anything: no default, nothing written past the buffer.
    EXPECT_EQ(get(keys, "S", nullptr, "dflt", 2, 3), nuls("0:||X"));
}

TEST(ProfileRead, KeyListStopsAtNextHeaderAndFallsBackToDefault) {
    TempDir dir;
    std::string path =
        dir.write("k.ini", "[S]\nk1=1\n; c\nK2 = 2\n\nnovalue\n[T]\nz=1\n[Empty]\n; only\n");
    EXPECT_EQ(get(path, "s", nullptr, "dflt", 64, 15), nuls("13:k1|K2|novalue||"));
    EXPECT_EQ(get(path, "Missing", nullptr, "dflt"), "4:dflt");
    EXPECT_EQ(get(path, "Empty", nullptr, "dflt"), "4:dflt");
    // An unclosed header names no section but still ends the one before it.
    std::string broken = dir.write("b.ini", "[S]\na=1\n[Broken\nb=2\n");
    EXPECT_EQ(get(broken, "S", nullptr, "", 64, 3), nuls("1:a||"));
    EXPECT_EQ(get(broken, "S", "b", "none"), "4:none");
    // "\r\n" is not skipped as an empty line; it trims to nothing and
    // repeats the previous key.
    std::string crlf = dir.write("c.ini", "[S]\na=1\n\r\nb=2\n");
    EXPECT_EQ(get(crlf, "S", nullptr, "", 32, 7), nuls("5:a|a|b||"));
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
