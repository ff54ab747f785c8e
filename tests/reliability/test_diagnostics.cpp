// SPDX-License-Identifier: MIT
// Diagnostics say what is wrong, once: parts named with '?', a family name
// used twice, a damaged file capped at a few lines, a family switched off on
// purpose kept quiet by the tool, and check-data reporting every problem.

#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <algorithm>
#include <regex>

#include "devctrl/mngr/data_check.h"
#include "platform/keyed_record_lines.h"
#include "platform/ut_trace.h"
#include "reliability/bad_data_support.h"

namespace {

using namespace devctrl_test;

std::string deviceTable(const TempDir& dir) {
    return dir.file(std::string(kBadDataPm) + "/device.acd");
}

TEST(Diagnostics, PartsNamedWithAQuestionMarkAreTraced) {
    TempDir dir;
    // The device table ends before the record of BQ2: its parts get '?'.
    writeFamily(dir, cleanFamilyKey(),
                "PM_ENABLE = true\nPKG_ALIAS = BG10, B10\nPACKAGE_ITEMS = ES, Condition\n"
                "PACKAGE_DATAS = BQ1, BG10, No, C\n");
    TraceCapture traces;
    const auto parts = loadedParts(dir.path());
    EXPECT_NE(std::find(parts.begin(), parts.end(), "BQ2-1B10I?"), parts.end());
    EXPECT_EQ(traces.lines(),
              (std::vector<std::string>{deviceTable(dir) +
                                        ": no ES value for BQ2, BG10: its parts are named like "
                                        "BQ2-1B10I?"}));
}

TEST(Diagnostics, AFamilyNameOfTwoPmsIsTracedNamingBoth) {
    TempDir dir;
    writeFamily(dir, cleanFamilyKey(), cleanDeviceAcd());
    dir.write("bd2a00/family.key", "FAMILY = BDX, bdq\nDEVICES = BQ1\n");
    dir.write("bd2a00/device.acd", cleanDeviceAcd());
    TraceCapture traces;
    const auto parts = loadedParts(dir.path());  // the first PM still wins
    EXPECT_EQ(parts.size(), 5u);
    EXPECT_EQ(traces.lines(),
              (std::vector<std::string>{dir.file("bd2a00/family.key") +
                                        ": FAMILY bdq is already the family of bd1a00 (" +
                                        dir.file("bd1a00") + "/family.key), which keeps it"}));
}

TEST(Diagnostics, TracesAboutOneFileAreCapped) {
    std::string junk;
    for (int i = 0; i < 40; ++i)
        junk += "no equals sign here\n";
    const struct {
        const char* what;
        std::string relative, content;
    } cases[] = {
        {"device table", "bd1a00/device.acd", cleanDeviceAcd() + junk},
        {"key data", "bd1a00/family.key", cleanFamilyKey() + junk},
        {"part data", "bd1a00/bd1a00.pwd", "[[Device Info]]\nFormat = LUT\n" + junk},
    };
    for (const auto& c : cases) {
        TempDir dir;
        writeFamily(dir, cleanFamilyKey(), cleanDeviceAcd());
        dir.write(c.relative, c.content);
        const std::string file = dir.file(c.relative);
        {
            TraceCapture traces;
            loadedParts(dir.path());
            const auto about = linesMentioning(traces, file);
            ASSERT_EQ(about.size(), 6u) << c.what;
            EXPECT_EQ(about.back(), "... and 35 more in " + file) << c.what;
        }
        // A linter lifts the cap and sees them all.
        const std::size_t previous = setTracesPerFile(0);
        TraceCapture traces;
        loadedParts(dir.path());
        EXPECT_EQ(linesMentioning(traces, file).size(), 40u) << c.what;
        setTracesPerFile(previous);
    }
}

TEST(Diagnostics, TheToolKeepsASwitchedOffFamilyQuietUnlessVerbose) {
    TempDir dir;
    writeFamily(dir, cleanFamilyKey(), cleanDeviceAcd());
    dir.write("bd2a00/family.key", "FAMILY = BDOFF\nDEVICES = BQ1\n");
    dir.write("bd2a00/device.acd", "PM_ENABLE = false\nPKG_ALIAS = BG10, B10\n");
    std::string out, err;
    EXPECT_EQ(runTool("--data " + dir.path() + " families", &out, &err), 0);
    EXPECT_EQ(out, "BDQ\n");
    EXPECT_EQ(err, "");
    EXPECT_EQ(runTool("-v --data " + dir.path() + " families", &out, &err), 0);
    EXPECT_EQ(err,
              "devctrl: Failed to load device.acd of bd2a00\n"
              "devctrl: TarnDeviceMngr failed to load bd2a00 device information.\n");
    // A family that cannot load for real is still reported.
    dir.write("bd2a00/device.acd", "PM_ENABLE = true\n");
    EXPECT_EQ(runTool("--data " + dir.path() + " families", &out, &err), 0);
    EXPECT_EQ(err,
              "devctrl: Failed to load device.acd of bd2a00\n"
              "devctrl: TarnDeviceMngr failed to load bd2a00 device information.\n");
}

TEST(Diagnostics, RecordLinesFollowContinuationLines) {
    TempDir dir;
    const std::string path = dir.write("device.acd",
                                       "# comment\n"
                                       "PACKAGE_DATAS = A, P1, 1 : \\\n"
                                       "                B, P1, 2 : \\\n"
                                       "# value text, not a comment : \\\n"
                                       "                C, P2, 3 : D, P2, 4\n"
                                       "DEVICE_DATAS = A, 1\n"
                                       "DEVICE_DATAS = B, 2\n");
    const KeyedRecordLines lines(path);
    const struct {
        const char* key;
        std::vector<std::string> fields;
        std::size_t line;
    } cases[] = {
        {"PACKAGE_DATAS", {"A", "P1"}, 2},
        {"PACKAGE_DATAS", {"B", "P1"}, 3},
        {"PACKAGE_DATAS", {"C", "P2"}, 5},
        {"PACKAGE_DATAS", {"D", "P2"}, 5},
        {"PACKAGE_DATAS", {"# value text"}, 4},
        {"PACKAGE_DATAS", {"E", "P2"}, 2},  // no such record: the key's line
        {"DEVICE_DATAS", {"B"}, 7},         // the later definition counts
        {"DEVICE_DATAS", {"A"}, 7},
        {"PM_DATAS", {}, 0},
    };
    for (const auto& c : cases)
        EXPECT_EQ(lines.recordLine(c.key, c.fields), c.line) << c.key << " " << c.fields.size();
}

struct CheckCase {
    const char* what;
    std::string deviceAcd;
    std::vector<std::string> problems;  // after the device table's path and ':'
};

TEST(Diagnostics, CheckDataReportsEveryProblemWithItsLine) {
    const std::string junk = "no equals sign here\n";
    const CheckCase cases[] = {
        {"clean", cleanDeviceAcd(), {}},
        {"every negative PKGIndex, not just the first",
         "PM_ENABLE = true\nPKG_ALIAS = BG10, B10\n"
         "PACKAGE_ITEMS = ES, Condition, PKGIndex\n"
         "PACKAGE_DATAS = BQ1, BG10, No, C, -1 : \\\n  BQ2, BG10, No, C, -3\n",
         {"4: PACKAGE_DATAS record BQ1, BG10: PKGIndex -1 is negative",
          "5: PACKAGE_DATAS record BQ2, BG10: PKGIndex -3 is negative"}},
        {"listed parts without condition",
         "PM_ENABLE = true\nPART_GENERATE_METHOD = opn\nPKG_ALIAS = BG10, B10\n"
         "PART_ITEMS = Status\nPART_DATAS = BQ1-1B10C, BQ1, BG10, 1, , , P : \\\n"
         "   BQ2-1B10C, BQ2, BG10, 1, , , P\n",
         {"5: PART_DATAS record BQ1-1B10C: no condition",
          "6: PART_DATAS record BQ2-1B10C: no condition"}},
        {"malformed lines, all of them",
         cleanDeviceAcd() + junk + junk + junk + junk + junk + junk,
         {"8: malformed line skipped (no '=')", "9: malformed line skipped (no '=')",
          "10: malformed line skipped (no '=')", "11: malformed line skipped (no '=')",
          "12: malformed line skipped (no '=')", "13: malformed line skipped (no '=')"}},
        {"no package aliases",
         "PM_ENABLE = true\n",
         {" no PKG_ALIAS record: the family cannot load"}},
        {"no switch", "PKG_ALIAS = BG10, B10\n", {" no PM_ENABLE: the family is switched off"}},
        {"switched off on purpose", "PM_ENABLE = no\nPKG_ALIAS = BG10, B10\n", {}},
    };
    for (const CheckCase& c : cases) {
        TempDir dir;
        writeFamily(dir, cleanFamilyKey(), c.deviceAcd);
        std::vector<std::string> expected;
        for (const std::string& problem : c.problems)
            expected.push_back(deviceTable(dir) + ":" + problem + "\n");
        std::string out, err;
        EXPECT_EQ(runTool("check-data " + dir.path(), &out, &err), c.problems.empty() ? 0 : 1)
            << c.what;
        std::string joined;
        for (const std::string& line : expected)
            joined += line;
        EXPECT_EQ(out, joined) << c.what;
        EXPECT_EQ(err, "") << c.what;

        // The same problems as JSON.
        EXPECT_EQ(runTool("--json check-data " + dir.path(), &out), c.problems.empty() ? 0 : 1);
        const QJsonArray problems =
            QJsonDocument::fromJson(QByteArray::fromStdString(out)).object()["problems"].toArray();
        ASSERT_EQ(problems.size(), static_cast<int>(c.problems.size())) << c.what << out;
        for (int i = 0; i < problems.size(); ++i) {
            const QJsonObject problem = problems[i].toObject();
            EXPECT_EQ(problem["file"].toString().toStdString(), deviceTable(dir));
            EXPECT_EQ(problem["pm"].toString().toStdString(), kBadDataPm);
        }
    }
}

TEST(Diagnostics, CheckDataSeesProblemsOutsideTheDeviceTables) {
    TempDir dir;
    writeFamily(dir, cleanFamilyKey(),
                "PM_ENABLE = true\nPKG_ALIAS = BG10, B10\nPACKAGE_ITEMS = ES, Condition\n"
                "PACKAGE_DATAS = BQ1, BG10, No, C\n");
    dir.write("bd2a00/family.key", "FAMILY = BDQ\nDEVICES = BQ1\n");
    dir.write("bd2a00/device.acd", cleanDeviceAcd());
    dir.write("bd3a00/device.acd", cleanDeviceAcd());  // no key data
    dir.write(std::string(kBadDataPm) + "/bd1a00.pwd", "[[Device Info]]\nFormat = LUT\nbroken\n");
    std::string out, err;
    EXPECT_EQ(runTool("check-data " + dir.path(), &out, &err), 1);
    EXPECT_EQ(out, dir.file("bd3a00/family.key") + ": missing; family directory skipped\n" +
                       dir.file("bd2a00/family.key") +
                       ": FAMILY BDQ is already the family of bd1a00 (" + dir.file("bd1a00") +
                       "/family.key), which keeps it\n" + dir.file("bd1a00/bd1a00.pwd") +
                       ":3: part data line without '=' skipped\n" + deviceTable(dir) +
                       ": no ES value for BQ2, BG10: its parts are named like BQ2-1B10I?\n");
}

}  // namespace
