#include <gtest/gtest.h>

#include <string>
#include <vector>

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

using Shape = std::vector<std::vector<std::string>>;

// Every record of `key` as the list of its fields, walked the way the
// loaders walk it.
Shape shapeOf(const PM_DEVKEY* keys, const char* key, char recordSep, char fieldSep) {
    Shape shape;
    for (PM_DEVKEY_KEYITER it(keys, key, recordSep, fieldSep, 0); it.record();
         it.setupNextIAndJ()) {
        std::vector<std::string>& fields = shape.emplace_back();
        for (; it.field(); it.advanceToNextJ())
            fields.emplace_back(it.field());
    }
    return shape;
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
        "NUL = ab" +
            std::string(1, '\0') +
            "cd\n"
            "TAIL = open \\",
        "mem");
    EXPECT_EQ(valueOf(keys, "PM_ENABLE"), "true");
    EXPECT_EQ(valueOf(keys, "A"), "2");  // later line replaces, CR dropped
    EXPECT_EQ(valueOf(keys, "a"), "lower");
    EXPECT_EQ(valueOf(keys, "EMPTY"), "");
    EXPECT_EQ(valueOf(keys, "EQ"), "x = y");  // cut at the first '='
    EXPECT_EQ(valueOf(keys, "DEVICES"), "ZR4, ZR12, ZR25, # ZR40 ZR90");
    EXPECT_EQ(valueOf(keys, "NUL"), "ab");  // a NUL byte ends its line only
    EXPECT_EQ(valueOf(keys, "TAIL"), "open");
    EXPECT_EQ(valueOf(keys, "# comment"), "<absent>");
    EXPECT_EQ(valueOf(keys, "MISSING"), "<absent>");
    EXPECT_EQ(keys.getkeyeddata(nullptr), nullptr);
    EXPECT_EQ(keys.size(), 8u);
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

TEST(PmDevkey, IteratorCutsRecordsAndFieldsKeepingEmptyOnes) {
    const PM_DEVKEY keys = PM_DEVKEY::fromText(
        "RECORDS = BG100, B100 :\tQF48 ,Q48 , \n"
        "GAPS = a,,b : : , \n"
        "BLANK =  \t \n"
        "LIST = ZR4, ZR12 ,,ZR25\n",
        "mem");
    EXPECT_EQ(shapeOf(&keys, "RECORDS", ':', ','), (Shape{{"BG100", "B100"}, {"QF48", "Q48", ""}}));
    // An empty record has no field; " , " is two empty fields.
    EXPECT_EQ(shapeOf(&keys, "GAPS", ':', ','), (Shape{{"a", "", "b"}, {}, {"", ""}}));
    // Field separator 0 keeps each record whole.
    EXPECT_EQ(shapeOf(&keys, "LIST", ',', 0), (Shape{{"ZR4"}, {"ZR12"}, {}, {"ZR25"}}));
    for (const char* absent : {"MISSING", "BLANK"})
        EXPECT_TRUE(shapeOf(&keys, absent, ':', ',').empty()) << absent;
    EXPECT_TRUE(shapeOf(nullptr, "RECORDS", ':', ',').empty());
    EXPECT_TRUE(shapeOf(&keys, nullptr, ':', ',').empty());
}

TEST(PmDevkey, ReadsFilesDirectlyOrThroughAFamilyHandle) {
    TempDir data;
    data.write("zr1a00/family.key", "FAMILY = ZR1\n");
    std::string path = data.write("zr1a00/device.acd", "PKG_ALIAS = BG100, B100 : QF48, Q48\n");
    EXPECT_EQ(valueOf(PM_DEVKEY(path.c_str()), "PKG_ALIAS"), "BG100, B100 : QF48, Q48");
    // Unreadable means empty.
    EXPECT_EQ(PM_DEVKEY(data.file("missing.acd").c_str()).size(), 0u);
    EXPECT_EQ(PM_DEVKEY(data.path().c_str()).size(), 0u);  // a directory
    EXPECT_EQ(PM_DEVKEY(static_cast<const char*>(nullptr)).size(), 0u);

    devctrl_test::DataDirScope scope(data.path());
    PM_PIC_HDL handle("zr1", nullptr, nullptr);  // family name, any case
    ASSERT_TRUE(handle.valid());
    EXPECT_EQ(valueOf(PM_DEVKEY("device.acd", handle, 1, 0, 0), "PKG_ALIAS"),
              "BG100, B100 : QF48, Q48");
    handle.kill();
    EXPECT_EQ(PM_DEVKEY("device.acd", handle, 1, 0, 0).size(), 0u);
    EXPECT_FALSE(PM_PIC_HDL("nope", nullptr, nullptr).valid());
}
