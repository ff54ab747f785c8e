#include <gtest/gtest.h>

#include <filesystem>

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

}  // namespace
