// writeSDS to places that cannot take the file: nothing is left behind, not
// even a temporary, and the tool says which file it could not write.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "devctrl/sds/sds_file.h"
#include "reliability/bad_data_support.h"

namespace fs = std::filesystem;

namespace {

using namespace devctrl_test;

TEST(WriterFailures, UnwritablePathsLeaveNothingBehind) {
    TempDir dir;
    dir.write("plain-file", "keep me\n");
    fs::create_directory(dir.file("a-directory"));
    tarn::vyxpn::TarnSDSFile family("bd1a00", nullptr);
    family.m_genericDevices.m_items = {"Device"};
    family.m_genericDevices.m_datas["BQ1-1B10C"] = {"BQ1"};

    family.writeSDS(dir.file("plain-file/under-a-file.sds"));
    family.writeSDS(dir.file("a-directory"));
    family.writeSDS(dir.file("no-such-directory/x.sds"));
    family.writeSDS("");
    EXPECT_EQ(devctrl_test::listDirectory(dir.path()),
              (std::vector<std::string>{"a-directory", "plain-file"}));
    EXPECT_TRUE(fs::is_empty(dir.file("a-directory")));
    EXPECT_EQ(readFile(dir.file("plain-file")), "keep me\n");
}

TEST(WriterFailures, ToolNamesTheFileItCouldNotWrite) {
    TempDir dir;
    writeFamily(dir, cleanFamilyKey(), cleanDeviceAcd());
    const std::string target = dir.file("bd1a00/device.acd/out.sds");
    std::string out, err;
    EXPECT_EQ(runTool("-q --data " + dir.path() + " write-sds bd1a00 " + target, &out, &err), 1);
    EXPECT_EQ(err, "devctrl: could not write " + target + "\n");
    EXPECT_EQ(devctrl_test::listDirectory(dir.file("bd1a00")),
              (std::vector<std::string>{"device.acd", "family.key"}));
}

}  // namespace
