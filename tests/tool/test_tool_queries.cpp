// SPDX-License-Identifier: MIT
// Property queries and output formats of the tool on the sample installation:
// parts by item conditions, chosen columns, every item of a part with its
// source, each list in lines, table, CSV and JSON, and errors as JSON.

#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <algorithm>
#include <sstream>

#include "support/test_env.h"

using devctrl_test::runTool;

namespace {

struct ToolRun {
    int status;
    std::string out;
    std::string err;
};

ToolRun tool(const std::string& args) {
    ToolRun run;
    run.status = runTool("-q --data " DEVCTRL_TEST_SAMPLE_DATA " " + args, &run.out, &run.err);
    return run;
}

// zr2b00 (ZR2): ZS3 has 3520 LUTs; QN48 has 48 pins and 35 I/Os; every part
// of ZS3 in QN48 is in production (Status P).
const char* kWhere = "parts zr2b00 --where 'LUT>=3520' --where 'Pin Count=48'";

TEST(ToolQueries, WhereAndColumnsInEveryFormat) {
    const struct {
        const char* args;
        const char* out;
    } cases[]{
        {kWhere, "ZS3-4N48C\nZS3-5N48C\nZS3-5N48E\nZS3-5N48I\nZS3-6N48C\n"},
        // Numbers compare as numbers (1280 < 1281), text without case.
        {"parts zr2b00 --where 'LUT<1281' --where 'Shipping=REEL'", "ZS1-5N48C\nZS1-5N48I\n"},
        {"parts zr2b00 --where 'Condition=auto' --columns 'LUT,Pin Count,Status'",
         "ZS3-5N48E\t3520\t48\tP\n"},
        {"--format table parts zr2b00 'ZS3-5*' --where 'Pin Count=48' --columns 'IO,Condition'",
         "part       IO  Condition\n"
         "ZS3-5N48C  35  COM\n"
         "ZS3-5N48E  35  AUTO\n"
         "ZS3-5N48I  35  IND\n"},
        {"--format csv parts zr2b00 'ZS3-5N48?' --columns 'Pin Count,Shipping'",
         "part,Pin Count,Shipping\r\nZS3-5N48C,48,tray\r\nZS3-5N48E,48,tray\r\n"
         "ZS3-5N48I,48,tray\r\n"},
        {"--format csv devices zr2b00", "device\r\nZS1\r\nZS3\r\nZS6\r\n"},
        {"--format table devices zr2b00", "device\nZS1\nZS3\nZS6\n"},
        {"--format table speeds zr2b00 ZS3 QN48", "speed\n4\n5\n6\n"},
        {"--json parts zr2b00 ZS3-5N48E --columns 'Pin Count'",
         "[\n    {\n        \"items\": {\n            \"Pin Count\": \"48\"\n        },\n"
         "        \"part\": \"ZS3-5N48E\"\n    }\n]\n"},
        {"--format=json parts zr2b00 'ZS6-6*'",
         "[\n    \"ZS6-6Q64C\",\n    \"ZS6-6B121C\",\n    \"ZS6-6B121CES\"\n]\n"},
        // A record: aligned lines, key/value CSV, typed JSON.
        {"--format csv settings ZS3-5N48E",
         "key,value\r\npart,ZS3-5N48E\r\nsynplify,yes\r\nprecision,no\r\n"
         "default_synthesis,synplify\r\nicf,no\r\nlst,no\r\nbitgen,yes\r\nasc_max,2\r\n"
         "asc_on_board,none\r\nasc_linkable,\"ASC10, ASC20\"\r\n"},
    };
    for (const auto& c : cases) {
        const ToolRun run = tool(c.args);
        EXPECT_EQ(run.status, 0) << c.args << ": " << run.err;
        EXPECT_EQ(run.out, c.out) << c.args;
        EXPECT_EQ(run.err, "") << c.args;
    }
}

TEST(ToolQueries, MistakesAreErrorsNeverEmptyLists) {
    const struct {
        const char* args;
        int status;
        const char* err;
    } cases[]{
        {"parts zr2b00 --where 'Pin count=48'", 1,
         "devctrl: unknown item 'Pin count' in zr2b00; did you mean Pin Count?\n"},
        {"parts zr2b00 --columns 'LUT,LUTS'", 1,
         "devctrl: unknown item 'LUTS' in zr2b00; did you mean LUT?\n"},
        {"parts zr2b00 --where 'LUT>>1'", 2,
         "devctrl: filter 'LUT>>1' has an unknown operator '>>'; use =, !=, <, <=, >, >= or ~\n"},
        {"--format csv dump zr2b00", 2,
         "devctrl: 'dump' prints no rows; use --format lines or json\n"},
        {"--format table --json families", 2,
         "{\"error\":{\"exit_status\":2,\"message\":\"--json and --format table contradict "
         "each other\"}}\n"},
        // With JSON asked for, the error is a JSON document too.
        {"--json parts zr2b00 --where 'Statu=P'", 1,
         "{\"error\":{\"exit_status\":1,\"message\":\"unknown item 'Statu' in zr2b00; did you "
         "mean Status?\"}}\n"},
        {"--format json no-such", 2,
         "{\"error\":{\"exit_status\":2,\"message\":\"unknown command 'no-such' (see 'devctrl "
         "--help')\"}}\n"},
    };
    for (const auto& c : cases) {
        const ToolRun run = tool(c.args);
        EXPECT_EQ(run.status, c.status) << c.args;
        EXPECT_EQ(run.err, c.err) << c.args;
        EXPECT_EQ(run.out, "") << c.args;
    }
}

// Each item the part has a value for, once, with the table it is read from,
// in lookup order: part, package, device, family, part table.
TEST(ToolQueries, AllItemsOfAPartWithTheirSources) {
    const ToolRun run = tool("part ZS3-5N48E --all-items");
    ASSERT_EQ(run.status, 0) << run.err;
    const std::vector<std::string> expected{
        "Status\tP\tpart",
        "ASCMaxNum\t2\tpart",
        "Shipping\ttray\tpart",
        "IO\t35\tpackage",
        "Pin Count\t48\tpackage",
        "LUT\t3520\tdevice",
        "FF\t3520\tdevice",
        "ICFEnable\t0\tdevice",
        "DefSynthesis\tsynplify\tfamily",
        "PrecisionEnable\t0\tfamily",
    };
    std::vector<std::string> lines;
    std::istringstream in(run.out);
    for (std::string line; std::getline(in, line);)
        lines.push_back(line);
    std::size_t previous = 0;
    const std::vector<std::string> order{"part", "package", "device", "family", "part table"};
    for (const std::string& line : lines) {
        const std::string source = line.substr(line.rfind('\t') + 1);
        const auto rank =
            static_cast<std::size_t>(std::find(order.begin(), order.end(), source) - order.begin());
        ASSERT_LT(rank, order.size()) << line;
        EXPECT_GE(rank, previous) << line;
        previous = rank;
    }
    for (const std::string& row : expected)
        EXPECT_EQ(std::count(lines.begin(), lines.end(), row), 1) << row << "\n" << run.out;

    const ToolRun json = tool("--json part ZS3-5N48E --all-items");
    const QJsonObject object =
        QJsonDocument::fromJson(QByteArray::fromStdString(json.out)).object();
    EXPECT_EQ(object["condition"].toString(), "AUTO");
    EXPECT_EQ(object["items"].toArray().size(), static_cast<int>(lines.size()));
    EXPECT_EQ(object["items"].toArray()[0].toObject(),
              (QJsonObject{{"name", "Status"}, {"value", "P"}, {"source", "part"}}));
}

}  // namespace
