// The in-place text helpers of the profile functions.

#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>
#include <string>

#include "devctrl/util/profile.h"

namespace {

std::string after(void (*edit)(char*), const char* text) {
    char buffer[64];
    snprintf(buffer, sizeof buffer, "%s", text);
    edit(buffer);
    return buffer;
}

TEST(ProfileText, RmleadRemovesLeadingWhitespaceOnly) {
    EXPECT_EQ(after(rmlead, " \t\r\n key = v "), "key = v ");
    EXPECT_EQ(after(rmlead, "   "), "");
    EXPECT_EQ(after(rmlead, "x"), "x");
    rmlead(nullptr);
}

TEST(ProfileText, RmtrailNeverRemovesTheFirstCharacter) {
    EXPECT_EQ(after(rmtrail, "value \t\r\n"), "value");
    EXPECT_EQ(after(rmtrail, "   "), " ");
    EXPECT_EQ(after(rmtrail, "\t\n"), "\t");
    EXPECT_EQ(after(rmtrail, " "), "");
    EXPECT_EQ(after(rmtrail, "\n"), "");
    EXPECT_EQ(after(rmtrail, " a "), " a");
    // The usual pairing with rmlead always ends with nothing left.
    char blanks[] = "    ";
    rmtrail(blanks);
    rmlead(blanks);
    EXPECT_STREQ(blanks, "");
    rmtrail(nullptr);
}

TEST(ProfileText, RmquotesRemovesOneMatchingPair) {
    char doubled[] = "\"a b\"";
    EXPECT_EQ(rmquotes(doubled), 1);
    EXPECT_STREQ(doubled, "a b");
    char single[] = "''x''";
    EXPECT_EQ(rmquotes(single), 1);
    EXPECT_STREQ(single, "'x'");
    char empty[] = "\"\"";
    EXPECT_EQ(rmquotes(empty), 1);
    EXPECT_STREQ(empty, "");
    char mixed[] = "'x\"";
    EXPECT_EQ(rmquotes(mixed), 0);
    EXPECT_STREQ(mixed, "'x\"");
    char lone[] = "'";
    EXPECT_EQ(rmquotes(lone), 0);
    EXPECT_STREQ(lone, "'");
    EXPECT_EQ(rmquotes(nullptr), 0);
}

TEST(ProfileText, RmbracketsNeedsBothEnds) {
    char header[] = "[ Name Transfer ]";
    EXPECT_EQ(rmbrackets(header), 1);
    EXPECT_STREQ(header, " Name Transfer ");
    char open[] = "[MIGRATION";
    EXPECT_EQ(rmbrackets(open), 0);
    EXPECT_STREQ(open, "[MIGRATION");
    char pair[] = "[]";
    EXPECT_EQ(rmbrackets(pair), 1);
    EXPECT_STREQ(pair, "");
    char lone[] = "[";
    EXPECT_EQ(rmbrackets(lone), 0);
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

TEST(ProfileText, FilecopyCopiesAllBlocksAndReturnsTheLast) {
    std::string content(1300, 'x');
    for (size_t i = 0; i < content.size(); ++i)
        content[i] = static_cast<char>('a' + i % 26);
    FILE* source = tmpfile();
    FILE* dest = tmpfile();
    ASSERT_TRUE(source && dest);
    fwrite(content.data(), 1, content.size(), source);
    rewind(source);
    EXPECT_EQ(filecopy(dest, source), 1300 - 2 * 512);
    rewind(dest);
    std::string copied(content.size() + 10, '\0');
    copied.resize(fread(copied.data(), 1, copied.size(), dest));
    EXPECT_EQ(copied, content);
    EXPECT_EQ(filecopy(nullptr, source), 0);
    EXPECT_EQ(filecopy(dest, nullptr), 0);
    fclose(source);
    fclose(dest);
}

}  // namespace
