#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "support/test_env.h"

using devctrl_test::readFile;
using devctrl_test::runTool;
using devctrl_test::TempDir;

// The layout of the text form is the writer's business and is checked
// there; the tool must give the same text for a file in either form.
TEST(PwdCommands, DumpCompileDumpRoundTripsByteForByte) {
    TempDir dir;
    std::string text = dir.write("zr1a00.pwd", "[[Device Info]]\nformat = LUT,,FF\n R = 1,,2\n");
    std::string out, err, dump;
    ASSERT_EQ(runTool("pwd-compile " + text + " " + dir.file("a.bin"), &out, &err), 0) << err;
    ASSERT_EQ(runTool("pwd-dump " + dir.file("a.bin"), &dump, &err), 0) << err;
    EXPECT_EQ(dump, "[[Device Info]]\nFormat = LUT, , FF\nR = 1, , 2\n");
    ASSERT_EQ(runTool("pwd-dump " + text, &out, &err), 0) << err;
    EXPECT_EQ(out, dump);
    // Compiling the dump gives the same bytes again.
    std::string dumped = dir.write("dumped.txt", dump);
    ASSERT_EQ(runTool("pwd-compile " + dumped + " " + dir.file("b.bin"), &out, &err), 0) << err;
    EXPECT_EQ(readFile(dir.file("b.bin")), readFile(dir.file("a.bin")));
}

TEST(PwdCommands, ClearErrors) {
    TempDir dir;
    std::string text = dir.write("x.pwd", "[[S]]\nFormat = A\nR = 1\n");
    std::string out, err;
    ASSERT_EQ(runTool("pwd-compile " + text + " " + dir.file("x.bin"), &out, &err), 0) << err;
    EXPECT_NE(runTool("pwd-compile " + dir.file("x.bin") + " " + dir.file("y.bin"), &out, &err), 0);
    EXPECT_NE(err.find("binary form already"), std::string::npos) << err;

    std::string bytes = readFile(dir.file("x.bin"));
    bytes[bytes.size() - 1] ^= 0x20;
    std::string damaged = dir.write("damaged.bin", bytes);
    EXPECT_NE(runTool("pwd-dump " + damaged, &out, &err), 0);
    EXPECT_NE(err.find("checksum mismatch"), std::string::npos) << err;
    EXPECT_NE(runTool("pwd-dump " + dir.file("missing"), &out, &err), 0);
    EXPECT_NE(err.find("cannot read"), std::string::npos) << err;
}

TEST(PwdCommands, TranslatePrintsCodeMeaningAndNewName) {
    TempDir data;
    data.write("pqrndev.lst",
               "[Name Transfer]\nZR1=ZR1N\n[MIGRATION]\nZR2=ZR2M\n[Not Recommend]\nZR3=ZR3R\n");
    const std::pair<const char*, const char*> cases[] = {
        {"translate ZR1", "1 renamed ZR1N\n"},
        {"translate ZR2", "2 migrated ZR2M\n"},
        {"translate ZR3", "3 not recommended ZR3R\n"},
        {"translate --renames-only ZR2", "0 no translation\n"},
    };
    std::string out, err;
    for (const auto& [args, expected] : cases) {
        ASSERT_EQ(runTool("--data " + data.path() + " " + args, &out, &err), 0) << err;
        EXPECT_EQ(out, expected) << args;
    }
    ASSERT_EQ(runTool("--data " + data.path() + " --json translate ZR2", &out, &err), 0) << err;
    EXPECT_NE(out.find("\"code\": 2"), std::string::npos) << out;
    EXPECT_NE(out.find("\"newName\": \"ZR2M\""), std::string::npos) << out;
}
