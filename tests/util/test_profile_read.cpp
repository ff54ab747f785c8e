// SPDX-License-Identifier: MIT
// Reading values, key lists, section lists and whole sections.

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

// "count:bytes" after a read into a buffer of `size` bytes filled with 'X'
// before: the text up to its NUL, or the first `shown` bytes, NULs included.
// A null key with `wholeSection` reads the section as "key=value" entries.
std::string get(const std::string& path, const char* section, const char* key, const char* dflt,
                unsigned size = 64, size_t shown = 0, bool wholeSection = false) {
    std::vector<char> buffer(std::max<size_t>(size, shown) + 1, 'X');
    unsigned count =
        wholeSection
            ? GetPrivateProfileSection(section, buffer.data(), size, path.c_str())
            : GetPrivateProfileString(section, key, dflt, buffer.data(), size, path.c_str());
    size_t length = shown ? shown : strnlen(buffer.data(), buffer.size());
    return std::to_string(count) + ":" + std::string(buffer.data(), length);
}

// `text` with '|' standing for NUL.
std::string nuls(std::string text) {
    std::replace(text.begin(), text.end(), '|', '\0');
    return text;
}

TEST(ProfileRead, KeyModeMatchesCaseAndBlanksAndStripsQuotes) {
    TempDir dir;
    std::string path = dir.write("names.ini",
                                 "[Name Transfer]\nKey = 'a b'\nbare\n[MIGRATION]\nk=first\n"
                                 "[Name Transfer]\nlate=hidden\n");
    EXPECT_EQ(get(path, "name transfer", "key", ""), "3:a b");
    // Only the first section of a name is searched, and only up to the next header.
    EXPECT_EQ(get(path, "Name Transfer", "late", "dflt"), "4:dflt");
    EXPECT_EQ(get(path, "Name Transfer", "bare", "d"), "1:d");  // no "=": not a value
    // The default is cut to the buffer, then trimmed; a missing file gives nothing.
    EXPECT_EQ(get(path, "Nope", "k", "  \"x y\"  "), "3:x y");
    EXPECT_EQ(get(path, "Nope", "k", "abcdefgh", 5), "4:abcd");
    EXPECT_EQ(get(dir.file("missing.ini"), "S", "k", "dflt"), "0:");
    // A value of eight characters in five bytes.
    std::string longValue = dir.write("v.ini", "[S]\nk=abcdefgh\n");
    EXPECT_EQ(get(longValue, "S", "k", "", 5, 6), nuls("4:abcd|X"));
}

TEST(ProfileRead, ListsEndInTwoNulsAndCutListsCountSizeMinusTwo) {
    TempDir dir;
    std::string path = dir.write("s.ini", "[A]\nx=1\n; [Hidden]\n[Broken\n  [B]  \n");
    EXPECT_EQ(get(path, nullptr, nullptr, "dflt", 32, 5), nuls("3:A|B||"));
    std::string three = dir.write("t.ini", "[Alpha]\n[Beta]\n[Gamma]\n");
    EXPECT_EQ(get(three, nullptr, nullptr, nullptr, 10, 11), nuls("8:Alpha|Be||X"));
    std::string keys = dir.write("k.ini", "[S]\nalpha=1\nbeta=2\n");
    EXPECT_EQ(get(keys, "S", nullptr, "dflt", 9, 9), nuls("7:alpha|b||"));
    // Too small for anything: no default, nothing written past the buffer.
    EXPECT_EQ(get(keys, "S", nullptr, "dflt", 2, 3), nuls("0:||X"));
    // Key lists stop at the next header; an empty section gives the default.
    std::string nested = dir.write("k2.ini", "[S]\nk1=1\n; c\nK2 = 2\nnovalue\n[T]\nz=1\n[E]\n");
    EXPECT_EQ(get(nested, "s", nullptr, "dflt", 64, 15), nuls("13:k1|K2|novalue||"));
    EXPECT_EQ(get(nested, "E", nullptr, "dflt"), "4:dflt");
    // A lone "\r" trims to nothing and repeats the previous key.
    std::string crlf = dir.write("c.ini", "[S]\na=1\n\r\nb=2\n");
    EXPECT_EQ(get(crlf, "S", nullptr, "", 32, 7), nuls("5:a|a|b||"));
}

TEST(ProfileRead, SectionEntriesAndTheirCuts) {
    TempDir dir;
    auto section = [&](const char* content, unsigned size, size_t shown) {
        return get(dir.write("s.ini", content), "S", nullptr, nullptr, size, shown, true);
    };
    EXPECT_EQ(section("[T]\nz=0\n[S]\nalpha = 1 \n; note\nBeta='two'\n", 64, 18),
              nuls("17:alpha=1|Beta=two||"));
    // The place after "=" of an empty value ends the entry.
    EXPECT_EQ(section("[S]\na=\nb=2\n", 64, 9), nuls("8:a=||b=2||"));
    // The key does not fit; key and "=" just fit; the value does not fit.
    EXPECT_EQ(section("[S]\nalpha=1\n", 4, 5), nuls("2:al||X"));
    EXPECT_EQ(section("[S]\nalpha=1\n", 8, 9), nuls("6:alpha=||X"));
    EXPECT_EQ(section("[S]\nk=abcdef\n", 8, 9), nuls("6:k=abcd||X"));
    // An empty value right at the limit once pushed the next key past the end.
    EXPECT_EQ(section("[S]\nabcdef=\nk2=v2\n", 10, 11), nuls("8:abcdef=|||X"));
    EXPECT_EQ(section("[T]\nk=v\n", 64, 1), nuls("0:|"));
}

TEST(ProfileRead, IntTreatsZeroAsMissingUnlessWrittenAsZero) {
    TempDir dir;
    std::string path = dir.write("n.ini",
                                 "[N]\nzero=0\ndouble=00\nminus=-0\nmixed=12abc\n"
                                 "hex=0x10\nlead=05\nwide=4294967297\n");
    // clang-format off
    for (auto [key, expected] : {std::pair{"zero", 0}, {"double", 0}, {"minus", 9}, {"mixed", 12},
                                 {"hex", 9}, {"lead", 5}, {"wide", 1}, {"missing", 9}})
        // clang-format on
        EXPECT_EQ(GetPrivateProfileInt("N", key, 9, path.c_str()), expected) << key;
    // Null buffers and zero sizes are harmless.
    char buffer[8] = "XXXXXXX";
    EXPECT_EQ(GetPrivateProfileString("N", "zero", "d", nullptr, 8, path.c_str()), 0u);
    EXPECT_EQ(GetPrivateProfileString("N", "zero", "d", buffer, 0, path.c_str()), 0u);
    EXPECT_EQ(GetPrivateProfileSection("N", buffer, 0, path.c_str()), 0u);
    EXPECT_EQ(buffer[0], 'X');
}

}  // namespace
