// SPDX-License-Identifier: MIT
// What the tool says about itself: its version, the installation it read,
// and help that shows the global options, exit statuses and environment.

#include <gtest/gtest.h>

#include <QDir>
#include <sstream>

#include "devctrl/util/version.h"
#include "support/test_env.h"

using devctrl_test::runTool;

namespace {

const std::string kData = DEVCTRL_TEST_SAMPLE_DATA;

// The value of a "key   value" line of `devctrl info`.
std::string infoValue(const std::string& info, const std::string& key) {
    std::istringstream in(info);
    for (std::string line; std::getline(in, line);)
        if (line.rfind(key + "  ", 0) == 0)
            return line.substr(line.find_first_not_of(' ', key.size()));
    return "(no " + key + ")";
}

int lineCount(const std::string& text) {
    return static_cast<int>(std::count(text.begin(), text.end(), '\n'));
}

}  // namespace

TEST(ToolAbout, VersionIsTheLibrarys) {
    std::string out;
    ASSERT_EQ(runTool("--version", &out), 0);
    EXPECT_EQ(out, std::string("devctrl ") + tarn::vyxpn::libraryVersion() + "\n");
}

// info names the directory and settings file really used and counts what
// the other commands list (parts with the obsolete ones).
TEST(ToolAbout, InfoSaysWhichInstallationWasRead) {
    devctrl_test::TempDir scratch;
    const std::string settings = scratch.file("chosen-settings.ini");
    devctrl_test::EnvGuard env("DEVCTRL_SETTINGS", settings.c_str());
    std::string info, families, pms, parts;
    ASSERT_EQ(runTool("--data " + kData + " info", &info), 0);
    ASSERT_EQ(runTool("--data " + kData + " families", &families), 0);
    ASSERT_EQ(runTool("--data " + kData + " pms", &pms), 0);
    std::istringstream familyNames(families);
    int partCount = 0;
    for (std::string family; std::getline(familyNames, family);) {
        ASSERT_EQ(runTool("--data " + kData + " parts --all " + family, &parts), 0) << family;
        partCount += lineCount(parts);
    }

    EXPECT_EQ(infoValue(info, "version"), tarn::vyxpn::libraryVersion());
    EXPECT_EQ(infoValue(info, "data directory"),
              QDir(QString::fromStdString(kData)).absolutePath().toStdString());
    EXPECT_EQ(infoValue(info, "settings file"), settings);
    EXPECT_EQ(infoValue(info, "families loaded"), std::to_string(lineCount(families)));
    EXPECT_EQ(infoValue(info, "PMs installed"), std::to_string(lineCount(pms)));
    EXPECT_EQ(infoValue(info, "parts loaded"), std::to_string(partCount));

    // --data-dir is for scripts: the path alone, the one DEVCTRL_DATA_DIR names.
    devctrl_test::EnvGuard data("DEVCTRL_DATA_DIR", kData.c_str());
    std::string dir;
    ASSERT_EQ(runTool("info --data-dir", &dir), 0);
    EXPECT_EQ(dir, infoValue(info, "data directory") + "\n");
}

// Every command's help, nested ones included, ends with the options that
// work before or after any command.
TEST(ToolAbout, EveryCommandsHelpShowsTheGlobalOptions) {
    std::string commands;
    ASSERT_EQ(runTool("__complete ''", &commands), 0);
    std::istringstream names(commands);
    int checked = 0;
    for (std::string line; std::getline(names, line); ++checked) {
        const std::string command = line.substr(0, line.find('\t'));
        std::string help;
        ASSERT_EQ(runTool(command + " --help", &help), 0) << command;
        const auto globals = help.find("Global options");
        ASSERT_NE(globals, std::string::npos) << command;
        for (const char* option : {"--data DIR", "--json", "--format", "--quiet", "--verbose"})
            EXPECT_NE(help.find(option, globals), std::string::npos) << command << ": " << option;
    }
    EXPECT_GT(checked, 30);
    std::string nested;
    ASSERT_EQ(runTool("ini get --help", &nested), 0);
    EXPECT_NE(nested.find("Global options"), std::string::npos);
}

TEST(ToolAbout, TopLevelHelpListsExitStatusesAndEnvironment) {
    std::string help;
    ASSERT_EQ(runTool("--help", &help), 0);
    for (const char* text : {"Exit status:", "  0  ", "  1  ", "  2  ", "  3  ", "Environment:",
                             "DEVCTRL_DATA_DIR", "DEVCTRL_SETTINGS", "TARN_SHOW_ALL_DEVICES"})
        EXPECT_NE(help.find(text), std::string::npos) << text;
}
