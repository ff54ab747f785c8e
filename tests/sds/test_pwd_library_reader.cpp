#include <gtest/gtest.h>

#include <string>

#include "devctrl/sds/sds_file.h"
#include "platform/pd_binary_format.h"
#include "platform/pd_data.h"
#include "support/test_env.h"

using devctrl_test::EnvGuard;
using devctrl_test::TempDir;
using tarn::vyxpn::TarnSDSFile;
using tarn::vyxpn::TarnSDSFileSection;
using Row = std::vector<std::string>;

namespace {

const char* const kPartData =
    "[[Device Info]]\n"
    "Format = ff, RAM, lut\n"
    "ZR4_BG100 = 10,,30\n"
    "ZR4_QF48 = 1, 2, 3\n"
    "ZR4_QF48 = 4, 5, 6\n"
    "ZR9_XX1 = 7, 8, 9\n";

// A data directory with one PM whose part data file holds `content`.
class PwdDataDir {
  public:
    PwdDataDir() : m_env("DEVCTRL_DATA_DIR", m_dir.path().c_str()) {}
    std::string writeText(const std::string& content) {
        return m_dir.write("zr1a00/zr1a00.pwd", content);
    }
    std::string writeBinary(const std::string& text) {
        PD_DATA data;
        EXPECT_TRUE(data.LoadTxtString(text));
        std::string path = m_dir.write("zr1a00/zr1a00.pwd", "");
        EXPECT_TRUE(PD_SaveBinFile(data, path.c_str()));
        return path;
    }

  private:
    TempDir m_dir;
    EnvGuard m_env;
};

void fillPackageSection(TarnSDSFile& file) {
    file.m_packageSection.m_items = {"PKGIndex"};
    file.m_packageSection.m_datas["ZR4_BG100"] = {"0"};
    file.m_packageSection.m_datas["ZR4_QF48"] = {"1"};
}

int load(TarnSDSFile& file, const Row& items = {"LUT", "FF"}) {
    return file.loadPWD_Bin(file.m_pm, "/ignored/", items);
}

}  // namespace

TEST(PwdLibraryReader, TextAndBinaryFormsMergeTheSameColumns) {
    const std::string text =
        std::string(kPartData) + "[[More]]\nFormat = LUT, FF\nZR4_BG100 = 11, 12\n";
    PwdDataDir data;
    data.writeText(text);
    TarnSDSFile fromText("zr1a00", nullptr);
    fillPackageSection(fromText);
    ASSERT_EQ(load(fromText), 0);
    const TarnSDSFileSection& section = fromText.m_packageSection;
    // Both "Format" tables are merged, one after the other.
    EXPECT_EQ(section.m_items, (Row{"PKGIndex", "ff", "lut", "LUT", "FF"}));
    // Unlike the self-contained reader, empty fields keep their column; of
    // two rows of a key the last wins; rows without a partner are dropped.
    EXPECT_EQ(section.m_datas.at("ZR4_BG100"), (Row{"0", "10", "30", "11", "12"}));
    EXPECT_EQ(section.m_datas.at("ZR4_QF48"), (Row{"1", "4", "6"}));
    EXPECT_EQ(section.m_datas.count("ZR9_XX1"), 0u);

    data.writeBinary(text);
    TarnSDSFile fromBinary("zr1a00", nullptr);
    fillPackageSection(fromBinary);
    ASSERT_EQ(load(fromBinary), 0);
    EXPECT_EQ(fromBinary.m_packageSection.m_items, section.m_items);
    EXPECT_EQ(fromBinary.m_packageSection.m_datas, section.m_datas);
}

TEST(PwdLibraryReader, UnusableFilesLeaveThePackageSectionAlone) {
    PwdDataDir data;
    TarnSDSFile file("zr1a00", nullptr);
    fillPackageSection(file);
    const TarnSDSFileSection before = file.m_packageSection;

    EXPECT_EQ(load(file), 0);  // no file at all
    EXPECT_EQ(file.m_packageSection.m_items, before.m_items);

    std::string path = data.writeBinary(kPartData);
    std::string bytes = devctrl_test::readFile(path);
    data.writeText(bytes.substr(0, bytes.size() - 3));  // truncated binary
    EXPECT_EQ(load(file), 0);
    EXPECT_EQ(file.m_packageSection.m_items, before.m_items);
    EXPECT_EQ(file.m_packageSection.m_datas, before.m_datas);

    EXPECT_EQ(file.loadPWD_Bin_internal(nullptr, "/ignored/", {"LUT"}), -1);
}

TEST(PwdLibraryReader, FormatSectionThatIsNotATableStopsTheLoad) {
    PwdDataDir data;
    data.writeText(
        "[[Format]]\n"
        "LUT = 1\n"
        "[[Device Info]]\n"
        "Format = LUT\n"
        "ZR4_BG100 = 5\n");
    TarnSDSFile file("zr1a00", nullptr);
    fillPackageSection(file);
    testing::internal::CaptureStderr();
    EXPECT_EQ(load(file), 0);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "Device Info must have _TBLSECT format\n");
    EXPECT_EQ(file.m_packageSection.m_items, (Row{"PKGIndex"}));
}
