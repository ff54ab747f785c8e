// The in-place text helpers of the profile functions.

#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>
#include <string>
#include <utility>

#include "devctrl/util/profile.h"

namespace {

std::string after(void (*edit)(char*), const char* text) {
    char buffer[64];
    snprintf(buffer, sizeof buffer, "%s", text);
    edit(buffer);
    return buffer;
}

TEST(ProfileText, TrimmingHelpers) {
    EXPECT_EQ(after(rmlead, " \t\r\n key = v "), "key = v ");
    EXPECT_EQ(after(rmlead, "   "), "");
    // rmtrail never removes the first character, blank or not.
    // clang-format off
    for (auto [text, expected] : {std::pair{"value \t\r\n", "value"}, {"   ", " "}, {"\t\n", "\t"},
                                  {" ", ""}, {"\n", ""}, {" a ", " a"}}) {
        // clang-format on
        EXPECT_EQ(after(rmtrail, text), expected) << '"' << text << '"';
    }
    rmlead(nullptr);
    rmtrail(nullptr);
}

TEST(ProfileText, QuotesAndBracketsNeedBothEnds) {
    struct Case {
        int (*strip)(char*);
        const char* text;
        int result;
        const char* left;
    };
    for (const Case& c : {Case{rmquotes, "\"a b\"", 1, "a b"}, Case{rmquotes, "''x''", 1, "'x'"},
                          Case{rmquotes, "\"\"", 1, ""}, Case{rmquotes, "'x\"", 0, "'x\""},
                          Case{rmquotes, "'", 0, "'"}, Case{rmbrackets, "[ A B ]", 1, " A B "},
                          Case{rmbrackets, "[MIGRATION", 0, "[MIGRATION"},
                          Case{rmbrackets, "[]", 1, ""}, Case{rmbrackets, "[", 0, "["}}) {
        char buffer[32];
        snprintf(buffer, sizeof buffer, "%s", c.text);
        EXPECT_EQ(c.strip(buffer), c.result) << c.text;
        EXPECT_STREQ(buffer, c.left) << c.text;
    }
    EXPECT_EQ(rmquotes(nullptr), 0);
    EXPECT_EQ(rmbrackets(nullptr), 0);
}

TEST(ProfileText, StptokSplitsAtDelimiterRuns) {
    char tok[16] = "untouched";
    const char* text = "key==,value";
    const char* rest = stptok(text, tok, sizeof tok, "=,");
    EXPECT_STREQ(tok, "key");
    EXPECT_EQ(rest, text + 6);

    // The last token: the rest is null.
    EXPECT_EQ(stptok("tail", tok, sizeof tok, "="), nullptr);
    EXPECT_STREQ(tok, "tail");
    // Delimiters up to the end: null as well.
    EXPECT_EQ(stptok("key=", tok, sizeof tok, "="), nullptr);
    EXPECT_STREQ(tok, "key");
    // A leading delimiter gives an empty token.
    const char* leading = "=v";
    EXPECT_EQ(stptok(leading, tok, sizeof tok, "="), leading + 1);
    EXPECT_STREQ(tok, "");
}

TEST(ProfileText, StptokLimitsAndNullCases) {
    char tok[4] = "old";
    const char* text = "abcdef=g";
    // A full token leaves the rest where the copy stopped.
    EXPECT_EQ(stptok(text, tok, sizeof tok, "="), text + 3);
    EXPECT_STREQ(tok, "abc");
    // A token size of one or less stores an empty token and returns s.
    strcpy(tok, "old");
    EXPECT_EQ(stptok(text, tok, 1, "="), text);
    EXPECT_STREQ(tok, "");
    // An empty or null input leaves the token untouched.
    strcpy(tok, "old");
    EXPECT_EQ(stptok("", tok, sizeof tok, "="), nullptr);
    EXPECT_EQ(stptok(nullptr, tok, sizeof tok, "="), nullptr);
    EXPECT_EQ(stptok(text, tok, sizeof tok, nullptr), nullptr);
    EXPECT_STREQ(tok, "old");
    EXPECT_EQ(stptok(text, nullptr, sizeof tok, "="), nullptr);
}

}  // namespace
