// SPDX-License-Identifier: MIT
// The tool loads only the families a question needs: every answer (standard
// output, standard error, exit status, in every format) is the one a full
// load gives, with the part-owner cache cold and warm, stale, damaged or
// unwritable.

#include <gtest/gtest.h>

#include <sys/stat.h>

#include <cstdio>
#include <filesystem>
#include <fstream>

#include "generator/catalogue_generator.h"
#include "reliability/bad_data_support.h"
#include "support/test_env.h"

using devctrl_test::EnvGuard;
using devctrl_test::readFile;
using devctrl_test::runTool;
using devctrl_test::TempDir;

namespace {

namespace fs = std::filesystem;

struct ToolRun {
    int status = 0;
    std::string out, err;
};

ToolRun run(const std::string& data, const std::string& args) {
    ToolRun result;
    result.status = runTool("-q --data '" + data + "' " + args, &result.out, &result.err);
    return result;
}

ToolRun runFull(const std::string& data, const std::string& args) {
    EnvGuard full("DEVCTRL_FULL_LOAD", "1");
    return run(data, args);
}

void expectSame(const ToolRun& lazy, const ToolRun& full, const std::string& what) {
    EXPECT_EQ(lazy.status, full.status) << what;
    EXPECT_EQ(lazy.out, full.out) << what;
    EXPECT_EQ(lazy.err, full.err) << what;
}

const char* const kFormats[] = {"", "--format table ", "--format csv ", "--json "};

// The single cache file the tool keeps in `cache`; empty when there is none.
std::string cacheFile(const std::string& cache) {
    std::string found;
    for (const auto& entry : fs::directory_iterator(cache))
        if (entry.path().extension() == ".idx")
            found = entry.path().string();
    return found;
}

class LazyLoad : public ::testing::Test {
  protected:
    // Each command in every format against a full load; the lazy tool runs
    // twice in the first format, so that both a cache it must build (the
    // first command) and one it reads are compared.
    void expectAllSameAsFull(const std::string& data, const std::vector<std::string>& commands) {
        for (const std::string& command : commands)
            for (const char* format : kFormats) {
                const std::string args = format + command;
                const ToolRun full = runFull(data, args);
                expectSame(run(data, args), full, args);
                if (format == kFormats[0])
                    expectSame(run(data, args), full, args + " (again)");
            }
    }

