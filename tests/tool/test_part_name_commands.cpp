#include <gtest/gtest.h>

#include <string>

#include "support/test_env.h"

using devctrl_test::runTool;

TEST(PartNameCommands, PartNameAndInnerNameOnTheSampleData) {
    const std::string tool = std::string("-q --data ") + DEVCTRL_TEST_SAMPLE_DATA + " ";
    std::string out, err;
    ASSERT_EQ(runTool(tool + "part-name zr5b00 zu8 cs100 1 com", &out, &err), 0) << err;
    EXPECT_EQ(out, "ZU8-1CS100C\n");
    ASSERT_EQ(runTool(tool + "inner-name ZU8-1CS100C", &out, &err), 0) << err;
    EXPECT_EQ(out, "ZU8-XXCS100\n");
    ASSERT_EQ(runTool(tool + "inner-name ZU8-2CS100I", &out, &err), 0) << err;
    EXPECT_EQ(out, "ZU8-XXCS100\n");

    EXPECT_EQ(runTool(tool + "part-name zr5b00 zu8 cs100 1 xyz", &out, &err), 1);
    EXPECT_NE(err.find("no part of zr5b00"), std::string::npos) << err;
    EXPECT_EQ(runTool(tool + "inner-name ZU8-9XX9C", &out, &err), 1);
    EXPECT_NE(err.find("unknown part ZU8-9XX9C"), std::string::npos) << err;
}
