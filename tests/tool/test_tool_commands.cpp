// SPDX-License-Identifier: MIT
// The tool's commands as one table: exit status, output (or the one error
// line, with its suggestions), and valid JSON under --json.

#include <gtest/gtest.h>

#include <QJsonDocument>
#include <algorithm>
#include <regex>

#include "support/test_env.h"

using devctrl_test::readFile;
using devctrl_test::runTool;
using devctrl_test::TempDir;

namespace {

// ZR1 (zr1a00): ZR4 in QF48 (conditions I and C, suffixes none and ES) and in
// BG100 (automotive); ZR12 in BG100, obsolete. TBF (tb1a00, also TBALT) beside
// it, and TBOFF (tb2a00), disabled. A migration for "translate".
struct SmallInstall {
    TempDir dir;
    SmallInstall() {
        dir.write("zr1a00/family.key",
                  "FAMILY = ZR1\nDEVICES = ZR4, ZR12\nPACKAGES = ZR4, QF48, BG100 : ZR12, BG100\n"
                  "SPEEDS = ZR4, QF48, 6 : ZR4, BG100, 6, 7 : ZR12, BG100, 6\n");
        dir.write("zr1a00/device.acd",
                  "PM_ENABLE = true\nPKG_ALIAS = BG100, B100\n"
                  "DEVICE_ITEMS = Status, ASCMaxNum\nDEVICE_DATAS = ZR4, P, 0 : ZR12, O, 2\n"
                  "PACKAGE_ITEMS = ES, Condition\nPACKAGE_DATAS = ZR4, QF48, No|ES, IC : "
                  "ZR4, BG100, No, A : ZR12, BG100, No, C\n");
        dir.write("tb1a00/family.key",
                  "FAMILY = TBF, TBALT\nDEVICES = TB4\n"
                  "PACKAGES = TB4, QF48\nSPEEDS = TB4, QF48, 6\n");
        dir.write("tb1a00/device.acd",
                  "PM_ENABLE = true\nPKG_ALIAS = QF48, Q48\n"
                  "PACKAGE_ITEMS = ES\nPACKAGE_DATAS = TB4, QF48, No\n");
        dir.write("tb2a00/family.key", "FAMILY = TBOFF\nDEVICES = TB9\n");
        dir.write("tb2a00/device.acd", "PM_ENABLE = false\nPKG_ALIAS = QF48, Q48\n");
        dir.write("pqrndev.lst", "[MIGRATION]\nZR2=ZR2M\n");
    }
};

bool isJson(const std::string& text) {
    QJsonParseError error;  // wrapped: the parser wants an array or object at the top
    QJsonDocument::fromJson(QByteArray::fromStdString("[" + text + "]"), &error);
    return error.error == QJsonParseError::NoError;
}

struct Case {
    const char* args;
    int status;
    const char* output;  // standard output and error together; "~" starts a regex
};

void runCases(const std::string& data, std::initializer_list<Case> cases) {
    for (const Case& c : cases) {
        std::string out, err;
        int status = runTool("-q --data " + data + " " + c.args, &out, &err);
        if (c.status < 0)
            EXPECT_NE(status, 0) << c.args;  // usage errors: the parser's own status
        else
            EXPECT_EQ(status, c.status) << c.args;
        if (c.output[0] == '~')
            EXPECT_TRUE(std::regex_search(out + err, std::regex(c.output + 1)))
                << c.args << ": " << out << err;
        else
            EXPECT_EQ(out + err, c.output) << c.args;
        if (c.status == 0) {
            EXPECT_EQ(runTool("-q --json --data " + data + " " + c.args, &out), 0) << c.args;
            EXPECT_TRUE(isJson(out)) << c.args << " --json: " << out;
        }
        // Errors are one line on standard error; a "no" answer prints none.
        const bool error = c.status < 0 || std::string(c.output).rfind("devctrl: ", 0) == 0;
        EXPECT_EQ(std::count(err.begin(), err.end(), '\n'), error ? 1 : 0) << c.args << ": " << err;
    }
}

}  // namespace

