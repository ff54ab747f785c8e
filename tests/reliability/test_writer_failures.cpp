// Writers and the tool facing what they cannot handle: an unwritable target
// leaves nothing behind, and the tool says in one line which file or which
// family's installed data stopped it.

#include <gtest/gtest.h>

#include <algorithm>

#include "reliability/bad_data_support.h"

namespace {

using namespace devctrl_test;

// Written beside the target and renamed: a target under a file leaves
// nothing behind and the file intact.
TEST(WriterFailures, ToolNamesTheFileItCouldNotWriteAndLeavesNothing) {
    TempDir dir;
    writeFamily(dir, cleanFamilyKey(), cleanDeviceAcd());
    const std::string target = dir.file("bd1a00/device.acd/out.sds");
    std::string out, err;
    EXPECT_EQ(runTool("-q --data " + dir.path() + " write-sds bd1a00 " + target, &out, &err), 1);
    EXPECT_EQ(err, "devctrl: could not write " + target + "\n");
    EXPECT_EQ(listDirectory(dir.file("bd1a00")),
              (std::vector<std::string>{"device.acd", "family.key"}));
    EXPECT_EQ(readFile(dir.file("bd1a00/device.acd")), cleanDeviceAcd());
}

// Range errors the library raises on bad installed data while a command
// runs: one line on standard error naming the part, exit status 3, never an
// abort. (Those raised while a family loads leave that family out.)
TEST(WriterFailures, ToolRangeErrorIsOneLineNamingTheFamilyOrPart) {
    const std::string ascAcd = cleanDeviceAcd() +
                               "ASC_TYPES = ASC10\nPM_ITEMS = ASCStockNum, ASCExtTypes, ASCMaxNum\n"
                               "PM_DATAS = 1, 1, 2\n";
    const struct {
        std::string deviceAcd, command, expected;
    } cases[] = {
        // The on-board chip's catalogue row lacks the DAC column.
        {ascAcd, "report BQ1-1B10C", "part BQ1-1B10C"},
    };
    for (const auto& c : cases) {
        TempDir dir;
        writeFamily(dir, cleanFamilyKey(), c.deviceAcd);
        // A healthy family beside it, loaded before the broken one.
        dir.write("bd0a00/family.key",
                  "FAMILY = BDP\nDEVICES = P1\nPACKAGES = P1, BG10\nSPEEDS = P1, BG10, 1\n");
        dir.write("bd0a00/device.acd", "PM_ENABLE = true\nPKG_ALIAS = BG10, B10\n");
        dir.write("device.acd",
                  "ASC_RESOURCE_ITMES = ADC, DAC\nASC_ITMES = ADC, DAC\nASC_DATAS = ASC10, 4\n");
        std::string out, err;
        EXPECT_EQ(runTool("-q --data " + dir.path() + " " + c.command, &out, &err), 3) << err;
        EXPECT_EQ(std::count(err.begin(), err.end(), '\n'), 1) << err;
        EXPECT_EQ(err.find("devctrl: " + c.expected + ": error in the installed data"), 0u) << err;
        // Commands that need no family still work.
        EXPECT_EQ(runTool("-q --data " + dir.path() + " pms", &out), 0);
    }
}

}  // namespace
