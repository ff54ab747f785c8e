#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>

#include "devctrl/sds/sds_file.h"
#include "platform/pd_util.h"
#include "support/test_env.h"

using devctrl_test::DataDirScope;
using devctrl_test::TempDir;
using tarn::vyxpn::TarnSDSFile;
using tarn::vyxpn::TarnSDSFileSection;

namespace {

const std::string kSample = DEVCTRL_TEST_SAMPLE_DATA;

// The package section of zr5b00 after its device table and part data file.
TarnSDSFileSection loadPackageSection(const std::string& dataDir) {
    DataDirScope scope(dataDir);
    TarnSDSFile file("zr5b00", nullptr);
    EXPECT_TRUE(file.loadDeviceAcd());
    EXPECT_EQ(file.loadPWD_Bin(file.m_pm, (dataDir + "/zr5b00/").c_str(), file.m_resourceItems), 0);
    return file.m_packageSection;
}

}  // namespace

// The sample family ships its part data file in the binary form, compiled
// from the text kept beside it.
TEST(PwdSampleData, BinaryPartDataLoadsLikeItsTextSource) {
    const std::string binary = kSample + "/zr5b00/zr5b00.pwd";
    const std::string text = kSample + "/zr5b00/zr5b00.pwd.txt";
    ASSERT_TRUE(PD_UTIL::IsBinaryFile(binary.c_str()));
    ASSERT_FALSE(PD_UTIL::IsBinaryFile(text.c_str()));

    TempDir fromText;
    std::filesystem::copy(kSample + "/zr5b00", fromText.file("zr5b00"));
    std::filesystem::copy_file(text, fromText.file("zr5b00/zr5b00.pwd"),
                               std::filesystem::copy_options::overwrite_existing);

    TarnSDSFileSection shipped = loadPackageSection(kSample);
    TarnSDSFileSection source = loadPackageSection(fromText.path());
    EXPECT_EQ(shipped.m_items, source.m_items);
    EXPECT_EQ(shipped.m_datas, source.m_datas);

    // The resource columns did arrive, in the part data file's order.
    const std::vector<std::string> resources{"FF", "LUT", "IO", "EBR", "PLL"};
    ASSERT_GE(shipped.m_items.size(), resources.size());
    EXPECT_TRUE(
        std::equal(resources.begin(), resources.end(), shipped.m_items.end() - resources.size()));
    EXPECT_EQ(*shipped.cell("ZU8_CS100", shipped.columnOf("IO")), "80");
}
