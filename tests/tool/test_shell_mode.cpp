// SPDX-License-Identifier: MIT
// `devctrl shell`: one load, then every line answered as the command alone
// would answer it, with errors that name their line and a session that goes on.

#include <gtest/gtest.h>

#include <QJsonDocument>
#include <sstream>

#include "support/test_env.h"

using devctrl_test::runTool;
using devctrl_test::TempDir;

namespace {

const std::string kData = DEVCTRL_TEST_SAMPLE_DATA;

std::vector<std::string> linesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);)
        lines.push_back(line);
    return lines;
}

// Every line's answer equals the single command's, in text and in JSON;
// options given on one line do not carry over to the next.
TEST(ShellMode, AnswersEachLineAsTheSingleCommand) {
    const std::vector<std::string> commands = {
        "parts zr1 'ZR12-*BG*' --speed 6 --condition C",
        "parts zr1 'ZR12-*BG*'",
        "part ZR12-6BG100C",
        "packages \"ZR1\" ZR12",
        "settings ZR25-6F256C",
        "validate ZR25-6F256C --asc ASC10",
    };
    for (const char* format : {"", "--json ", "--format table ", "--format csv "}) {
        const bool json = std::string(format) == "--json ";
        TempDir dir;
        std::string script;
        std::string expected;
        for (const std::string& command : commands) {
            // validate answers a verdict, not rows: no table or CSV of it.
            if (command.rfind("validate", 0) == 0 && !json && *format)
                continue;
            script += command + "\n";
            std::string out;
            ASSERT_EQ(runTool(std::string("-q --data ") + kData + " " + format + command, &out), 0)
                << command;
            if (json) {
                // One compact document per line.
                const QJsonDocument document =
                    QJsonDocument::fromJson(QByteArray::fromStdString("[" + out + "]"));
                const QByteArray compact = document.toJson(QJsonDocument::Compact);
                expected += compact.mid(1, compact.size() - 2).toStdString() + "\n";
            } else {
                expected += out;
            }
        }
        dir.write("commands", script);
        std::string out, err;
        EXPECT_EQ(runTool(std::string("-q --data ") + kData + " " + format + "shell " +
                              dir.file("commands"),
                          &out, &err),
                  0)
            << err;
        EXPECT_EQ(out, expected) << format;
        EXPECT_EQ(err, "");
    }
}

TEST(ShellMode, ErrorsNameTheirLineAndTheSessionGoesOn) {
    TempDir dir;
    dir.write("commands",
              "# a comment, then a blank line\n\n"
              "bogus\n"
              "part zr12-6bg100c\n"
              "exists ZR12-6BG100C\n"
              "--data /elsewhere families\n"
              "parts 'zr1\n"
              "pms\n");
    std::string out, err;
    // The worst line was a command-line error.
    EXPECT_EQ(runTool("-q --data " + kData + " shell " + dir.file("commands"), &out, &err), 2);
    const auto errors = linesOf(err);
    ASSERT_EQ(errors.size(), 4u) << err;
    EXPECT_EQ(errors[0].rfind("devctrl: line 3: unknown command 'bogus'", 0), 0u);
    EXPECT_EQ(errors[1].rfind("devctrl: line 4: unknown part 'zr12-6bg100c'", 0), 0u);
    EXPECT_EQ(errors[2].rfind("devctrl: line 6: --data cannot change", 0), 0u);
    EXPECT_EQ(errors[3], "devctrl: line 7: a ' is not closed");
    // The last line still ran.
    EXPECT_NE(out.find("zr1a00"), std::string::npos);

    // With --json, one output line per command line, null where nothing came.
    EXPECT_EQ(runTool("-q --json --data " + kData + " shell " + dir.file("commands"), &out, &err),
              2);
    const auto answers = linesOf(out);
    ASSERT_EQ(answers.size(), 6u) << out;
    EXPECT_EQ(answers[0], "null");
    EXPECT_EQ(answers[2], "{\"exists\":true,\"part\":\"ZR12-6BG100C\"}");
    EXPECT_EQ(answers[3], "null");
    EXPECT_EQ(answers[5].front(), '[');
}

TEST(ShellMode, StatusIsTheWorstLineAndMissingInputIsAnError) {
    TempDir dir;
    dir.write("no", "exists ZR12-6BG100C\nexists NOPE\n");
    EXPECT_EQ(runTool("-q --data " + kData + " shell " + dir.file("no")), 1);
    std::string err;
    EXPECT_EQ(runTool("-q --data " + kData + " shell " + dir.file("missing"), nullptr, &err), 1);
    EXPECT_NE(err.find("cannot read"), std::string::npos) << err;
}

}  // namespace
