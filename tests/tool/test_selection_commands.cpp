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
};

struct Case {
    const char* args;
    int status;
    const char* output;  // standard output and error together
};

void runCases(std::initializer_list<Case> cases) {
    SelectionInstall install;
    for (const Case& c : cases) {
        std::string out, err;
        EXPECT_EQ(runTool("--data " + install.dir.path() + " " + c.args, &out, &err), c.status)
            << c.args << ": " << err;
        EXPECT_EQ(out + err, c.output) << c.args;
    }
}

}  // namespace

TEST(ToolSelection, ListsAndFilters) {
    runCases({
        {"devices zr1a00", 0, "ZR4\n"},
        {"devices zr1 --all", 0, "ZR4\nZR12\n"},  // a family name in any case
        {"packages ZR1 ZR4", 0, "QF48\nBG100\n"},
        {"--json conditions zr1a00 ZR12 BG100 6 --all", 0, "[\n    \"COM\"\n]\n"},
        {"conditions zr1a00 ZR12 BG100 6 --asc-only", 0, ""},  // only the obsolete ZR12 takes ASC
        {"parts zr1a00 'zr4-*qf*' --condition C", 0, "ZR4-6QF48C\nZR4-6QF48CES\n"},
        {"parts zr1a00 --condition E --speed 7", 0, "ZR4-7B100E\n"},
        {"parts zr1a00 '*ES' 'ZR12*' --all --package BG100", 0, "ZR12-6B100C\n"},
        {"parts zr1a00 --condition X", 1,
         "devctrl: unknown condition 'X'; use C, I, A (or E), COM, IND or AUTO\n"},
    });
}

TEST(ToolSelection, PartItemAndExists) {
    runCases({
        {"--json part ZR4-7B100E", 0,
         "{\n    \"condition\": \"AUTO\",\n    \"device\": \"ZR4\",\n    \"family\": \"ZR1\",\n"
         "    \"package\": \"BG100\",\n    \"part\": \"ZR4-7B100E\",\n    \"pm\": \"zr1a00\",\n"
         "    \"speed\": \"7\"\n}\n"},
        {"item ZR12-6B100C Status", 0, "O\n"},
        {"item ZR12-6B100C Nothing --default none", 0, "none\n"},
        {"exists ZR4-6QF48CES", 0, ""},
        {"exists zr4-6qf48ces", 1, ""},
        {"--json exists ZR4-6QF48CES", 0, "true\n"},
    });
}

TEST(ToolSelection, UnknownNamesSuggestTheClosestKnownOnes) {
    runCases({
        {"part zr4-6qf48c", 1, "devctrl: unknown part 'zr4-6qf48c'; did you mean ZR4-6QF48C?\n"},
        {"item ZR4-6QF48 Status", 1,
         "devctrl: unknown part 'ZR4-6QF48'; did you mean ZR4-6QF48C, ZR4-6QF48I?\n"},
        {"part XYZ", 1, "devctrl: unknown part 'XYZ'\n"},
        {"devices zr1a01", 1, "devctrl: unknown PM or family 'zr1a01'; did you mean zr1a00?\n"},
        {"packages zr1a00 zr4", 1, "devctrl: unknown device 'zr4' in zr1a00; did you mean ZR4?\n"},
        {"conditions zr1a00 ZR4 QF48 8", 1,
         "devctrl: unknown speed grade '8' in zr1a00; did you mean 6?\n"},
    });
}
