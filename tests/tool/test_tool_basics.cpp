#include <gtest/gtest.h>

#include <QJsonDocument>
#include <algorithm>
#include <utility>

#include "support/test_env.h"

using devctrl_test::runTool;
using devctrl_test::TempDir;

namespace {

int lineCount(const std::string& text) {
    return static_cast<int>(std::count(text.begin(), text.end(), '\n'));
}

// True for one JSON value of any kind (wrapped, since the parser wants an
// array or object at the top).
bool isJson(const std::string& text) {
    QJsonParseError error;
    QJsonDocument::fromJson(QByteArray::fromStdString("[" + text + "]"), &error);
    return error.error == QJsonParseError::NoError;
}

struct SmallInstall {
    TempDir dir;
    SmallInstall() {
        dir.write("tb1a00/family.key",
                  "FAMILY = TBF, TBALT\nDEVICES = TB4\n"
                  "PACKAGES = TB4, QF48\nSPEEDS = TB4, QF48, 6\n");
        dir.write("tb1a00/device.acd", "PM_ENABLE = true\nPKG_ALIAS = QF48, Q48\n");
        dir.write("tb2a00/family.key", "FAMILY = TBOFF\nDEVICES = TB9\n");
        dir.write("tb2a00/device.acd", "PM_ENABLE = false\nPKG_ALIAS = QF48, Q48\n");
    }
    std::string data() const { return "--data " + dir.path() + " "; }
};

}  // namespace

TEST(ToolBasics, EmptyDataDirectoryListsNothing) {
    TempDir empty;
    std::string out, err;
    EXPECT_EQ(runTool("--data " + empty.path() + " families", &out, &err), 0);
    EXPECT_EQ(out, "");
    EXPECT_EQ(err, "");
    EXPECT_EQ(runTool("--json --data " + empty.path() + " families", &out), 0);
    EXPECT_EQ(out, "[\n]\n");
}

TEST(ToolBasics, UsageErrorsAreOneLineAndNonZero) {
    // An unknown command, a missing argument, no command at all.
    for (const char* args : {"no-such-command", "key zr1a00", ""}) {
        std::string out, err;
        EXPECT_NE(runTool(args, &out, &err), 0) << args;
        EXPECT_EQ(lineCount(err), 1) << args << ": " << err;
    }
}

TEST(ToolBasics, CatalogueCommandsAndTraces) {
    SmallInstall install;
    std::string out, err;
    EXPECT_EQ(runTool(install.data() + "pms --loaded", &out, &err), 0);
    EXPECT_EQ(out, "tb1a00\n");
    EXPECT_EQ(err,
              "devctrl: Failed to load device.acd of tb2a00\n"
              "devctrl: TarnDeviceMngr failed to load tb2a00 device information.\n");
    // Standard output and error together; -q silences the load traces.
    const std::pair<const char*, const char*> cases[] = {
        {"pms", "tb1a00\ntb1a00\ntb2a00\n"},  // TBALT, TBF and TBOFF, in that order
        {"pm-of tbalt", "tb1a00\n"},
        {"family-of tb1a00", "TBF\n"},
        {"key tb1a00 PACKAGES", "TB4, QF48\n"},
        {"pm-of NOPE", "devctrl: unknown family 'NOPE' (see 'devctrl families')\n"},
        {"key tb1a00 NOPE", "devctrl: PM 'tb1a00' has no key 'NOPE'\n"},
    };
    for (const auto& [args, expected] : cases) {
        const bool error = std::string(expected).rfind("devctrl: ", 0) == 0;
        EXPECT_EQ(runTool(install.data() + "-q " + args, &out, &err), error ? 1 : 0) << args;
        EXPECT_EQ(out + err, expected) << args;
    }
    EXPECT_EQ(runTool(install.data() + "key nopm FAMILY", &out, &err), 1);
    EXPECT_EQ(lineCount(err), 1);
}

TEST(ToolBasics, JsonOnEveryCommandIsValid) {
    SmallInstall install;
    for (const char* args : {"families", "pms", "pm-of TBF", "family-of tb1a00",
                             "key tb1a00 DEVICES", "default-device"}) {
        std::string out;
        EXPECT_EQ(runTool("-q --json " + install.data() + args, &out), 0) << args;
        EXPECT_TRUE(isJson(out)) << args << ": " << out;
    }
}
