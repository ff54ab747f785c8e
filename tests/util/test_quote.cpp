// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "devctrl/util/quote.h"

using namespace tarn::vyxpn::util;

TEST(QuotedForMessage, EscapesWhatWouldBreakALineOrReachTheTerminal) {
    struct Case {
        std::string value, quoted, escaped;
    };
    const Case cases[] = {
        {"ZR4", "'ZR4'", "ZR4"},
        {"", "''", ""},
        {"TD4\nTD12", "'TD4\\nTD12'", "TD4\\nTD12"},
        {"a\tb\rc", "'a\\tb\\rc'", "a\\tb\\rc"},
        {"\x1b[31mBG100", "'\\x1b[31mBG100'", "\\x1b[31mBG100"},
        {std::string("a\0b", 3), "'a\\x00b'", "a\\x00b"},
        {"\x7f", "'\\x7f'", "\\x7f"},
        {"it's", "'it\\'s'", "it's"},
        {"C:\\n", "'C:\\\\n'", "C:\\\\n"},
        // UTF-8 text stays; an encoded C1 control (here CSI) does not.
        {"\xc3\xa9t\xc3\xa9", "'\xc3\xa9t\xc3\xa9'", "\xc3\xa9t\xc3\xa9"},
        {"x\xc2\x9b"
         "1m",
         "'x\\u009b1m'", "x\\u009b1m"},
        {"\xc2\xa0", "'\xc2\xa0'", "\xc2\xa0"},
        {"\xc2", "'\xc2'", "\xc2"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(quotedForMessage(c.value), c.quoted) << c.quoted;
        EXPECT_EQ(escapedForMessage(c.value), c.escaped) << c.quoted;
    }
}
