// SPDX-License-Identifier: MIT
// Writers and the tool facing what they cannot handle: an unwritable target
// leaves nothing behind, and the tool says in one line which file or which
// family's installed data stopped it.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

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
    EXPECT_EQ(err, "devctrl: cannot write " + target + ": Not a directory\n");
    EXPECT_EQ(listDirectory(dir.file("bd1a00")),
              (std::vector<std::string>{"device.acd", "family.key"}));
    EXPECT_EQ(readFile(dir.file("bd1a00/device.acd")), cleanDeviceAcd());
}

TEST(WriterFailures, ManagerNamesAPmThatIsNotLoadedAndWritesNothing) {
    TempDir dir;
    writeFamily(dir, cleanFamilyKey(), cleanDeviceAcd());
    DataDirScope scope(dir.path());
    auto& mngr = *tarn::vyxpn::TarnDeviceMngr::getInstance();
    const std::string target = dir.file("out.sds");
    const auto missing = mngr.writeSupportFile("bd9z00", target);
    EXPECT_FALSE(missing.written);
    EXPECT_EQ(missing.reason, "PM bd9z00 is not loaded; nothing written to " + target);
    mngr.writeSDS("bd9z00", target);
    EXPECT_FALSE(std::filesystem::exists(target));

    const auto written = mngr.writeSupportFile(kBadDataPm, target);
    EXPECT_TRUE(written.written) << written.reason;
    EXPECT_EQ(readFile(target), mngr.getFamilyFile(kBadDataPm)->sdsText());
}

// Range errors the library raises on bad installed data while a command
// runs: one line on standard error naming the part, exit status 3, never an
// abort. (Those raised while a family loads leave that family out.)
TEST(WriterFailures, ToolRangeErrorIsOneLineNamingTheFamilyOrPart) {
    const std::string ascAcd = cleanDeviceAcd() +
                               "ASC_TYPES = ASC10\nPM_ITEMS = ASCStockNum, ASCExtTypes, ASCMaxNum\n"
                               "PM_DATAS = 1, 1, 2\n";
    const struct {
        std::string deviceAcd, command, expected, located;
    } cases[] = {
        // The on-board chip's catalogue row lacks the DAC column.
        {ascAcd, "report BQ1-1B10C", "part BQ1-1B10C",
         " of family BDQ (PM bd1a00): DATA/device.acd: ASC_DATAS record ASC10: no value for the "
         "column DAC (the record has 1)\n"},
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
        const std::string head = "devctrl: " + c.expected + ": error in the installed data";
        EXPECT_EQ(err.find(head), 0u) << err;
        std::string located = c.located;
        located.replace(located.find("DATA"), 4, dir.path());
        EXPECT_EQ(err.substr(std::min(head.size(), err.size())), located);
        // Commands that need no family still work.
        EXPECT_EQ(runTool("-q --data " + dir.path() + " pms", &out), 0);
    }
}

}  // namespace
