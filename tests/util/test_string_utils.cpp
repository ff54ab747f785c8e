#include <gtest/gtest.h>

#include "devctrl/util/string_list.h"
#include "devctrl/util/string_utils.h"
#include "devctrl/util/tokenizer.h"

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
