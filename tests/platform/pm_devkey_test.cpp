#include <gtest/gtest.h>

#include <string>

#include "platform/pm_devkey.h"
#include "platform/pm_pic.h"
#include "support/test_env.h"

using devctrl_test::TempDir;
using devctrl_test::TraceCapture;

namespace {

std::string valueOf(const PM_DEVKEY& keys, const char* key) {
    const char* value = keys.getkeyeddata(key);
    return value ? value : "<absent>";
}

}  // namespace

TEST(PmDevkey, ReadsKeysCommentsAndReplacements) {
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
        "LAST = no newline",
        "mem");
    EXPECT_EQ(valueOf(keys, "PM_ENABLE"), "true");
    EXPECT_EQ(valueOf(keys, "A"), "2");  // later line replaces, CR dropped
    EXPECT_EQ(valueOf(keys, "a"), "lower");
    EXPECT_EQ(valueOf(keys, "EMPTY"), "");
    EXPECT_EQ(valueOf(keys, "EQ"), "x = y");  // cut at the first '='
    EXPECT_EQ(valueOf(keys, "LAST"), "no newline");
    EXPECT_EQ(valueOf(keys, "# comment"), "<absent>");
    EXPECT_EQ(valueOf(keys, "MISSING"), "<absent>");
    EXPECT_EQ(keys.getkeyeddata(nullptr), nullptr);
    EXPECT_EQ(keys.size(), 6u);
}

TEST(PmDevkey, JoinsContinuationLines) {
    PM_DEVKEY keys = PM_DEVKEY::fromText(
        "DEVICES = ZR4, ZR12, \\\r\n"
        "          ZR25, \\\n"
        "   # ZR40 \\  \n"
        "\tZR90\n"
        "# comment ending in backslash \\\n"
        "NEXT = 1\n"
        "TAIL = open \\",
        "mem");
    EXPECT_EQ(valueOf(keys, "DEVICES"), "ZR4, ZR12, ZR25, # ZR40 ZR90");
    EXPECT_EQ(valueOf(keys, "NEXT"), "1");
    EXPECT_EQ(valueOf(keys, "TAIL"), "open");
}

TEST(PmDevkey, TracesMalformedLinesAndGoesOn) {
    TraceCapture trace;
    PM_DEVKEY keys = PM_DEVKEY::fromText("A = 1\nno equals here\n\nB = 2\nBROKEN \\\n still\n",
                                         "/data/zr1a00/family.key");
    EXPECT_EQ(valueOf(keys, "A"), "1");
    EXPECT_EQ(valueOf(keys, "B"), "2");
    ASSERT_EQ(trace.lines().size(), 2u);
    EXPECT_EQ(trace.lines()[0], "/data/zr1a00/family.key:2: malformed line skipped (no '=')");
    EXPECT_EQ(trace.lines()[1], "/data/zr1a00/family.key:5: malformed line skipped (no '=')");
}

TEST(PmDevkey, NulByteEndsItsLineOnly) {
    std::string text = std::string("A = ab") + '\0' + "cd\nB = 2\n" + '\0' + "junk\nC = 3";
    PM_DEVKEY keys = PM_DEVKEY::fromText(text, "mem");
    EXPECT_EQ(valueOf(keys, "A"), "ab");
    EXPECT_EQ(valueOf(keys, "B"), "2");
    EXPECT_EQ(valueOf(keys, "C"), "3");
}

TEST(PmDevkey, ReadsFilesAndTreatsUnreadableAsEmpty) {
    TempDir dir;
    std::string path = dir.write("device.acd", "PKG_ALIAS = BG100, B100 : QF48, Q48\n");
    PM_DEVKEY keys(path.c_str());
    EXPECT_EQ(keys.path(), path);
    EXPECT_EQ(valueOf(keys, "PKG_ALIAS"), "BG100, B100 : QF48, Q48");

    EXPECT_EQ(PM_DEVKEY(dir.file("missing.acd").c_str()).size(), 0u);
    EXPECT_EQ(PM_DEVKEY(dir.path().c_str()).size(), 0u);  // a directory
    EXPECT_EQ(PM_DEVKEY(static_cast<const char*>(nullptr)).size(), 0u);
}

TEST(PmDevkey, OpensFileThroughFamilyHandle) {
    TempDir data;
    data.write("zr1a00/family.key", "FAMILY = ZR1\n");
    data.write("zr1a00/device.acd", "PM_ENABLE = true\n");
    devctrl_test::DataDirScope scope(data.path());

    PM_PIC_HDL handle("zr1", nullptr, nullptr);  // family name, any case
    ASSERT_TRUE(handle.valid());
    EXPECT_EQ(handle.pm(), "zr1a00");
    EXPECT_EQ(valueOf(PM_DEVKEY("device.acd", handle, 1, 0, 0), "PM_ENABLE"), "true");

    handle.kill();
    EXPECT_FALSE(handle.valid());
    EXPECT_EQ(PM_DEVKEY("device.acd", handle, 1, 0, 0).size(), 0u);
    EXPECT_FALSE(PM_PIC_HDL("nope", nullptr, nullptr).valid());
}
