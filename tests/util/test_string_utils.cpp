#include <gtest/gtest.h>

#include "devctrl/util/string_utils.h"
#include "devctrl/util/tokenizer.h"

using namespace tarn::vyxpn::util;
using Strings = std::vector<std::string>;

// Every token left in `t`, joined by '|'.
std::string rest(Tokenizer& t) {
    std::string text;
    while (t.nextToken())
        text += (text.empty() ? "" : "|") + t.getToken();
    return text;
}

TEST(Tokenizer, DefaultDelimitersAreBlanksOnly) {
    Tokenizer tabs("a\tb");
    EXPECT_EQ(rest(tabs), "a\tb");
    Tokenizer blanks("  x  y ");
    EXPECT_EQ(rest(blanks), "x|y");
    EXPECT_EQ(blanks.getToken(), "y") << "a failed search keeps the last token";
    blanks.reset();
    EXPECT_EQ(rest(blanks), "x|y");
    Tokenizer whole("rest of it", "");
    EXPECT_EQ(rest(whole), "rest of it");
}

TEST(Tokenizer, PerCallDelimitersDoNotReplaceStoredOnes) {
    Tokenizer t("a,b c,d", " ");
    ASSERT_TRUE(t.nextToken(","));
    EXPECT_EQ(t.getToken(), "a");
    EXPECT_EQ(rest(t), ",b|c,d") << "blanks again, from after \"a\"";
}

TEST(StringUtils, SplitDropsEmptyFields) {
    EXPECT_EQ(split("a,,b,", ","), (Strings{"a", "b"}));
    EXPECT_EQ(split("", ","), Strings{});
    EXPECT_EQ(split(",,,", ","), Strings{});
    EXPECT_EQ(split("a", ","), Strings{"a"});
    EXPECT_EQ(split("No|ES", "|"), (Strings{"No", "ES"}));
}

TEST(StringUtils, TrimTouchesOnlyBlankTabCrLf) {
    EXPECT_EQ(trim(" \t\r\n"), "");
    EXPECT_EQ(trim("\va "), "\va");
    EXPECT_EQ(trimLeft("  a b  "), "a b  ");
    EXPECT_EQ(trimRight("  a b \r\n"), "  a b");
    EXPECT_EQ(trim("x"), "x");
}

TEST(StringUtils, CaseFoldingAndLookup) {
    EXPECT_EQ(toLower("ZR12-6bg100C"), "zr12-6bg100c");
    EXPECT_EQ(toUpper("zr12-6bg100c"), "ZR12-6BG100C");
    EXPECT_EQ(indexOf({"A", "B", "A"}, "A"), 0);
    EXPECT_EQ(indexOf({"A", "B", "A"}, "B"), 1);
    EXPECT_EQ(indexOf({"A"}, "a"), -1);
    EXPECT_EQ(indexOf({}, "A"), -1);
}

TEST(StringUtils, NumberConversionNeverThrows) {
    EXPECT_EQ(parseString<int>("042"), 42);
    EXPECT_EQ(parseString<int>("3.9"), 3);
    EXPECT_EQ(parseString<int>("12ab"), 12);
    EXPECT_EQ(parseString<int>(" -7"), -7);
    EXPECT_EQ(parseString<int>(""), 0);
    EXPECT_EQ(parseString<int>("abc"), 0);
    EXPECT_EQ(toString<int>(-15), "-15");
    EXPECT_EQ(toString<int>(0), "0");
}
