#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "support/test_env.h"

using devctrl_test::runTool;

TEST(PartNameCommands, PartNameAndInnerNameOnTheSampleData) {
    const std::string tool = std::string("-q --data ") + DEVCTRL_TEST_SAMPLE_DATA + " ";
    const std::pair<const char*, const char*> cases[] = {
        {"part-name zr5b00 zu8 cs100 1 com", "ZU8-1CS100C\n"},
        {"inner-name ZU8-2CS100I", "ZU8-XXCS100\n"},
        {"part-name zr5b00 zu8 cs100 1 xyz", "devctrl: no part of zr5b00"},
        {"inner-name ZU8-9XX9C", "devctrl: unknown part ZU8-9XX9C"},
    };
    for (const auto& [args, start] : cases) {
        std::string out, err;
        int status = runTool(tool + args, &out, &err);
        EXPECT_EQ(status, err.empty() ? 0 : 1) << args;
        EXPECT_EQ((out + err).rfind(start, 0), 0u) << args << ": " << out << err;
    }
}
