#include <gtest/gtest.h>

#include "support/test_env.h"

using devctrl_test::runTool;
using devctrl_test::TempDir;

namespace {

// One family, ZR1 (zr1a00): ZR4 in QF48 (conditions I and C, suffixes none
// and ES) and in BG100 (automotive); ZR12 in BG100, obsolete.
struct SelectionInstall {
    TempDir dir;
    SelectionInstall() {
        dir.write("zr1a00/family.key",
                  "FAMILY = ZR1\nDEVICES = ZR4, ZR12\n"
                  "PACKAGES = ZR4, QF48, BG100 : ZR12, BG100\n"
                  "SPEEDS = ZR4, QF48, 6 : ZR4, BG100, 6, 7 : ZR12, BG100, 6\n");
        dir.write("zr1a00/device.acd",
                  "PM_ENABLE = true\nPKG_ALIAS = BG100, B100\n"
                  "DEVICE_ITEMS = Status, ASCMaxNum\nDEVICE_DATAS = ZR4, P, 0 : ZR12, O, 2\n"
                  "PACKAGE_ITEMS = ES, Condition\n"
                  "PACKAGE_DATAS = ZR4, QF48, No|ES, IC : ZR4, BG100, No, A : "
                  "ZR12, BG100, No, C\n");
    }
    std::string run(const std::string& args, std::string* out, std::string* err = nullptr) const {
        return std::to_string(runTool("--data " + dir.path() + " " + args, out, err));
    }
};

}  // namespace

TEST(ToolSelection, ListsAndFilters) {
    SelectionInstall install;
    std::string out, err;
    EXPECT_EQ(install.run("devices zr1a00", &out), "0");
    EXPECT_EQ(out, "ZR4\n");
    EXPECT_EQ(install.run("devices zr1 --all", &out), "0") << "a family name in any case";
    EXPECT_EQ(out, "ZR4\nZR12\n");
    EXPECT_EQ(install.run("packages ZR1 ZR4", &out), "0");
    EXPECT_EQ(out, "QF48\nBG100\n");
    EXPECT_EQ(install.run("speeds zr1a00 ZR4 BG100", &out), "0");
    EXPECT_EQ(out, "6\n7\n");
    EXPECT_EQ(install.run("conditions zr1a00 ZR4 QF48 6", &out), "0");
    EXPECT_EQ(out, "COM\nIND\n");
    EXPECT_EQ(install.run("--json conditions zr1a00 ZR12 BG100 6 --all", &out), "0");
    EXPECT_EQ(out, "[\n    \"COM\"\n]\n");
    EXPECT_EQ(install.run("conditions zr1a00 ZR12 BG100 6 --asc-only", &out), "0");
    EXPECT_EQ(out, "") << "only the obsolete ZR12 can take ASC chips";

    EXPECT_EQ(install.run("parts zr1a00 'zr4-*qf*' --condition C", &out), "0");
    EXPECT_EQ(out, "ZR4-6QF48C\nZR4-6QF48CES\n");
    EXPECT_EQ(install.run("parts zr1a00 --condition E --speed 7", &out), "0");
    EXPECT_EQ(out, "ZR4-7B100E\n");
    EXPECT_EQ(install.run("parts zr1a00 '*ES' 'ZR12*' --all --package BG100", &out), "0");
    EXPECT_EQ(out, "ZR12-6B100C\n");
    EXPECT_EQ(install.run("parts zr1a00 --condition X", &out, &err), "1");
    EXPECT_NE(err.find("unknown condition 'X'"), std::string::npos) << err;
}

TEST(ToolSelection, PartItemAndExists) {
    SelectionInstall install;
    std::string out, err;
    EXPECT_EQ(install.run("--json part ZR4-7B100E", &out), "0");
    EXPECT_EQ(
        out,
        "{\n    \"condition\": \"AUTO\",\n    \"device\": \"ZR4\",\n    \"family\": \"ZR1\",\n"
        "    \"package\": \"BG100\",\n    \"part\": \"ZR4-7B100E\",\n    \"pm\": \"zr1a00\",\n"
        "    \"speed\": \"7\"\n}\n");
    EXPECT_EQ(install.run("item ZR12-6B100C Status", &out), "0");
    EXPECT_EQ(out, "O\n");
    EXPECT_EQ(install.run("item ZR12-6B100C Nothing --default none", &out), "0");
    EXPECT_EQ(out, "none\n");

    EXPECT_EQ(install.run("exists ZR4-6QF48CES", &out), "0");
    EXPECT_EQ(out, "");
    EXPECT_EQ(install.run("exists zr4-6qf48ces", &out), "1");
    EXPECT_EQ(out, "");
    EXPECT_EQ(install.run("--json exists ZR4-6QF48CES", &out), "0");
    EXPECT_EQ(out, "true\n");
}

TEST(ToolSelection, UnknownNamesSuggestTheClosestKnownOnes) {
    SelectionInstall install;
    std::string out, err;
    EXPECT_EQ(install.run("part zr4-6qf48c", &out, &err), "1");
    EXPECT_EQ(err, "devctrl: unknown part 'zr4-6qf48c'; did you mean ZR4-6QF48C?\n");
    EXPECT_EQ(install.run("item ZR4-6QF48 Status", &out, &err), "1");
    EXPECT_EQ(err, "devctrl: unknown part 'ZR4-6QF48'; did you mean ZR4-6QF48C, ZR4-6QF48I?\n");
    EXPECT_EQ(install.run("part XYZ", &out, &err), "1");
    EXPECT_EQ(err, "devctrl: unknown part 'XYZ'\n");
    EXPECT_EQ(install.run("devices zr1a01", &out, &err), "1");
    EXPECT_EQ(err, "devctrl: unknown PM or family 'zr1a01'; did you mean zr1a00?\n");
    EXPECT_EQ(install.run("packages zr1a00 zr4", &out, &err), "1");
    EXPECT_EQ(err, "devctrl: unknown device 'zr4' in zr1a00; did you mean ZR4?\n");
    EXPECT_EQ(install.run("conditions zr1a00 ZR4 QF48 8", &out, &err), "1");
    EXPECT_EQ(err, "devctrl: unknown speed grade '8' in zr1a00; did you mean 6?\n");
}
