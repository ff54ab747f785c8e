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

// "token|rest" after one stptok call on `text` (rest as an offset into
// `text`, or "null"), the token buffer holding "old" before.
std::string tokenAndRest(const char* text, unsigned size, const char* delimiters) {
    char tok[16] = "old";
    const char* rest = stptok(text, tok, size, delimiters);
    return std::string(tok) + "|" + (rest ? std::to_string(rest - text) : "null");
}

TEST(ProfileText, StptokSplitsAtDelimiterRuns) {
    EXPECT_EQ(tokenAndRest("key==,value", 16, "=,"), "key|6");
    EXPECT_EQ(tokenAndRest("tail", 16, "="), "tail|null");  // the last token
    EXPECT_EQ(tokenAndRest("key=", 16, "="), "key|null");   // delimiters up to the end
    EXPECT_EQ(tokenAndRest("=v", 16, "="), "|1");           // a leading delimiter
    // A full token leaves the rest where the copy stopped; a size of one or
    // less stores an empty token and returns the text itself.
    EXPECT_EQ(tokenAndRest("abcdef=g", 4, "="), "abc|3");
    EXPECT_EQ(tokenAndRest("abcdef=g", 1, "="), "|0");
    // An empty or null input leaves the token untouched.
    EXPECT_EQ(tokenAndRest("", 4, "="), "old|null");
    EXPECT_EQ(tokenAndRest("abcdef=g", 4, nullptr), "old|null");
    char tok[4] = "old";
    EXPECT_EQ(stptok(nullptr, tok, sizeof tok, "="), nullptr);
    EXPECT_EQ(stptok("abc", nullptr, sizeof tok, "="), nullptr);
    EXPECT_STREQ(tok, "old");
}

}  // namespace