    TempDir m_cache;
    EnvGuard m_cacheDir{"DEVCTRL_CACHE_DIR", m_cache.path().c_str()};
    EnvGuard m_notFull{"DEVCTRL_FULL_LOAD", nullptr};
};

TEST_F(LazyLoad, SampleAnswersAsAFullLoad) {
    expectAllSameAsFull(DEVCTRL_TEST_SAMPLE_DATA,
                        {
                            // One part: on-board ASC chips and limits (ZR1), per-part ASC
                            // capacity (ZR2), the incomplete last record, names no family
                            // knows, a part of the switched-off ZR4X.
                            "exists ZR12-2Q48C",
                            "exists ZR12-2Q48CX",
                            "exists ZX1-5N32CES",
                            "exists ''",
                            "part ZR12-2Q48C",
                            "part ZS3-5N48E --all-items",
                            "part ZS9-5B121C",
                            "part ZR12-2Q48",
                            "item ZS3-5N48E ASCMaxNum",
                            "item ZR12-2Q48C Status",
                            "item ZR12-2Q48C Nope",
                            "item ZR12-2Q48C Nope --default x",
                            "item ZZ1 Status",
                            "settings ZS3-5N48E",
                            "settings ZU4-1N40C",
                            "settings ZX1-5N32CES",
                            "report ZS3-5N48E",
                            "report ZS3-5N48E --asc ASC10",
                            "report ZS3-5N48E --asc ASC99",
                            "report ZU4-1N40C",
                            "validate ZS3-5N48E --asc ASC10 --asc ASC20 --asc ASC20",
                            "validate ZR12-2Q48C --asc ASC40",
                            "validate ZU4-1N40C --asc ASC10",
                            "validate ZT2-3N32C",
                            "validate NOPE",
                            "inner-name ZR12-2Q48C",
                            "inner-name NOPE",
                            // One PM: a code, a second family name in another case, the
                            // switched-off family, a name nobody installed.
                            "devices zr1a00",
                            "devices zr2l",
                            "devices ZR4X",
                            "devices zr4x00",
                            "devices ZR9",
                            "devices zr1a00 --asc-only --all",
                            "packages ZR1 ZR12",
                            "packages ZR1 ZR99",
                            "speeds ZR2 ZS3 QN48",
                            "speeds ZR2 ZS3 QN48 --asc-only",
                            "conditions ZR2 ZS3 QN48 5",
                            "conditions ZR5 ZU4 QN40 1 --all",
                            "parts zr3c00",
                            "parts zr5b00 'ZU4-*' --all",
                            "parts ZR1 --asc-only",
                            "parts zr2b00 --where 'LUT>=3520' --columns 'IO,Condition'",
                            // The renamed-device list alone.
                            "translate ZQ12-6B100C",
                            "translate ZR7-6Q48C --renames-only",
                            "translate NOPE",
                            "parts ZR4X",
                        });
}

TEST_F(LazyLoad, TheSwitchedOffFamilyLoadsWithTheVariableAndTheCacheFollows) {
    // The cache built without the variable knows no owner of ZR4X's parts;
    // with it set the family loads, and the answers still match.
    expectAllSameAsFull(DEVCTRL_TEST_SAMPLE_DATA, {"exists ZX1-5N32CES"});
    EnvGuard showAll("TARN_SHOW_ALL_DEVICES", "1");
    expectAllSameAsFull(DEVCTRL_TEST_SAMPLE_DATA,
                        {"exists ZX1-5N32CES", "part ZX1-5N32CES", "devices ZR4X"});
}

TEST_F(LazyLoad, ANameSharedWithAnEarlierFamilyCountsWithThatFamilysCapacity) {
    TempDir data;
    fs::copy(DEVCTRL_TEST_SAMPLE_DATA, data.path(), fs::copy_options::recursive);
    // zr0a00 sorts before zr2b00 and so owns ZS3-5N48E, without ASC capacity.
    data.write("zr0a00/family.key",
               "FAMILY = ZR0\nDEVICES = ZS3\nPACKAGES = ZS3, QN48\nSPEEDS = ZS3, QN48, 5\n");
    data.write("zr0a00/device.acd",
               "PM_ENABLE = true\nPART_GENERATE_METHOD = opn\nPKG_ALIAS = QN48, N48\n"
               "PART_ITEMS = Status, ASCMaxNum\nPART_DATAS = ZS3-5N48E, ZS3, QN48, 5, A, , P, 0\n");
    const std::string ascOnly = "parts zr2b00 --asc-only";
    ASSERT_NE(runFull(DEVCTRL_TEST_SAMPLE_DATA, ascOnly).out, runFull(data.path(), ascOnly).out);
    expectAllSameAsFull(data.path(), {"exists ZS3-5N48E", ascOnly, "devices ZR2 --asc-only",
                                      "speeds ZR2 ZS3 QN48 --asc-only", "settings ZS3-5N48E"});
}

class LazyLoadGenerated : public LazyLoad {
  protected:
    static void SetUpTestSuite() {
        s_data = new TempDir;
        tarn::vyxpn::gen::GeneratorOptions options;
        options.parts = 4000;
        options.seed = 7;
        s_catalogue = new tarn::vyxpn::gen::GeneratedCatalogue(
            tarn::vyxpn::gen::generateCatalogue(s_data->path(), options));
    }
    static void TearDownTestSuite() {
        delete s_catalogue;
        delete s_data;
    }
    static TempDir* s_data;
    static tarn::vyxpn::gen::GeneratedCatalogue* s_catalogue;
};
TempDir* LazyLoadGenerated::s_data = nullptr;
tarn::vyxpn::gen::GeneratedCatalogue* LazyLoadGenerated::s_catalogue = nullptr;

TEST_F(LazyLoadGenerated, SharedNamesRenamedListsAndEveryFamilyAnswerAsAFullLoad) {
    const auto& catalogue = *s_catalogue;
    ASSERT_FALSE(catalogue.sharedParts.empty());
    std::vector<std::string> commands;
    // Names held by two families belong to the first: the later family
    // alone would answer them otherwise.
    for (std::size_t i = 0; i < catalogue.sharedParts.size() && i < 3; ++i) {
        const std::string& part = catalogue.sharedParts[i];
        commands.push_back("part " + part + " --all-items");
        commands.push_back("settings " + part);
        commands.push_back("validate " + part + " --asc ASC10");
    }
    for (std::size_t i = 0; i < catalogue.sampleParts.size(); i += 97)
        commands.push_back("part " + catalogue.sampleParts[i]);
    // Counting by ASC capacity asks the owner of every shared name.
    for (const std::string& pm : catalogue.pms) {
        commands.push_back("devices " + pm + " --asc-only");
        commands.push_back("parts " + pm + " --asc-only --all");
    }
    commands.push_back("devices " + catalogue.disabledPm);
    expectAllSameAsFull(s_data->path(), commands);
}

TEST_F(LazyLoadGenerated, AStaleCacheIsBuiltAgain) {
    TempDir copy;
    fs::copy(s_data->path(), copy.path(), fs::copy_options::recursive);
    const std::string shared = s_catalogue->sharedParts.front();
    expectSame(run(copy.path(), "part " + shared), runFull(copy.path(), "part " + shared), shared);
    const std::string first = readFile(cacheFile(m_cache.path()));

    // Uninstalling the owner of a shared name gives it to the other family:
    // a cache that still named the first owner would call it unknown.
    const ToolRun before = runFull(copy.path(), "part " + shared);
    std::string owner = before.out.substr(before.out.find("pm") + 2);
    owner = owner.substr(owner.find_first_not_of(" \t:"));
    owner = owner.substr(0, owner.find('\n'));
    ASSERT_TRUE(fs::exists(copy.path() + "/" + owner + "/family.key")) << before.out;
    fs::rename(copy.path() + "/" + owner + "/family.key", copy.path() + "/" + owner + "/old.key");
    const ToolRun after = runFull(copy.path(), "part " + shared);
    ASSERT_EQ(after.status, 0) << after.err;
    EXPECT_EQ(after.out.find(owner), std::string::npos) << after.out;
    expectSame(run(copy.path(), "part " + shared), after, "after uninstalling " + owner);
    const std::string second = readFile(cacheFile(m_cache.path()));
    EXPECT_NE(second, first);

    // A file touched, one grown, one added: each is a new cache.
    const std::string key = copy.path() + "/" + s_catalogue->pms.back() + "/family.key";
    const std::vector<std::function<void()>> changes{
        [&] { fs::last_write_time(key, fs::last_write_time(key) - std::chrono::seconds(5)); },
        [&] { std::ofstream(key, std::ios::app) << "# a comment\n"; },
        [&] { std::ofstream(copy.path() + "/notes.txt") << "new\n"; },
    };
    std::string previous = second;
    for (std::size_t i = 0; i < changes.size(); ++i) {
        changes[i]();
        expectSame(run(copy.path(), "exists " + shared), runFull(copy.path(), "exists " + shared),
                   "change " + std::to_string(i));
        const std::string now = readFile(cacheFile(m_cache.path()));
        EXPECT_NE(now, previous) << "change " << i;
        previous = now;
    }
}

TEST_F(LazyLoad, ADamagedCacheIsNeverTrusted) {
    const std::string data = DEVCTRL_TEST_SAMPLE_DATA;
    const std::string part = "ZS3-5N48E";
    const ToolRun full = runFull(data, "part " + part);
    expectSame(run(data, "part " + part), full, "cold");
    const std::string file = cacheFile(m_cache.path());
    const std::string good = readFile(file);
    ASSERT_GT(good.size(), 64u);
    // Names moved to another owner number, a cut file, one grown by a byte,
    // foreign bytes, an empty file.
    std::string wrongOwners = good;
    for (std::size_t i = good.size() - 1; i > good.size() / 2; --i)
        wrongOwners[i] = static_cast<char>(0xff);
    const std::vector<std::string> damaged{wrongOwners, good.substr(0, good.size() / 2), good + "x",
                                           std::string(good.size(), 'Q'), ""};
    for (std::size_t i = 0; i < damaged.size(); ++i) {
        std::ofstream(file, std::ios::binary | std::ios::trunc) << damaged[i];
        for (const char* args : {"part ZS3-5N48E", "exists ZR12-2Q48C", "item ZU4-1N40C Status"})
            expectSame(run(data, args), runFull(data, args),
                       std::string(args) + ", damage " + std::to_string(i));
    }
    EXPECT_EQ(readFile(file), good);
}

TEST_F(LazyLoad, AnUnwritableCacheDirectoryOnlyCostsTime) {
    // A regular file where the directory should be: nothing can be created.
    const std::string blocked = m_cache.write("blocked", "not a directory\n");
    EnvGuard cacheDir("DEVCTRL_CACHE_DIR", (blocked + "/devctrl").c_str());
    for (const char* args : {"part ZS3-5N48E", "exists NOPE", "devices zr2b00 --asc-only"})
        for (int i = 0; i < 2; ++i)
            expectSame(run(DEVCTRL_TEST_SAMPLE_DATA, args), runFull(DEVCTRL_TEST_SAMPLE_DATA, args),
                       args);
}

TEST_F(LazyLoad, ABrokenFamilyOutsideTheQuestionIsNotNamed) {
    TempDir data;
    fs::copy(DEVCTRL_TEST_SAMPLE_DATA, data.path(), fs::copy_options::recursive);
    // A negative package index stops that family's load.
    devctrl_test::writeFamily(
        data, devctrl_test::cleanFamilyKey(),
        devctrl_test::cleanDeviceAcd() + "PM_ITEMS = PKGIndex\nPM_DATAS = -1\n");
    const ToolRun fullFamilies = runFull(data.path(), "families");
    ASSERT_NE(fullFamilies.err.find("BDQ"), std::string::npos) << fullFamilies.err;
    // The broken family itself, asked by name: word for word a full load.
    expectAllSameAsFull(data.path(), {"devices BDQ", "exists BQ1-1B10C", "part BQ2-1B10C"});
    // Another family's question: the same answer, without the failure.
    for (const char* args : {"part ZS3-5N48E", "devices zr2b00"}) {
        run(data.path(), "exists ZR12-2Q48C");  // the cache is warm
        const ToolRun full = runFull(data.path(), args);
        const ToolRun lazy = run(data.path(), args);
        EXPECT_EQ(lazy.status, full.status) << args;
        EXPECT_EQ(lazy.out, full.out) << args;
        EXPECT_EQ(lazy.err, "") << args;
        EXPECT_NE(full.err.find("BDQ"), std::string::npos) << args;
    }
}

}  // namespace
