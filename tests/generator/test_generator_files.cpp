#include <gtest/gtest.h>

#include <filesystem>
#include <stdexcept>

#include "bench/generator/catalogue_generator.h"
#include "support/test_env.h"

using devctrl_test::readFile;
using devctrl_test::runTool;
using devctrl_test::TempDir;
namespace fs = std::filesystem;
namespace gen = tarn::vyxpn::gen;

namespace {

// Every file under `root` by relative path, with its bytes.
std::map<std::string, std::string> snapshot(const std::string& root) {
    std::map<std::string, std::string> files;
    for (const auto& entry : fs::recursive_directory_iterator(root))
        if (entry.is_regular_file())
            files[fs::relative(entry.path(), root).string()] = readFile(entry.path().string());
    return files;
}

gen::GeneratedCatalogue generate(const std::string& directory, std::size_t parts,
                                 std::uint32_t seed) {
    gen::GeneratorOptions options;
    options.parts = parts;
    options.seed = seed;
    return gen::generateCatalogue(directory, options);
}

}  // namespace

TEST(GeneratorFiles, SameSeedSameBytesOtherSeedOtherBytes) {
    TempDir dir;
    const auto first = generate(dir.file("a"), 2500, 3);
    const auto again = generate(dir.file("b"), 2500, 3);
    const auto other = generate(dir.file("c"), 2500, 4);

    const auto a = snapshot(dir.file("a"));
    EXPECT_EQ(a, snapshot(dir.file("b")));
    EXPECT_EQ(first.sampleParts, again.sampleParts);
    EXPECT_EQ(first.parts, again.parts);

    const auto c = snapshot(dir.file("c"));
    EXPECT_NE(a, c);
    // Every PM writes its key data, its device table and a part data file,
    // beside the two shared files.
    EXPECT_EQ(a.size(), 3 * first.pms.size() + 2);
    EXPECT_TRUE(a.count("pqrndev.lst") && a.count("device.acd"));
    EXPECT_NE(first.sampleParts, other.sampleParts);
}

TEST(GeneratorFiles, RefusesANonEmptyDirectoryAndLeavesItAlone) {
    TempDir dir;
    dir.write("data/notes.txt", "keep me");
    EXPECT_THROW(generate(dir.file("data"), 2000, 1), std::runtime_error);
    EXPECT_EQ(devctrl_test::listDirectory(dir.file("data")), std::vector<std::string>{"notes.txt"});

    // A path below a file cannot be created.
    EXPECT_THROW(generate(dir.file("data/notes.txt/sub"), 2000, 1), std::runtime_error);

    // An existing empty directory is fine.
    fs::create_directory(dir.file("empty"));
    EXPECT_GT(generate(dir.file("empty"), 2000, 1).parts, 0u);
}

TEST(GeneratorTool, WritesReportsAndRefuses) {
    TempDir dir;
    const std::string target = dir.file("data");
    std::string out, err;
    ASSERT_EQ(runTool("--json generate '" + target + "' --parts 2000 --seed 9", &out, &err), 0)
        << err;
    const auto expected = generate(dir.file("again"), 2000, 9);
    EXPECT_NE(out.find("\"parts\": \"" + std::to_string(expected.parts) + "\""), std::string::npos)
        << out;
    EXPECT_NE(out.find("\"largest pm\": \"" + expected.largestPm + "\""), std::string::npos) << out;
    // One progress line per family on standard error.
    EXPECT_EQ(static_cast<std::size_t>(std::count(err.begin(), err.end(), '\n')),
              expected.pms.size());

    // The generated directory is a working installation for the tool.
    ASSERT_EQ(runTool("--data '" + target + "' exists " + expected.sampleParts.front(), &out, &err),
              0)
        << err;

    EXPECT_NE(runTool("generate '" + target + "' --parts 2000", &out, &err), 0);
    EXPECT_EQ(err, "devctrl: " + target + " is not empty\n");
    EXPECT_NE(runTool("generate '" + dir.file("zero") + "' --parts 0", &out, &err), 0);
    EXPECT_NE(err.find("--parts must be between 1 and"), std::string::npos) << err;
    EXPECT_FALSE(fs::exists(dir.file("zero")));
}
