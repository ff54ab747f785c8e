// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/pm_devkey.h"
#include "support/test_env.h"

using devctrl_test::TraceCapture;

namespace {

std::string valueOf(const PM_DEVKEY& keys, const char* key) {
    const char* value = keys.getkeyeddata(key);
    return value ? value : "<absent>";
}

}  // namespace

TEST(PmDevkey, ReadsKeysCommentsContinuationsAndReplacements) {
    PM_DEVKEY keys = PM_DEVKEY::fromText(
        "# comment = not a key\n"
        "   \t# indented comment\n"
        "\n"
        "  PM_ENABLE \t=  true \t\n"
        "A=1\r\n"
        "A = 2\r\n"
        "a = lower\n"
        "EMPTY =\n"
        "EQ = x = y\n"
        "DEVICES = ZR4, ZR12, \\\r\n"
        "          ZR25, \\\n"
        "   # ZR40 \\  \n"
        "\tZR90\n"
        "# comment ending in backslash \\\n"
        "TAIL = open \\",
        "mem");
    EXPECT_EQ(valueOf(keys, "PM_ENABLE"), "true");
    EXPECT_EQ(valueOf(keys, "A"), "2");  // later line replaces, CR dropped
    EXPECT_EQ(valueOf(keys, "a"), "lower");
    EXPECT_EQ(valueOf(keys, "EMPTY"), "");
    EXPECT_EQ(valueOf(keys, "EQ"), "x = y");  // cut at the first '='
    EXPECT_EQ(valueOf(keys, "DEVICES"), "ZR4, ZR12, ZR25, # ZR40 ZR90");
    EXPECT_EQ(valueOf(keys, "TAIL"), "open");
    EXPECT_EQ(valueOf(keys, "# comment"), "<absent>");
    EXPECT_EQ(keys.getkeyeddata(nullptr), nullptr);
    EXPECT_EQ(keys.size(), 7u);
}

TEST(PmDevkey, TracesMalformedLinesWithFileAndLineAndGoesOn) {
    TraceCapture trace;
    PM_DEVKEY keys = PM_DEVKEY::fromText("A = 1\nno equals here\n\nB = 2\nBROKEN \\\n still\n",
                                         "/data/zr1a00/family.key");
    EXPECT_EQ(valueOf(keys, "A"), "1");
    EXPECT_EQ(valueOf(keys, "B"), "2");
    EXPECT_EQ(trace.lines(), (std::vector<std::string>{
                                 "/data/zr1a00/family.key:2: malformed line skipped (no '=')",
                                 "/data/zr1a00/family.key:5: malformed line skipped (no '=')"}));
}
