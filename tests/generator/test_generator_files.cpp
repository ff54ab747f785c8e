// SPDX-License-Identifier: MIT
// The generated catalogue: the same seed gives the same bytes, and nothing is
// written over. What it claims about itself is checked where the index tests
// load it.

#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <stdexcept>

#include "generator/catalogue_generator.h"
#include "support/test_env.h"

using devctrl_test::TempDir;
namespace fs = std::filesystem;
namespace gen = tarn::vyxpn::gen;

namespace {

gen::GeneratedCatalogue generate(const std::string& directory, std::size_t parts,
                                 std::uint32_t seed) {
    gen::GeneratorOptions options;
    options.parts = parts;
    options.seed = seed;
    return gen::generateCatalogue(directory, options);
}

// Every file under `root` by relative path, with its bytes.
std::map<std::string, std::string> snapshot(const std::string& root) {
    std::map<std::string, std::string> files;
    for (const auto& entry : fs::recursive_directory_iterator(root))
        if (entry.is_regular_file())
            files[fs::relative(entry.path(), root).string()] =
                devctrl_test::readFile(entry.path().string());
    return files;
}

}  // namespace

TEST(GeneratorCatalogue, SameSeedSameBytesOtherSeedOtherBytes) {
    TempDir dir;
    const auto first = generate(dir.file("a"), 2500, 3);
    const auto again = generate(dir.file("b"), 2500, 3);
    generate(dir.file("c"), 2500, 4);
    const auto a = snapshot(dir.file("a"));
    EXPECT_EQ(a.size(), 3 * first.pms.size() + 2);
    EXPECT_EQ(a, snapshot(dir.file("b")));
    EXPECT_EQ(first.sampleParts, again.sampleParts);
    EXPECT_NE(a, snapshot(dir.file("c")));

    // The tool passes size and seed through and reports the part count.
    std::string out, err;
    ASSERT_EQ(devctrl_test::runTool(
                  "--json generate '" + dir.file("tool") + "' --parts 2500 --seed 3", &out, &err),
              0)
        << err;
    EXPECT_EQ(snapshot(dir.file("tool")), a);
    // A count is a JSON number.
    EXPECT_NE(out.find("\"parts\": " + std::to_string(first.parts) + ",\n"), std::string::npos)
        << out;
}

TEST(GeneratorCatalogue, RefusesANonEmptyDirectoryAndLeavesItAlone) {
    TempDir dir;
    dir.write("data/notes.txt", "keep me");
    EXPECT_THROW(generate(dir.file("data"), 2000, 1), std::runtime_error);
    std::string out, err;
    EXPECT_NE(devctrl_test::runTool("generate '" + dir.file("data") + "' --parts 2000", &out, &err),
              0);
    EXPECT_EQ(err, "devctrl: " + dir.file("data") + " is not empty\n");
    EXPECT_EQ(devctrl_test::listDirectory(dir.file("data")), std::vector<std::string>{"notes.txt"});
    EXPECT_EQ(devctrl_test::readFile(dir.file("data/notes.txt")), "keep me");
}
