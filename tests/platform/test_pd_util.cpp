#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "platform/pd_util.h"
#include "support/test_env.h"

using devctrl_test::EnvGuard;
using devctrl_test::TempDir;

TEST(PdUtil, GetFilenameRTFResolvesIntoThePmDirectory) {
    TempDir data;
    EnvGuard env("DEVCTRL_DATA_DIR", data.path().c_str());
    const std::string expected = data.path() + "/zr1a00/zr1a00.pwd";

    char name[PD_UTIL::kPathBufferSize] = "zr1a00.pwd";
    ASSERT_TRUE(PD_UTIL::GetFilenameRTF(name));
    EXPECT_EQ(std::string(name), expected);
    // A path is left as it is.
    ASSERT_TRUE(PD_UTIL::GetFilenameRTF(name, sizeof name));
    EXPECT_EQ(std::string(name), expected);

    // The buffer must hold the path and its NUL; otherwise nothing changes.
    std::string exact(expected.size() + 1, 'x');
    std::strcpy(exact.data(), "zr1a00.pwd");
    EXPECT_TRUE(PD_UTIL::GetFilenameRTF(exact.data(), exact.size()));
    EXPECT_EQ(std::string(exact.c_str()), expected);

    char guarded[64 + 8];
    std::memset(guarded, '#', sizeof guarded);
    std::strcpy(guarded, "zr1a00.pwd");
    std::size_t small = expected.size() < 64 ? expected.size() : 64;
    EXPECT_FALSE(PD_UTIL::GetFilenameRTF(guarded, small));
    EXPECT_STREQ(guarded, "zr1a00.pwd");
    EXPECT_EQ(guarded[sizeof guarded - 1], '#');

    char unterminated[4] = {'a', 'b', 'c', 'd'};
    EXPECT_FALSE(PD_UTIL::GetFilenameRTF(unterminated, sizeof unterminated));
    char empty[8] = "";
    EXPECT_FALSE(PD_UTIL::GetFilenameRTF(empty, sizeof empty));
    EXPECT_FALSE(PD_UTIL::GetFilenameRTF(nullptr, 10));
}

TEST(PdUtil, TextRules) {
    EXPECT_EQ(PD_UTIL::Trim(" \t a b \r\n"), "a b");
    EXPECT_EQ(PD_UTIL::Trim(" \t"), "");
    EXPECT_TRUE(PD_UTIL::IsFormatKey("FORMAT"));
    EXPECT_TRUE(PD_UTIL::IsFormatKey("format"));
    EXPECT_FALSE(PD_UTIL::IsFormatKey("Formats"));
    EXPECT_FALSE(PD_UTIL::IsFormatKey(std::string("Format\0x", 8)));
}
