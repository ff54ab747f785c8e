#include <gtest/gtest.h>

#include <regex>

#include "support/test_env.h"

using devctrl_test::runTool;

namespace {

// Runs the tool on the shipped sample installation.
int runOnSample(const std::string& args, std::string* out = nullptr, std::string* err = nullptr) {
    return runTool(std::string("-q --data ") + DEVCTRL_TEST_SAMPLE_DATA + " " + args, out, err);
}

bool hasLine(const std::string& text, const std::string& pattern) {
    return std::regex_search(text, std::regex("(^|\n)" + pattern + "\n"));
}

TEST(ToolDeviceCommands, ReportAddsLinkedChipsToOnBoardChips) {
    std::string out;
    // Two ASC20 on board plus one linked ASC10: ADC 2*8+4, DAC 2*2+1, GPIO 2*16+8.
    ASSERT_EQ(runOnSample("report ZR25-6F256C --asc ASC10", &out), 0);
    EXPECT_TRUE(hasLine(out, "ADC +20")) << out;
    EXPECT_TRUE(hasLine(out, "DAC +5")) << out;
    EXPECT_TRUE(hasLine(out, "GPIO +40")) << out;
    // The device rows come before the ASC sums.
    EXPECT_LT(out.find("Logic Cells"), out.find("ADC"));

    std::string err;
    EXPECT_EQ(runOnSample("report ZR99-6F256C", &out, &err), 1);
    EXPECT_EQ(err, "devctrl: unknown part: ZR99-6F256C\n");
}

TEST(ToolDeviceCommands, ValidateTellsTheLibrarysMessage) {
    std::string out;
    EXPECT_EQ(runOnSample("validate ZR25-6F256C --asc ASC10 --asc ASC20", &out), 0);
    EXPECT_EQ(out, "valid\n");
    EXPECT_EQ(runOnSample("validate ZR25-6F256C --asc ASC10 --asc ASC10 --asc ASC20", &out), 1);
    EXPECT_EQ(out,
              "Total external linked ASC chips number 2 for device 'ZR25-6F256C' will be "
              "exceeded\n");
    EXPECT_EQ(runOnSample("validate ZR4-6QF48C --asc ASC10", &out), 1);
    EXPECT_EQ(out, "Can't add external ASC chip for device 'ZR4-6QF48C'.\n");
    EXPECT_EQ(runOnSample("validate ZR99", &out), 1);
    EXPECT_EQ(out, "ZR99 is invalid device or not supported\n");
}

TEST(ToolDeviceCommands, CheckNamesTheNameToUse) {
    std::string out;
    EXPECT_EQ(runOnSample("check ZR4-6QF48CES", &out), 0);
    EXPECT_TRUE(hasLine(out, "result +replaced")) << out;
    EXPECT_TRUE(hasLine(out, "use +ZR4-6QF48C")) << out;
    EXPECT_EQ(runOnSample("check ZR150-7F676C", &out), 0);
    EXPECT_TRUE(hasLine(out, "result +not recommended")) << out;
    EXPECT_TRUE(hasLine(out, "use +ZR200-7F676C")) << out;
    EXPECT_EQ(runOnSample("--json check ZR7-6Q48C", &out), 0);  // migrated
    EXPECT_NE(out.find("\"code\": 3"), std::string::npos) << out;
    EXPECT_NE(out.find("\"use\": \"ZR17-6Q48C\""), std::string::npos) << out;
    EXPECT_EQ(runOnSample("check ZQ40-9B256C", &out), 1);
    EXPECT_TRUE(hasLine(out, "result +unknown")) << out;
    EXPECT_EQ(out.find("use"), std::string::npos);
}

TEST(ToolDeviceCommands, SettingsAndAscCapacity) {
    std::string out;
    ASSERT_EQ(runOnSample("settings ZR40-6F256C", &out), 0);
    EXPECT_TRUE(hasLine(out, "default synthesis +precision")) << out;
    EXPECT_TRUE(hasLine(out, "asc max +4")) << out;
    EXPECT_TRUE(hasLine(out, "asc on board +none")) << out;
    ASSERT_EQ(runOnSample("settings ZR300-6FG900CES", &out), 0);
    EXPECT_TRUE(hasLine(out, "bitgen +no")) << out;

    std::string err;
    EXPECT_EQ(runOnSample("settings ZR99-6F256C", &out, &err), 1);
    EXPECT_EQ(err, "devctrl: unknown part: ZR99-6F256C\n");
}

TEST(ToolDeviceCommands, AscCatalogueAndPartChips) {
    std::string out;
    ASSERT_EQ(runOnSample("asc chips", &out), 0);
    EXPECT_EQ(out, "ASC10\nASC20  (default)\nASC40\n");
    ASSERT_EQ(runOnSample("asc value ASC20 GPIO", &out), 0);
    EXPECT_EQ(out, "16\n");
    EXPECT_EQ(runOnSample("asc value ASC20 Volts", &out), 1);
    ASSERT_EQ(runOnSample("asc part ZR150-6FG1156C", &out), 0);
    EXPECT_EQ(out, "on board  ASC20 x1, ASC40 x1\nlinkable  ASC10, ASC20, ASC40\n");
}

TEST(ToolDeviceCommands, WriteSdsAndDump) {
    devctrl_test::TempDir dir;
    std::string file = dir.file("zr5b00.sds");
    ASSERT_EQ(runOnSample("write-sds zr5b00 " + file), 0);
    EXPECT_EQ(devctrl_test::readFile(file).rfind("[Device Support]\nTitle = zr5b00\n", 0), 0u);
    std::string err;
    EXPECT_EQ(runOnSample("write-sds zr5b00 " + dir.file("no/such/dir.sds"), nullptr, &err), 1);
    EXPECT_EQ(err, "devctrl: could not write " + dir.file("no/such/dir.sds") + "\n");
    EXPECT_EQ(runOnSample("write-sds zz9z99 " + file, nullptr, &err), 1);

    std::string out;
    ASSERT_EQ(runOnSample("dump zr5b00", &out), 0);
    EXPECT_EQ(out.rfind("PM Name is zr5b00\nPackage alias:\n", 0), 0u);
    EXPECT_EQ(runOnSample("dump zz9z99", &out, &err), 1);
    EXPECT_EQ(err, "devctrl: unknown PM or family 'zz9z99'\n");
}

}  // namespace
