// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>

#include "devctrl/sds/sds_file.h"
#include "support/test_env.h"

using tarn::vyxpn::TarnSDSFile;
namespace fs = std::filesystem;

namespace {

const char* const kSupportHeader =
    "[Device Support]\nTitle = zr1a00\nVersion=0,1\nSpeed Grade= _\n"
    "Design Entry Type=Schematic/VHDL, Schematic/Verilog HDL, EDIF, Pure VHDL, Pure Verilog "
    "HDL, Mixed Verilog/VHDL\n"
    "Design Entry Type for Unix=EDIF\n";

// The generated tables the writer reads, and input tables it leaves out.
void fill(TarnSDSFile& family) {
    family.m_pkgAlias = {{"QF48", {"Q48"}}};
    family.m_packageSection.m_items = {"PKGIndex", "BitOff"};
    family.m_packageSection.m_datas = {{"ZR4_BG100", {"1", "0"}}};
    family.m_genericDevices.m_items = {"Device", "Speed", "Package"};
    family.m_genericDevices.m_datas = {{"ZR4-6QF48C", {"ZR4"}},
                                       {"ZR4-6BG100C", {"ZR4", "6", "BG100"}}};
    family.m_deviceInfo.m_items = {"LUT", "FF"};
    family.m_deviceInfo.m_datas = {{"ZR4_BG100", {"640", "600"}}};
}

TEST(SdsWrite, WritesTheSupportFileLayoutThroughLinks) {
    devctrl_test::TempDir dir;
    const std::string real = dir.write("real.sds", std::string(10000, 'x'));
    fs::create_symlink(real, dir.file("link.sds"));
    TarnSDSFile family("zr1a00", nullptr);
    fill(family);
    family.writeSDS(dir.file("link.sds"));
    EXPECT_TRUE(fs::is_symlink(dir.file("link.sds"))) << "the link is written through";
    EXPECT_EQ(devctrl_test::readFile(real),
              std::string(kSupportHeader) +
                  "Format = Device,Speed,Package\n\n[Generic Devices]\n"
                  "ZR4-6BG100C = ZR4, 6, BG100\nZR4-6QF48C = ZR4\n"
                  "\n[Device Info]\nFormat = LUT, FF\nZR4_BG100 = 640, 600\n\n");
    EXPECT_EQ(devctrl_test::listDirectory(dir.path()),
              (std::vector<std::string>{"link.sds", "real.sds"}));
}

TEST(SdsWrite, SupportFileSaysWhyItWasNotWritten) {
    devctrl_test::TempDir dir;
    dir.write("plain", "kept\n");
    TarnSDSFile family("zr1a00", nullptr);
    fill(family);
    struct Case {
        std::string target, reason;
    } cases[] = {
        {dir.path(), "is a directory"},
        {dir.file("missing/out.sds"), "No such file or directory"},
        {dir.file("plain/out.sds"), "Not a directory"},
    };
    for (const Case& c : cases) {
        const auto result = family.writeSupportFile(c.target);
        EXPECT_FALSE(result.written) << c.target;
        EXPECT_NE(result.reason.find("cannot write " + c.target), std::string::npos)
            << result.reason;
        EXPECT_NE(result.reason.find(c.reason), std::string::npos) << result.reason;
    }
    EXPECT_EQ(devctrl_test::readFile(dir.file("plain")), "kept\n");

    const auto result = family.writeSupportFile(dir.file("out.sds"));
    EXPECT_TRUE(result.written);
    EXPECT_EQ(result.reason, "");
    EXPECT_EQ(devctrl_test::readFile(dir.file("out.sds")), family.sdsText());
}

TEST(SdsWrite, DumpGoesToTheGivenStreamWithItsSeparators) {
    TarnSDSFile family("zr1a00", nullptr);
    fill(family);
    family.m_pkgAlias["BG100"] = {"B100", "B-100"};
    std::ostringstream dump;
    family.printMe(dump);
    EXPECT_EQ(dump.str(),
              "PM Name is zr1a00\n"
              "Package alias:\n\tBG100 = B100, B-100, \n\tQF48 = Q48, \n\n"
              "Resource Items:\n\n"
              "Part Exception:\n\n"
              "PM map:\nPM items format: \nPM items data: \n\n"
              "Device map:\nDevice items format: \nDevice items data: \n\n"
              "Package map:\nPackage items format: PKGIndex,BitOff,\nPackage items data: \n"
              "\tZR4_BG100 = 1, 0, \n\n"
              "Def Part map:\nDef Part items format: \nDef Part items data: \n\n"
              "[Generic Devices]\nFormat = Device, Speed, Package\n"
              "ZR4-6BG100C = ZR4, 6, BG100\nZR4-6QF48C = ZR4\n\n\n"
              "[Device Info]\nFormat = LUT, FF\nZR4_BG100 = 640, 600\n\n");
}

}  // namespace
