#include <gtest/gtest.h>

#include <algorithm>

#include "devctrl/mngr/comparators.h"

using tarn::vyxpn::PKGSTRgreater;
using tarn::vyxpn::STRgreater;
using Strings = std::vector<std::string>;

namespace {

// Each pair is in order: the first sorts before the second and not back.
using Ordered = std::pair<std::string, std::string>;

TEST(STRgreater, NumbersCompareAsNumbersAndLaterNumbersOverrideLetters) {
    // Equal numbers: the shorter text first; QF48 before BG100 by pins.
    // clang-format off
    for (const auto& [before, after] : std::vector<Ordered>{
             {"ZR4", "ZR12"}, {"ZR12A", "ZR12B"}, {"ZR", "ZR1"}, {"ZR7", "ZR007"}, {"-6", "-7"},
             {"-7", "-12"}, {"ZRB7", "ZRA9"}, {"ZR12-6BG100C", "ZR12-7BG100C"},
             {"ZR12-7QF48C", "ZR12-7BG100C"}}) {
        // clang-format on
        EXPECT_TRUE(STRgreater(before, after)) << before << " < " << after;
        EXPECT_FALSE(STRgreater(after, before)) << before << " < " << after;
    }
    EXPECT_TRUE(STRgreater("ZR1", "ZRA")) << "a digit against a letter compares as a character";
}

TEST(PKGSTRgreater, LastDigitRunDecidesFirst) {
    // Without digits the letters decide; a proper prefix sorts first.
    // clang-format off
    for (const auto& [before, after] : std::vector<Ordered>{
             {"QF48", "BG100"}, {"BG256", "FT256"}, {"BG100", "CSP"}, {"M2BG64", "BG100"},
             {"A10B2", "A1B3"}, {"BG", "BGA"}, {"", "BG"}}) {
        // clang-format on
        EXPECT_TRUE(PKGSTRgreater(before, after)) << before << " < " << after;
        EXPECT_FALSE(PKGSTRgreater(after, before)) << before << " < " << after;
    }
}

TEST(Comparators, EqualAndHugeNamesAreNeitherBefore) {
    for (const std::string& text :
         Strings{"", "ZR12", "BG100", "CSP", "ZR" + std::string(40, '9')}) {
        EXPECT_FALSE(STRgreater(text, text)) << text;
        EXPECT_FALSE(PKGSTRgreater(text, text)) << text;
    }
    // A number too long for an int counts as the largest int.
    const std::string huge = "ZR" + std::string(40, '9');
    EXPECT_TRUE(STRgreater("ZR1", huge));
    EXPECT_TRUE(STRgreater("ZR2147483646", huge));
    EXPECT_TRUE(STRgreater("ZR2147483647", huge));  // equal numbers: the shorter first
    EXPECT_FALSE(STRgreater(huge, "ZR2147483647"));
    EXPECT_TRUE(PKGSTRgreater("BG100", "BG" + std::string(30, '1')));
    EXPECT_TRUE(PKGSTRgreater("AB" + std::string(30, '1'), "BG2147483647"));
}

TEST(Comparators, SortRealisticLists) {
    Strings devices{"ZR150", "ZR4", "ZR100", "ZR12", "ZR25E", "ZR25", "ZR7", "ZR40"};
    tarn::vyxpn::sortNatural(devices);
    EXPECT_EQ(devices, (Strings{"ZR4", "ZR7", "ZR12", "ZR25", "ZR25E", "ZR40", "ZR100", "ZR150"}));
    Strings packages{"FT256", "BG100", "QF48", "BG256", "CS121", "M2BG64"};
    tarn::vyxpn::sortPackages(packages);
    EXPECT_EQ(packages, (Strings{"QF48", "M2BG64", "BG100", "CS121", "BG256", "FT256"}));
}

TEST(Comparators, SortingAnInconsistentListStaysInRange) {
    // BG100 < CSP (letters), CSP < QF48 (letters), QF48 < BG100 (pins): a cycle.
    Strings packages;
    for (int i = 0; i < 200; ++i)
        packages.insert(packages.end(), {"CSP", "QF48", "BG100"});
    tarn::vyxpn::sortPackages(packages);
    EXPECT_EQ(packages.size(), 600u);
    EXPECT_EQ(std::count(packages.begin(), packages.end(), "CSP"), 200);
}

}  // namespace
