// The devctrl tool on installed data that make the library raise its range
// errors: one line on standard error that names the family (or part), a
// non-zero exit, never an abort.

#include <gtest/gtest.h>

#include <algorithm>

#include "reliability/bad_data_support.h"

namespace {

using namespace devctrl_test;

// A listed part whose condition is empty: building the part table fails.
std::string emptyConditionAcd() {
    return "PM_ENABLE = true\n"
           "PART_GENERATE_METHOD = opn\n"
           "PKG_ALIAS = BG10, B10\n"
           "PART_ITEMS = Status\n"
           "PART_DATAS = BQ1-1B10C, BQ1, BG10, 1, , , P\n";
}

// A negative alias index: making a part name fails.
std::string negativeIndexAcd() {
    return cleanDeviceAcd() +
           "PACKAGE_ITEMS = ES, Condition, LUT, PKGIndex\n"
           "PACKAGE_DATAS = BQ1, BG10, No, C, 100, -1 : BQ2, BG10, No, CI, 200, 0\n";
}

long lineCount(const std::string& text) {
    return std::count(text.begin(), text.end(), '\n');
}

TEST(ToolBadData, RangeErrorWhileLoadingNamesTheFamily) {
    for (const std::string& deviceAcd : {emptyConditionAcd(), negativeIndexAcd()}) {
        TempDir dir;
        writeFamily(dir, cleanFamilyKey(), deviceAcd);
        // A healthy family beside it, loaded before the broken one.
        dir.write("bd0a00/family.key",
                  "FAMILY = BDP\nDEVICES = P1\nPACKAGES = P1, BG10\n"
                  "SPEEDS = P1, BG10, 1\n");
        dir.write("bd0a00/device.acd", "PM_ENABLE = true\nPKG_ALIAS = BG10, B10\n");
        std::string out, err;
        int status = runTool("-q --data " + dir.path() + " devices bd0a00", &out, &err);
        EXPECT_EQ(status, 3) << err;
        EXPECT_EQ(lineCount(err), 1) << err;
        EXPECT_NE(err.find("family BDQ (PM bd1a00)"), std::string::npos) << err;
        EXPECT_NE(err.find("error in the installed data"), std::string::npos) << err;
    }
}

TEST(ToolBadData, RangeErrorInAQueryNamesThePart) {
    // The on-board chip's catalogue row lacks the DAC column.
    TempDir dir;
    writeFamily(dir, cleanFamilyKey(),
                cleanDeviceAcd() +
                    "ASC_TYPES = ASC10\n"
                    "PM_ITEMS = ASCStockNum, ASCExtTypes, ASCMaxNum\n"
                    "PM_DATAS = 1, 1, 2\n");
    dir.write("device.acd",
              "ASC_RESOURCE_ITMES = ADC, DAC\nASC_ITMES = ADC, DAC\nASC_DATAS = ASC10, 4\n");
    std::string out, err;
    int status = runTool("-q --data " + dir.path() + " report BQ1-1B10C", &out, &err);
    EXPECT_EQ(status, 3) << err;
    EXPECT_EQ(lineCount(err), 1) << err;
    EXPECT_EQ(err.find("devctrl: part BQ1-1B10C: error in the installed data"), 0u) << err;
}

TEST(ToolBadData, CommandsThatNeedNoFamilyStillWork) {
    TempDir dir;
    writeFamily(dir, cleanFamilyKey(), emptyConditionAcd());
    std::string out, err;
    EXPECT_EQ(runTool("-q --data " + dir.path() + " pms", &out, &err), 0) << err;
    EXPECT_NE(out.find("bd1a00"), std::string::npos) << out;
}

}  // namespace
