// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <cstring>

#include "devctrl/util/profile.h"
#include "devctrl/util/profile_lines.h"
#include "devctrl/util/string_list.h"
#include "devctrl/util/string_utils.h"
#include "devctrl/util/tokenizer.h"
#include "platform/pm_text.h"

using namespace tarn::vyxpn::util;
using tarn::vyxpn::StringList;

// Every token left in `t`, joined by '|'.
static std::string rest(Tokenizer& t) {
    std::string text;
    while (t.nextToken())
        text += (text.empty() ? "" : "|") + t.getToken();
    return text;
}

TEST(Tokenizer, PerCallDelimitersDoNotStick) {
    Tokenizer t("a,b c,d", " ");
    ASSERT_TRUE(t.nextToken(","));
    EXPECT_EQ(t.getToken(), "a");
    EXPECT_EQ(rest(t), ",b|c,d") << "blanks again, from after \"a\"";
    EXPECT_EQ(t.getToken(), "c,d") << "a failed search keeps the last token";
}

TEST(StringUtils, SplitTrimAndNumbers) {
    EXPECT_EQ(split("a,,b,", ","), (StringList{"a", "b"}));
    EXPECT_EQ(split(",,,", ","), StringList{});
    EXPECT_EQ(trim(" \t\r\n"), "");
    EXPECT_EQ(trim("\va "), "\va");
    // Conversion never throws: it reads the leading number, or 0.
    EXPECT_EQ(parseString<int>("3.9"), 3);
    EXPECT_EQ(parseString<int>(" -7"), -7);
    EXPECT_EQ(parseString<int>("abc"), 0);
}

TEST(StringUtils, EveryTrimCutsOnlyItsOwnCharacters) {
    // The readers differ only in what they cut; each row is one reader's
    // rule on the same awkward text.
    const std::string text = "\v\t a b \r\n\f";
    struct Case {
        std::string_view cut;
        TrimEnds ends;
        std::string expected;
    } cases[] = {
        {kBlanksAndTabs, TrimEnds::Both, text},  // starts and ends with other white space
        {kWhiteSpace, TrimEnds::Both, "a b"},
        {kWhiteSpace, TrimEnds::Leading, "a b \r\n\f"},
        {kWhiteSpace, TrimEnds::Trailing, "\v\t a b"},
        {kBlanksAndLineEnds, TrimEnds::Both, text},
        {kBlanksAndLineEnds, TrimEnds::Trailing, text},
    };
    for (const Case& c : cases)
        EXPECT_EQ(trimmed(text, c.cut, c.ends), c.expected) << static_cast<int>(c.ends);
    EXPECT_EQ(trimmed(" \t x\t "), "x");
    EXPECT_EQ(trimmed(" \t "), "");
    EXPECT_EQ(trim("\r\n a\tb \n"), "a\tb");
}

TEST(StringUtils, ProfileTrimsWorkInPlace) {
    struct Case {
        const char* text;
        std::string lead, trail, both;
    } cases[] = {
        {"  key = v \r\n", "key = v \r\n", "  key = v", "key = v"},
        {" ", "", "", ""},
        // The trailing trim never looks at the first character.
        {"\t\t", "", "\t", ""},
        {"x", "x", "x", "x"},
        {"", "", "", ""},
    };
    for (const Case& c : cases) {
        char buffer[64];
        std::strcpy(buffer, c.text);
        rmlead(buffer);
        EXPECT_EQ(buffer, c.lead) << c.text;
        std::strcpy(buffer, c.text);
        rmtrail(buffer);
        EXPECT_EQ(buffer, c.trail) << c.text;
        std::strcpy(buffer, c.text);
        tarn::vyxpn::util::profile::trimLine(buffer);
        EXPECT_EQ(buffer, c.both) << c.text;
    }
}
