#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "devctrl/mngr/device_mngr.h"
#include "devctrl/sds/sds_file.h"
#include "support/test_env.h"

using tarn::vyxpn::TarnDeviceMngr;
using tarn::vyxpn::TarnSDSFile;
namespace fs = std::filesystem;

namespace {

const char* const kSupportHeader =
    "[Device Support]\nTitle = zr1a00\nVersion=0,1\nSpeed Grade= _\n"
    "Design Entry Type=Schematic/VHDL, Schematic/Verilog HDL, EDIF, Pure VHDL, Pure Verilog "
    "HDL, Mixed Verilog/VHDL\n"
    "Design Entry Type for Unix=EDIF\n";

// Every table that the writer or the dump reads has something in it, and the
// members they leave out are filled too.
void fill(TarnSDSFile& family) {
    family.m_pkgAlias = {{"BG100", {"B100", "BG1"}}, {"QF48", {"Q48"}}};
    family.m_resourceItems = {"LUT", "FF"};
    family.m_resourceLabels = {{"LUT", "Logic cells"}};
    family.m_partExceptions = {"ZR4-7QF48C"};
    family.m_deviceExceptions = {"ZR8"};
    family.m_packageExceptions = {{"ZR4", "TQ144"}};
    family.m_pmSection.m_items = {"Vendor", "Volt"};
    family.m_pmSection.m_datas = {{"zr1a00", {"acme", "1.2"}}};
    family.m_deviceSection.m_items = {"Status"};
    family.m_deviceSection.m_datas = {{"ZR4", {"P"}}};
    family.m_packageSection.m_items = {"PKGIndex", "BitOff"};
    family.m_packageSection.m_datas = {{"ZR4_BG100", {"1", "0"}}};
    family.m_partSection.m_items = {"ASCMaxNum"};
    family.m_genericDevices.m_items = {"Device", "Speed", "Package"};
    family.m_genericDevices.m_datas = {{"ZR4-6QF48C", {"ZR4"}},
                                       {"ZR4-6BG100C", {"ZR4", "6", "BG100"}}};
    family.m_deviceInfo.m_items = {"LUT", "FF"};
    family.m_deviceInfo.m_datas = {{"ZR4_BG100", {"640", "600"}}};
    family.m_ascTypes = {"AX1"};
    family.m_ascSection.m_items = {"ADC"};
    family.m_ascSection.m_datas = {{"AX1", {"4"}}};
    family.m_ascResourceItems = {"ADC"};
    family.m_defaultASC = "AX1";
}

TEST(SdsWrite, WritesTheSupportFileLayout) {
    devctrl_test::TempDir dir;
    TarnSDSFile family("zr1a00", nullptr);
    fill(family);
    std::string path = dir.file("zr1a00.sds");
    family.writeSDS(path);
    EXPECT_EQ(devctrl_test::readFile(path),
              std::string(kSupportHeader) +
                  "Format = Device,Speed,Package\n\n[Generic Devices]\n"
                  "ZR4-6BG100C = ZR4, 6, BG100\n"
                  "ZR4-6QF48C = ZR4\n"
                  "\n[Device Info]\nFormat = LUT, FF\n"
                  "ZR4_BG100 = 640, 600\n"
                  "\n");
    EXPECT_EQ(devctrl_test::listDirectory(dir.path()), (std::vector<std::string>{"zr1a00.sds"}));
}

TEST(SdsWrite, EmptyTablesReplacingAndUnwritableTargets) {
    devctrl_test::TempDir dir;
    std::string path = dir.write("out.sds", std::string(10000, 'x'));
    TarnSDSFile family("zr1a00", nullptr);
    family.writeSDS(path);
    EXPECT_EQ(devctrl_test::readFile(path),
              std::string(kSupportHeader) +
                  "Format = \n\n[Generic Devices]\n\n[Device Info]\nFormat = \n\n");
    fill(family);
    family.writeSDS(dir.file("missing/out.sds"));  // no such directory
    fs::create_directory(dir.file("taken"));
    family.writeSDS(dir.file("taken"));  // a directory stands there
    EXPECT_EQ(devctrl_test::listDirectory(dir.path()),
              (std::vector<std::string>{"out.sds", "taken"}));
    EXPECT_TRUE(fs::is_empty(dir.file("taken")));
}

TEST(SdsWrite, WritesThroughASymbolicLink) {
    devctrl_test::TempDir dir;
    std::string real = dir.write("real.sds", "old");
    fs::create_symlink(real, dir.file("link.sds"));
    TarnSDSFile family("zr1a00", nullptr);
    family.writeSDS(dir.file("link.sds"));
    EXPECT_TRUE(fs::is_symlink(dir.file("link.sds")));
    EXPECT_EQ(devctrl_test::readFile(real).rfind("[Device Support]\n", 0), 0u);
    EXPECT_EQ(devctrl_test::listDirectory(dir.path()),
              (std::vector<std::string>{"link.sds", "real.sds"}));
}

TEST(SdsWrite, ManagerWritesAndDumpsLoadedFamiliesOnly) {
    devctrl_test::TempDir dir;
    TarnDeviceMngr mngr;
    auto* family = new TarnSDSFile("zr1a00", &mngr);
    fill(*family);
    mngr.adoptFamilyFile(family);
    mngr.writeSDS("zr9z00", dir.file("other.sds"));
    EXPECT_FALSE(fs::exists(dir.file("other.sds")));
    mngr.writeSDS("zr1a00", dir.file("zr1a00.sds"));
    EXPECT_NE(devctrl_test::readFile(dir.file("zr1a00.sds")).find("ZR4-6QF48C = ZR4\n"),
              std::string::npos);
    testing::internal::CaptureStdout();
    mngr.printMe("zr9z00");
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
}

TEST(SdsDump, PrintsEveryTable) {
    TarnSDSFile family("zr1a00", nullptr);
    fill(family);
    testing::internal::CaptureStdout();
    family.printMe();
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "PM Name is zr1a00\n"
              "Package alias:\n\tBG100 = B100, BG1, \n\tQF48 = Q48, \n\n"
              "Resource Items:\n\tLUT\n\tFF\n\n"
              "Part Exception:\n\tZR4-7QF48C\n\n"
              "PM map:\nPM items format: Vendor, Volt, \nPM items data: \n"
              "\tzr1a00 = acme, 1.2, \n\n"
              "Device map:\nDevice items format: Status, \nDevice items data: \n\tZR4 = P, \n\n"
              "Package map:\nPackage items format: PKGIndex,BitOff,\nPackage items data: \n"
              "\tZR4_BG100 = 1, 0, \n\n"
              "Def Part map:\nDef Part items format: ASCMaxNum,\nDef Part items data: \n\n"
              "[Generic Devices]\nFormat = Device, Speed, Package\n"
              "ZR4-6BG100C = ZR4, 6, BG100\nZR4-6QF48C = ZR4\n\n\n"
              "[Device Info]\nFormat = LUT, FF\nZR4_BG100 = 640, 600\n\n");
}

}  // namespace
