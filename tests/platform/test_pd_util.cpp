#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "platform/pd_util.h"
#include "support/test_env.h"

TEST(PdUtil, GetFilenameRTFResolvesIntoThePmDirectoryWhenItFits) {
    devctrl_test::TempDir data;
    devctrl_test::EnvGuard env("DEVCTRL_DATA_DIR", data.path().c_str());
    const std::string expected = data.path() + "/zr1a00/zr1a00.pwd";

    // Exactly room for the path and its NUL; a path is then left as it is.
    std::string exact(expected.size() + 1, 'x');
    std::strcpy(exact.data(), "zr1a00.pwd");
    ASSERT_TRUE(PD_UTIL::GetFilenameRTF(exact.data(), exact.size()));
    EXPECT_EQ(std::string(exact.c_str()), expected);
    ASSERT_TRUE(PD_UTIL::GetFilenameRTF(exact.data(), exact.size()));
    EXPECT_EQ(std::string(exact.c_str()), expected);

    // One byte short: nothing changes.
    std::string small(expected.size(), '#');
    std::strcpy(small.data(), "zr1a00.pwd");
    EXPECT_FALSE(PD_UTIL::GetFilenameRTF(small.data(), small.size()));
    EXPECT_STREQ(small.c_str(), "zr1a00.pwd");

    char unterminated[4] = {'a', 'b', 'c', 'd'};
    EXPECT_FALSE(PD_UTIL::GetFilenameRTF(unterminated, sizeof unterminated));
    char empty[8] = "";
    EXPECT_FALSE(PD_UTIL::GetFilenameRTF(empty, sizeof empty));
    EXPECT_FALSE(PD_UTIL::GetFilenameRTF(nullptr, 10));
}
