// SPDX-License-Identifier: MIT
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
    auto withOdd = [&](std::string text) {
        for (std::size_t at = text.find("BQ2"); at != std::string::npos;
             at = text.find("BQ2", at + odd.size()))
            text.replace(at, 3, odd);
        return text;
    };
    writeFamily(dir, withOdd(cleanFamilyKey()), withOdd(cleanDeviceAcd()));
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
