// Texts from the data reach JSON the same way through every command, the
// streamed export included: escapes, and bytes that are not UTF-8.
#include <gtest/gtest.h>

#include "reliability/bad_data_support.h"

namespace {

using namespace devctrl_test;

TEST(JsonEncoding, StreamedExportEncodesTextsAsTheOtherCommands) {
    // A device name with a quote, a tab and a byte that is not UTF-8.
    const std::string odd =
        "B\"Q\t\xff"
        "2";
    TempDir dir;
    writeFamily(dir,
                "FAMILY = BDQ\nDEVICES = BQ1, " + odd + "\nPACKAGES = BQ1, BG10 : " + odd +
                    ", BG10\nSPEEDS = BQ1, BG10, 1 : " + odd + ", BG10, 1\n",
                "PM_ENABLE = true\nDEVICE_ITEMS = Status\nDEVICE_DATAS = BQ1, P : " + odd +
                    ", P\nPACKAGE_ITEMS = ES, Condition\n"
                    "PACKAGE_DATAS = BQ1, BG10, No, C : " +
                    odd + ", BG10, No, C\n");
    const std::string encoded =
        "\"B\\\"Q\\t\xEF\xBF\xBD"
        "2\"";
    std::string devices, exported, err;
    ASSERT_EQ(runTool("-q --data " + dir.path() + " --json devices bd1a00", &devices, &err), 0)
        << err;
    ASSERT_EQ(runTool("-q --data " + dir.path() + " export bd1a00", &exported, &err), 0) << err;
    EXPECT_NE(devices.find(encoded), std::string::npos) << devices;
    EXPECT_NE(exported.find(encoded), std::string::npos) << exported;
    EXPECT_EQ(exported.find('\xff'), std::string::npos);
    EXPECT_EQ(exported.find('\t'), std::string::npos);
}

}  // namespace
