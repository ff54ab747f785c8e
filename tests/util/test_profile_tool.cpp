// The "devctrl ini" command, run as a user would.

#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "support/test_env.h"

namespace {

using devctrl_test::readFile;
using devctrl_test::runTool;
using devctrl_test::TempDir;

class ProfileTool : public ::testing::Test {
  protected:
    void SetUp() override {
        file = dir.write("names.ini",
                         "; renamed devices\n[Name Transfer]\nzr1a00 = 'ZR4A00'\nempty=\n"
                         "[MIGRATION]\nzr2b00=ZR4B00\n");
    }
    int run(const std::string& args) { return runTool(args, &out, &err); }
    TempDir dir;
    std::string file;
    std::string out;
    std::string err;
};

TEST_F(ProfileTool, ReadsValuesKeysAndSections) {
    const std::pair<const char*, const char*> cases[] = {
        {"ini get FILE 'name transfer' ZR1A00", "ZR4A00\n"},
        {"ini get FILE 'Name Transfer' empty", "\n"},
        {"--json ini get FILE MIGRATION zr2b00", "\"ZR4B00\"\n"},
        {"ini keys FILE 'Name Transfer'", "zr1a00\nempty\n"},
        {"ini get FILE MIGRATION nothing --default ' fallback '", "fallback\n"},
    };
    for (auto [args, expected] : cases) {
        std::string command = args;
        command.replace(command.find("FILE"), 4, file);
        EXPECT_EQ(run(command), 0) << args << ": " << err;
        EXPECT_EQ(out, expected) << args;
    }
    EXPECT_EQ(run("ini sections " + file + " --json"), 0) << err;
    EXPECT_NE(out.find("\"Name Transfer\""), std::string::npos) << out;
    EXPECT_NE(out.find("\"MIGRATION\""), std::string::npos) << out;
}

TEST_F(ProfileTool, MissingThingsAreClearErrors) {
    EXPECT_EQ(run("ini get " + file + " MIGRATION nothing"), 1);
    EXPECT_EQ(out, "");
    EXPECT_NE(err.find("no key nothing in section [MIGRATION]"), std::string::npos) << err;
    EXPECT_EQ(run("ini keys " + file + " Nowhere"), 1);
    EXPECT_NE(err.find("no section [Nowhere]"), std::string::npos) << err;
    std::string missing = dir.file("missing.ini");
    for (const std::string& command :
         {"get " + missing + " S k --default x", "keys " + missing + " S"}) {
        EXPECT_NE(run("ini " + command), 0) << command;
        EXPECT_NE(err.find("cannot read " + missing), std::string::npos) << err;
        EXPECT_EQ(err.find('\n'), err.size() - 1) << "one line: " << err;
    }
}

TEST_F(ProfileTool, SetsAndDeletes) {
    EXPECT_EQ(run("ini set " + file + " MIGRATION zr3c00 ZR4C00"), 0) << err;
    EXPECT_EQ(out, "");
    EXPECT_EQ(run("ini delete " + file + " 'Name Transfer' zr1a00"), 0) << err;
    EXPECT_EQ(readFile(file),
              "; renamed devices\n[Name Transfer]\nempty=\n[MIGRATION]\nzr2b00=ZR4B00\n"
              "zr3c00=ZR4C00\n");
    EXPECT_EQ(run("ini delete " + file + " 'Name Transfer' zr1a00"), 1);
    EXPECT_NE(err.find("no key zr1a00"), std::string::npos) << err;
    // The last section: removed although the library reports 0.
    EXPECT_EQ(run("--json ini delete " + file + " MIGRATION"), 0) << err;
    EXPECT_NE(out.find("\"action\": \"delete\""), std::string::npos) << out;
    EXPECT_EQ(readFile(file), "; renamed devices\n[Name Transfer]\nempty=\n");
    EXPECT_EQ(run("ini set " + file + " S 'bad=key' v"), 1);
    EXPECT_NE(err.find("'='"), std::string::npos) << err;
}

}  // namespace
