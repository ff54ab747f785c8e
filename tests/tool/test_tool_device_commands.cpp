#include <gtest/gtest.h>

#include <regex>

#include "support/test_env.h"

using devctrl_test::runTool;

namespace {

// Runs the tool on the shipped sample installation.
int runOnSample(const std::string& args, std::string* out = nullptr, std::string* err = nullptr) {
    return runTool(std::string("-q --data ") + DEVCTRL_TEST_SAMPLE_DATA + " " + args, out, err);
}

// Each command's exit status and lines its output must hold (regular
// expressions over whole lines, standard output and error together).
TEST(ToolDeviceCommands, ReportValidateCheckSettingsAndAsc) {
    struct Case {
        const char* args;
        int status;
        std::vector<const char*> lines;
    };
    const Case cases[] = {
        // Two ASC20 on board plus one linked ASC10: ADC 2*8+4, DAC 2*2+1, GPIO 2*16+8.
        {"report ZR25-6F256C --asc ASC10", 0, {"ADC +20", "DAC +5", "GPIO +40"}},
        {"report ZR99-6F256C", 1, {"devctrl: unknown part: ZR99-6F256C"}},
        {"validate ZR25-6F256C --asc ASC10 --asc ASC20", 0, {"valid"}},
        {"validate ZR4-6QF48C --asc ASC10",
         1,
         {"Can't add external ASC chip for device 'ZR4-6QF48C'\\."}},
        {"check ZR4-6QF48CES", 0, {"result +replaced", "use +ZR4-6QF48C"}},
        {"check ZR150-7F676C", 0, {"result +not recommended", "use +ZR200-7F676C"}},
        {"--json check ZR7-6Q48C", 0, {".*\"code\": 3,?", ".*\"use\": \"ZR17-6Q48C\",?"}},
        {"check ZQ40-9B256C", 1, {"result +unknown"}},
        {"settings ZR40-6F256C",
         0,
         {"default synthesis +precision", "asc max +4", "asc on board +none"}},
        {"settings ZR300-6FG900CES", 0, {"bitgen +no"}},
        {"settings ZR99-6F256C", 1, {"devctrl: unknown part: ZR99-6F256C"}},
        {"asc chips", 0, {"ASC10", "ASC20  \\(default\\)", "ASC40"}},
        {"asc value ASC20 GPIO", 0, {"16"}},
        {"asc value ASC20 Volts", 1, {}},
        {"asc part ZR150-6FG1156C",
         0,
         {"on board  ASC20 x1, ASC40 x1", "linkable  ASC10, ASC20, ASC40"}},
        {"dump zz9z99", 1, {"devctrl: unknown PM or family 'zz9z99'"}},
    };
    for (const Case& c : cases) {
        std::string out, err;
        EXPECT_EQ(runOnSample(c.args, &out, &err), c.status) << c.args;
        for (const char* line : c.lines)
            EXPECT_TRUE(
                std::regex_search(out + err, std::regex("(^|\n)" + std::string(line) + "\n")))
                << c.args << " lacks " << line << " in:\n"
                << out << err;
    }
    // "check" names no replacement for an unknown part.
    std::string out;
    runOnSample("check ZQ40-9B256C", &out);
    EXPECT_EQ(out.find("use"), std::string::npos);
}

TEST(ToolDeviceCommands, WriteSdsAndDump) {
    devctrl_test::TempDir dir;
    std::string file = dir.file("zr5b00.sds");
    ASSERT_EQ(runOnSample("write-sds zr5b00 " + file), 0);
    EXPECT_EQ(devctrl_test::readFile(file).rfind("[Device Support]\nTitle = zr5b00\n", 0), 0u);
    std::string out, err;
    EXPECT_EQ(runOnSample("write-sds zr5b00 " + dir.file("no/such/dir.sds"), nullptr, &err), 1);
    EXPECT_EQ(err, "devctrl: could not write " + dir.file("no/such/dir.sds") + "\n");
    EXPECT_EQ(runOnSample("write-sds zz9z99 " + file, nullptr, &err), 1);
    ASSERT_EQ(runOnSample("dump zr5b00", &out), 0);
    EXPECT_EQ(out.rfind("PM Name is zr5b00\nPackage alias:\n", 0), 0u);
}

}  // namespace
