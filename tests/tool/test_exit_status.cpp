// SPDX-License-Identifier: MIT
// The tool's exit status tells the truth: an answer that could not be
// written, an installation that cannot be read, an unknown item or chip.

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>

#include "support/test_env.h"

using devctrl_test::readFile;
using devctrl_test::runTool;
using devctrl_test::TempDir;

namespace {

const std::string kSample = DEVCTRL_TEST_SAMPLE_DATA;

std::size_t lineCount(const std::string& text) {
    return static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
}

// Runs `command` under bash; the tool's own status in a pipeline comes back
// through PIPESTATUS.
int runShell(const std::string& command) {
    const int status = std::system(("bash -c '" + command + "'").c_str());
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

TEST(ExitStatus, AnAnswerThatCannotBeWrittenFails) {
    // Large and small answers, text and JSON, and the help text: every one
    // goes through the same checked output.
    const char* commands[] = {
        "families",
        "--json families",
        "parts zr1a00",
        "export",
        "dump zr5b00",
        "pwd-dump " DEVCTRL_TEST_SAMPLE_DATA "/zr5b00/zr5b00.pwd",
        "item ZR25-6F256C ASCMaxNum",
        "--help",
    };
    for (const char* command : commands) {
        TempDir scratch;
        const std::string err = scratch.file("err");
        const int status = runShell(std::string(DEVCTRL_TOOL_PATH) + " -q --data " + kSample + " " +
                                    command + " >/dev/full 2>" + err);
        EXPECT_EQ(status, 1) << command;
        const std::string message = readFile(err);
        // With JSON asked for, the failure is a JSON document as well.
        EXPECT_EQ(message, std::string(command).rfind("--json", 0) == 0
                               ? "{\"error\":{\"exit_status\":1,\"message\":\"cannot write the "
                                 "output: No space left on device\"}}\n"
                               : "devctrl: cannot write the output: No space left on device\n")
            << command;
    }
}

TEST(ExitStatus, AReaderThatStopsEarlyEndsTheToolQuietly) {
    // More than a pipe holds, so the tool is still writing when head leaves.
    TempDir scratch;
    const std::string err = scratch.file("err");
    const int status =
        runShell(std::string(DEVCTRL_TOOL_PATH) + " -q --data " + kSample + " export 2>" + err +
                 " | head -c 10 >/dev/null; exit ${PIPESTATUS[0]}");
    EXPECT_EQ(status, 128 + SIGPIPE);
    EXPECT_EQ(readFile(err), "");
}

TEST(ExitStatus, AnUnusableDataDirectoryIsOneLineAndStatusThree) {
    TempDir dir;
    const std::string file = dir.write("a-file", "FAMILY = X\n");
    const std::string locked = dir.file("locked");
    mkdir(locked.c_str(), 0);
    const struct {
        std::string path, message;
        bool needsNonRoot;
    } cases[] = {
        {dir.file("not-there"), "No such file or directory", false},
        {file, "is not a directory", false},
        {locked, "cannot read data directory " + locked + ": Permission denied", true},
    };
    // Commands that load families and commands that only ask the part-model
    // data are refused alike.
    for (const auto& c : cases) {
        if (c.needsNonRoot && geteuid() == 0)
            continue;  // permissions do not stop root
        for (const char* command : {"families", "pms", "key zr1a00 FAMILY", "pm-of ZR1"}) {
            std::string out, err;
            EXPECT_EQ(runTool("--data " + c.path + " " + command, &out, &err), 3) << command;
            EXPECT_EQ(out, "");
            EXPECT_EQ(lineCount(err), 1u) << err;
            EXPECT_NE(err.find(c.message), std::string::npos) << err;
        }
    }
    chmod(locked.c_str(), 0700);
}

TEST(ExitStatus, AnEmptyDataDirectoryIsAnInstallationWithoutFamilies) {
    TempDir empty;
    std::string out, err;
    EXPECT_EQ(runTool("--data " + empty.path() + " families", &out, &err), 0);
    EXPECT_EQ(out, "");
    EXPECT_EQ(err, "devctrl: no families installed in " + empty.path() + "\n");
}

TEST(ExitStatus, UnknownItemsAndChipsAreRefusedWithSuggestions) {
    const struct {
        const char* args;
        int status;
        const char* output;
    } cases[] = {
        {"item ZR25-6F256C Nonsense", 1, "devctrl: unknown item 'Nonsense' in part ZR25-6F256C\n"},
        {"item ZR25-6F256C ascmaxnum", 1,
         "devctrl: unknown item 'ascmaxnum' in part ZR25-6F256C; did you mean ASCMaxNum?\n"},
        {"item ZR25-6F256C Status", 0, "P\n"},
        // --default says what an item the family lacks means.
        {"item ZR25-6F256C Nonsense --default 7", 0, "7\n"},
        {"report ZR25-6F256C --asc ASC99", 1,
         "devctrl: ASC chip 'ASC99' is invalid or unsupported ASC chip for device "
         "'ZR25-6F256C'\n"},
        {"report ZR25-6F256C --asc ASC40", 1,
         "devctrl: ASC chip 'ASC40' is invalid or unsupported ASC chip for device "
         "'ZR25-6F256C'\n"},
    };
    for (const auto& c : cases) {
        std::string out, err;
        EXPECT_EQ(runTool("-q --data " + kSample + " " + c.args, &out, &err), c.status) << c.args;
        EXPECT_EQ(out + err, c.output) << c.args;
    }
    // validate refuses the same chip with the same words.
    std::string out;
    runTool("-q --data " + kSample + " validate ZR25-6F256C --asc ASC99", &out);
    EXPECT_EQ("devctrl: " + out,
              "devctrl: ASC chip 'ASC99' is invalid or unsupported ASC chip for device "
              "'ZR25-6F256C'\n");
}

}  // namespace
