// SPDX-License-Identifier: MIT
// The load progress line on a terminal (run under script(1) for a pty): it
// counts PMs, and every trace line starts on a cleared line.

#include <gtest/gtest.h>

#include <cstdio>

#include "support/test_env.h"

namespace {

// Whether script(1) can open a pseudo-terminal here: a chroot with /dev
// bound but not /dev/pts has none, and then there is nothing to test.
bool havePseudoTerminal() {
    return std::system("script -qec true /dev/null >/dev/null 2>&1") == 0;
}

// What a terminal receives from `devctrl <args>`.
std::string onTerminal(const std::string& args) {
    devctrl_test::TempDir scratch;
    const std::string command = "script -qec '" + std::string(DEVCTRL_TOOL_PATH) + " " + args +
                                "' /dev/null >" + scratch.file("out") + " 2>&1";
    EXPECT_EQ(std::system(command.c_str()), 0) << command;
    return devctrl_test::readFile(scratch.file("out"));
}

}  // namespace

TEST(ToolProgress, CountsPmsAndClearsTheLineBeforeTraces) {
    if (!havePseudoTerminal())
        GTEST_SKIP() << "no pseudo-terminal can be opened here";
    const std::string clear = "\r\033[K";
    const std::string shown =
        onTerminal("-v --data " + std::string(DEVCTRL_TEST_SAMPLE_DATA) + " families");
    // Five PMs, one of them (zr2b00) under two family names.
    for (int i = 1; i <= 5; ++i)
        EXPECT_NE(shown.find("\rdevctrl: loading family " + std::to_string(i) + " of 5" + "\033[K"),
                  std::string::npos)
            << i << ": " << shown;
    EXPECT_EQ(shown.find(" of 6"), std::string::npos) << shown;
    // zr4x00 (the fourth) is switched off: with -v, its two traces, each on
    // its own line.
    EXPECT_NE(shown.find("4 of 5\033[K" + clear +
                         "devctrl: Failed to load device.acd of zr4x00\r\n"
                         "devctrl: TarnDeviceMngr failed to load zr4x00"),
              std::string::npos)
        << shown;
    // The answer starts on a cleared line too.
    EXPECT_NE(shown.find(clear + "ZR1\r\nZR2\r\nZR3\r\nZR5\r\n"), std::string::npos) << shown;
    // Quiet: no traces, and still a clean answer.
    const std::string quiet =
        onTerminal("-q --data " + std::string(DEVCTRL_TEST_SAMPLE_DATA) + " families");
    EXPECT_EQ(quiet.find("Failed"), std::string::npos) << quiet;
    EXPECT_NE(quiet.find(clear + "ZR1\r\n"), std::string::npos) << quiet;
}