TEST(ToolCommands, SmallInstallation) {
    SmallInstall install;
    runCases(
        install.dir.path(),
        {
            {"families", 0, "TBF\nZR1\n"},
            {"pms", 0, "tb1a00\ntb1a00\ntb2a00\nzr1a00\n"},
            {"pm-of tbalt", 0, "tb1a00\n"},
            {"key tb1a00 PACKAGES", 0, "TB4, QF48\n"},
            {"pm-of NOPE", 1, "devctrl: unknown family 'NOPE' (see 'devctrl families')\n"},
            {"key tb1a00 NOPE", 1, "devctrl: PM 'tb1a00' has no key 'NOPE'\n"},
            {"devices zr1 --all", 0, "ZR4\nZR12\n"},  // a family name in any case
            {"conditions zr1a00 ZR12 BG100 6 --asc-only", 0, ""},
            {"parts zr1a00 'zr4-*qf*' --condition C", 0, "ZR4-6QF48C\nZR4-6QF48CES\n"},
            {"parts zr1a00 '*ES' 'ZR12*' --all --package BG100", 0, "ZR12-6B100C\n"},
            {"parts zr1a00 --condition X", 1,
             "devctrl: unknown condition 'X'; use C, I, A (or E), COM, IND or AUTO\n"},
            {"part ZR4-7B100E", 0, "~speed +7\n"},
            {"item ZR12-6B100C Nothing --default none", 0, "none\n"},
            {"exists zr4-6qf48ces", 1, ""},
            {"translate ZR2", 0, "2 migrated ZR2M\n"},
            {"translate --renames-only ZR2", 0, "0 no translation\n"},
            {"item ZR4-6QF48 Status", 1,
             "devctrl: unknown part 'ZR4-6QF48'; did you mean ZR4-6QF48C, ZR4-6QF48I?\n"},
            {"part XYZ", 1, "devctrl: unknown part 'XYZ'\n"},
            {"devices zr1a01", 1, "devctrl: unknown PM or family 'zr1a01'; did you mean zr1a00?\n"},
            {"no-such-command", -1, "~^.*\n$"},
            {"exist ZR4", -1,
             "devctrl: unknown command 'exist'; did you mean exists? (see 'devctrl --help')\n"},
            {"key zr1a00", -1, "~^.*see 'devctrl key --help'.*\n$"},
            // Values are escaped: an error stays one line and sends nothing to
            // the terminal.
            {"part 'ZR4\nZR12'", 1, "devctrl: unknown part 'ZR4\\nZR12'\n"},
            {"pm-of '\x1b[2J'", 1, "devctrl: unknown family '\\x1b[2J' (see 'devctrl families')\n"},
            {"inner-name 'ZR4\tX'", 1, "devctrl: unknown part ZR4\\tX\n"},
            {"families '--x\ny'", -1, "~--x\\\\ny"},
        });
    std::string out, err;
    // The disabled family is configuration: its traces only with -v.
    EXPECT_EQ(runTool("--data " + install.dir.path() + " pms --loaded", &out, &err), 0);
    EXPECT_EQ(err, "");
    EXPECT_EQ(runTool("-v --data " + install.dir.path() + " pms --loaded", &out, &err), 0);
    EXPECT_EQ(err,
              "devctrl: Failed to load device.acd of tb2a00\n"
              "devctrl: TarnDeviceMngr failed to load tb2a00 device information.\n");
}

TEST(ToolCommands, NamesFromDataFilesAreEscapedInTraces) {
    SmallInstall install;
    // Families whose directory names would clear the screen: one without its
    // key data, one whose device table holds nothing.
    install.dir.write("zy\x1b[2J/device.acd", "PM_ENABLE = true\n");
    install.dir.write("zz\x1b[2J/family.key", "FAMILY = ZZ\nDEVICES = ZZ1\n");
    install.dir.write("zz\x1b[2J/device.acd", "PM_ENABLE = true\n");
    std::string out, err;
    EXPECT_EQ(runTool("--data " + install.dir.path() + " pms --loaded", &out, &err), 0);
    EXPECT_EQ(err.find('\x1b'), std::string::npos) << err;
    EXPECT_NE(err.find("zy\\x1b[2J/family.key: missing"), std::string::npos) << err;
    EXPECT_NE(err.find("devctrl: Failed to load device.acd of zz\\x1b[2J\n"), std::string::npos)
        << err;
    EXPECT_NE(err.find("devctrl: TarnDeviceMngr failed to load zz\\x1b[2J device information.\n"),
              std::string::npos)
        << err;
}

TEST(ToolCommands, SampleInstallation) {
    runCases(
        DEVCTRL_TEST_SAMPLE_DATA,
        {
            {"part-name zr5b00 zu8 cs100 1 com", 0, "ZU8-1CS100C\n"},
            {"inner-name ZU8-2CS100I", 0, "ZU8-XXCS100\n"},
            // Two ASC20 on board plus one linked ASC10: ADC 2*8+4, DAC 2*2+1, GPIO 2*16+8.
            {"report ZR25-6F256C --asc ASC10", 0, "~ADC +20\n(.|\n)*DAC +5\n(.|\n)*GPIO +40\n"},
            {"report ZR99-6F256C", 1, "devctrl: unknown part: ZR99-6F256C\n"},
            {"validate ZR25-6F256C --asc ASC10 --asc ASC20", 0, "valid\n"},
            {"validate ZR4-6QF48C --asc ASC10", 1,
             "~Can't add external ASC chip for device 'ZR4-6QF48C'\\.\n"},
            {"check ZR150-7F676C", 0, "~result +not recommended\n(.|\n)*use +ZR200-7F676C\n"},
            {"check ZQ40-9B256C", 1, "~result +unknown\n"},
            {"settings ZR40-6F256C", 0, "~asc max +4\n"},
            {"asc value ASC20 GPIO", 0, "16\n"},
            {"asc part ZR150-6FG1156C", 0, "~on board  ASC20 x1, ASC40 x1\n"},
        });
}

// The layout of the text form is the writer's business; the tool must give
// the same text for a file in either form.
TEST(ToolCommands, PartDataDumpCompileDumpRoundTrips) {
    TempDir dir;
    std::string text = dir.write("zr1a00.pwd", "[[Device Info]]\nformat = LUT,,FF\n R = 1,,2\n");
    std::string out, err, dump;
    ASSERT_EQ(runTool("pwd-compile " + text + " " + dir.file("a.bin"), &out, &err), 0) << err;
    ASSERT_EQ(runTool("pwd-dump " + dir.file("a.bin"), &dump, &err), 0) << err;
    EXPECT_EQ(dump, "[[Device Info]]\nFormat = LUT, , FF\nR = 1, , 2\n");
    ASSERT_EQ(runTool("pwd-dump " + text, &out, &err), 0) << err;
    EXPECT_EQ(out, dump);

    std::string bytes = readFile(dir.file("a.bin"));
    bytes.back() ^= 0x20;
    EXPECT_EQ(runTool("pwd-dump " + dir.write("bad.bin", bytes), &out, &err), 1);
    EXPECT_NE(err.find("checksum mismatch"), std::string::npos) << err;
}
