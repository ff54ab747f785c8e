// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <algorithm>

#include "devctrl/util/comparators.h"
#include "devctrl/util/string_list.h"

using tarn::vyxpn::PKGSTRgreater;
using tarn::vyxpn::STRgreater;
using tarn::vyxpn::StringList;

namespace {

// Each pair is in order: the first sorts before the second and not back.
using Ordered = std::vector<std::pair<std::string, std::string>>;

TEST(NaturalOrder, NamesNumbersAndPackages) {
    // Equal numbers: the shorter text first. A later number overrides letters.
    for (const auto& [before, after] : Ordered{{"ZR4", "ZR12"},
                                               {"ZR7", "ZR007"},
                                               {"ZRB7", "ZRA9"},
                                               {"ZR12-7QF48C", "ZR12-7BG100C"}}) {
        EXPECT_TRUE(STRgreater(before, after)) << before << " < " << after;
        EXPECT_FALSE(STRgreater(after, before)) << before << " < " << after;
    }
    // Packages: the last digit run (pins) first, then letters; a prefix first.
    for (const auto& [before, after] :
         Ordered{{"QF48", "BG100"}, {"BG256", "FT256"}, {"M2BG64", "BG100"}, {"", "BG"}}) {
        EXPECT_TRUE(PKGSTRgreater(before, after)) << before << " < " << after;
        EXPECT_FALSE(PKGSTRgreater(after, before)) << before << " < " << after;
    }
}

TEST(NaturalOrder, HugeNumbersCountAsTheLargestInt) {
    const std::string huge = "ZR" + std::string(40, '9');
    EXPECT_FALSE(STRgreater(huge, huge));
    EXPECT_TRUE(STRgreater("ZR2147483647", huge));  // equal numbers: the shorter first
    EXPECT_FALSE(STRgreater(huge, "ZR2147483647"));
    EXPECT_TRUE(PKGSTRgreater("AB" + std::string(30, '1'), "BG2147483647"));
}

TEST(NaturalOrder, SortingAnInconsistentListStaysInRange) {
    // BG100 < CSP (letters), CSP < QF48 (letters), QF48 < BG100 (pins): a cycle.
    StringList packages;
    for (int i = 0; i < 200; ++i)
        packages.insert(packages.end(), {"CSP", "QF48", "BG100"});
    tarn::vyxpn::sortPackages(packages);
    EXPECT_EQ(packages.size(), 600u);
    EXPECT_EQ(std::count(packages.begin(), packages.end(), "CSP"), 200);
}

}  // namespace
