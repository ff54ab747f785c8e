#include <gtest/gtest.h>

#include <algorithm>

#include "devctrl/mngr/comparators.h"

using tarn::vyxpn::PKGSTRgreater;
using tarn::vyxpn::STRgreater;
using Strings = std::vector<std::string>;

TEST(STRgreater, NumbersCompareAsNumbers) {
    EXPECT_TRUE(STRgreater("ZR4", "ZR12"));
    EXPECT_FALSE(STRgreater("ZR12", "ZR4"));
    EXPECT_TRUE(STRgreater("ZR12A", "ZR12B"));
    EXPECT_TRUE(STRgreater("ZR", "ZR1"));
    EXPECT_TRUE(STRgreater("ZR7", "ZR007")) << "equal numbers: the shorter text first";
    EXPECT_FALSE(STRgreater("ZR007", "ZR7"));
    EXPECT_TRUE(STRgreater("-6", "-7"));
    EXPECT_TRUE(STRgreater("-7", "-12"));
    EXPECT_TRUE(STRgreater("ZR1", "ZRA")) << "a digit against a letter compares as a character";
}

TEST(STRgreater, LaterNumberOverridesEarlierLetter) {
    EXPECT_TRUE(STRgreater("ZRB7", "ZRA9"));
    EXPECT_FALSE(STRgreater("ZRA9", "ZRB7"));
    EXPECT_TRUE(STRgreater("ZR12-6BG100C", "ZR12-7BG100C"));
    EXPECT_TRUE(STRgreater("ZR12-7QF48C", "ZR12-7BG100C")) << "48 pins before 100";
}

TEST(Comparators, EqualStringsAreNeitherBefore) {
    for (const char* text : {"", "ZR12", "BG100", "CSP"}) {
        EXPECT_FALSE(STRgreater(text, text)) << text;
        EXPECT_FALSE(PKGSTRgreater(text, text)) << text;
    }
}

TEST(STRgreater, SortsARealisticDeviceList) {
    Strings devices{"ZR150", "ZR4", "ZR100", "ZR12", "ZR25E", "ZR25", "ZR7", "ZR40"};
    tarn::vyxpn::sortNatural(devices);
    EXPECT_EQ(devices,
              (Strings{"ZR4", "ZR7", "ZR12", "ZR25", "ZR25E", "ZR40", "ZR100", "ZR150"}));
}

TEST(PKGSTRgreater, LastDigitRunDecidesFirst) {
    EXPECT_TRUE(PKGSTRgreater("QF48", "BG100"));
    EXPECT_TRUE(PKGSTRgreater("BG256", "FT256"));
    EXPECT_FALSE(PKGSTRgreater("FT256", "BG256"));
    EXPECT_TRUE(PKGSTRgreater("BG100", "CSP")) << "no digits: the letters decide";
    EXPECT_TRUE(PKGSTRgreater("M2BG64", "BG100"));
    EXPECT_TRUE(PKGSTRgreater("A10B2", "A1B3"));
    EXPECT_TRUE(PKGSTRgreater("BG", "BGA")) << "a proper prefix sorts first";
    EXPECT_FALSE(PKGSTRgreater("BG", "")) << "an empty second name is never after";
    EXPECT_TRUE(PKGSTRgreater("", "BG"));
}

TEST(PKGSTRgreater, SortsARealisticPackageList) {
    Strings packages{"FT256", "BG100", "QF48", "BG256", "CS121", "M2BG64"};
    tarn::vyxpn::sortPackages(packages);
    EXPECT_EQ(packages, (Strings{"QF48", "M2BG64", "BG100", "CS121", "BG256", "FT256"}));
}

TEST(Comparators, SortingAnInconsistentListStaysInRange) {
    // BG100 < CSP (letters), CSP < QF48 (letters), QF48 < BG100 (pins): a cycle.
    Strings packages;
    for (int i = 0; i < 200; ++i) packages.insert(packages.end(), {"CSP", "QF48", "BG100"});
    tarn::vyxpn::sortPackages(packages);
    EXPECT_EQ(packages.size(), 600u);
    EXPECT_EQ(std::count(packages.begin(), packages.end(), "CSP"), 200);
}

TEST(Comparators, HugeDigitRunsDoNotCrash) {
    std::string huge = "ZR" + std::string(40, '9');
    EXPECT_FALSE(STRgreater(huge, huge));
    EXPECT_FALSE(PKGSTRgreater(huge, huge));
    (void)STRgreater(huge, "ZR1");
    (void)PKGSTRgreater("BG" + std::string(30, '1'), "BG100");
}
