#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>

#include "bench/generator/catalogue_generator.h"
#include "devctrl/mngr/device_mngr.h"
#include "devctrl/sds/sds_file.h"
#include "platform/pd_util.h"
#include "support/test_env.h"

using namespace tarn::vyxpn;
using devctrl_test::DataDirScope;
using devctrl_test::TempDir;
using devctrl_test::TraceCapture;

namespace {

std::size_t partsOf(const TarnSDSFile& file) {
    return file.m_genericDevices.m_datas.size();
}

// A catalogue generated into a temporary directory and loaded by the library.
struct LoadedCatalogue {
    explicit LoadedCatalogue(std::size_t parts, std::uint32_t seed = 11)
        : dir(dir_.path() + "/data") {
        gen::GeneratorOptions options;
        options.parts = parts;
        options.seed = seed;
        options.progress = [this](const std::string& line) { progress.push_back(line); };
        catalogue = gen::generateCatalogue(dir, options);
        scope = std::make_unique<DataDirScope>(dir);
        TraceCapture capture;
        mngr = TarnDeviceMngr::getInstance();
        traces = capture.lines();
    }

    TempDir dir_;
    std::string dir;
    gen::GeneratedCatalogue catalogue;
    std::vector<std::string> progress;
    std::unique_ptr<DataDirScope> scope;
    TarnDeviceMngr* mngr = nullptr;
    std::vector<std::string> traces;
};

}  // namespace

class GeneratorCounts : public ::testing::TestWithParam<std::size_t> {};

TEST_P(GeneratorCounts, LibraryBuildsExactlyTheCountedParts) {
    const std::size_t target = GetParam();
    LoadedCatalogue loaded(target);
    const gen::GeneratedCatalogue& catalogue = loaded.catalogue;

    // Only the switched-off family may complain while loading.
    ASSERT_FALSE(catalogue.disabledPm.empty());
    EXPECT_FALSE(loaded.traces.empty());
    for (const std::string& line : loaded.traces)
        EXPECT_NE(line.find(catalogue.disabledPm), std::string::npos) << line;

    std::size_t built = 0, largest = 0;
    for (const auto& [pm, file] : loaded.mngr->getFamilyFiles()) {
        built += partsOf(*file);
        largest = std::max(largest, partsOf(*file));
    }
    EXPECT_EQ(built, catalogue.parts);
    ASSERT_NE(loaded.mngr->getFamilyFile(catalogue.largestPm), nullptr);
    EXPECT_EQ(partsOf(*loaded.mngr->getFamilyFile(catalogue.largestPm)), catalogue.largestPmParts);
    EXPECT_EQ(largest, catalogue.largestPmParts);

    // The target is approximate, but not far off.
    EXPECT_GT(catalogue.parts, target * 8 / 10);
    EXPECT_LT(catalogue.parts, target * 13 / 10);

    StringList installed;
    TarnDeviceMngr::baseGetAllPMs(installed);
    std::sort(installed.begin(), installed.end());
    installed.erase(std::unique(installed.begin(), installed.end()), installed.end());
    EXPECT_EQ(installed, catalogue.pms);
    EXPECT_EQ(catalogue.pms.size(), std::max<std::size_t>(5, target / 60000 + 4));
    EXPECT_EQ(loaded.mngr->getFamilyFiles().size(), catalogue.pms.size() - 1);
    EXPECT_EQ(loaded.progress.size(), catalogue.pms.size());
}

INSTANTIATE_TEST_SUITE_P(GeneratorSizes, GeneratorCounts, ::testing::Values(2000, 20000));

class GeneratorShape : public ::testing::Test {
  protected:
    static void SetUpTestSuite() { s_loaded = new LoadedCatalogue(6000, 5); }
    static void TearDownTestSuite() {
        delete s_loaded;
        s_loaded = nullptr;
    }
    static TarnDeviceMngr& mngr() { return *s_loaded->mngr; }
    static const gen::GeneratedCatalogue& catalogue() { return s_loaded->catalogue; }
    // Visits every built part of every loaded family.
    template <typename Visit>
    static void forEachPart(Visit&& visit) {
        for (const auto& [pm, file] : mngr().getFamilyFiles())
            for (const auto& row : file->m_genericDevices.m_datas)
                visit(*file, row.first);
    }
    static LoadedCatalogue* s_loaded;
};

LoadedCatalogue* GeneratorShape::s_loaded = nullptr;

TEST_F(GeneratorShape, SamplePartsExistInEveryFamily) {
    const auto& samples = catalogue().sampleParts;
    EXPECT_GT(samples.size(), 900u);
    EXPECT_LT(samples.size(), 1100u);
    std::set<std::string> pmsSampled;
    for (const std::string& part : samples) {
        std::string pm, device, package, speed, condition;
        ASSERT_TRUE(mngr().getNameByPart(part, pm, device, package, speed, condition)) << part;
        pmsSampled.insert(pm);
    }
    EXPECT_EQ(pmsSampled.size(), mngr().getFamilyFiles().size());
}

TEST_F(GeneratorShape, SharedNamesBelongToTheFirstPm) {
    const auto& shared = catalogue().sharedParts;
    ASSERT_GE(shared.size(), 24u);
    ASSERT_LE(shared.size(), 48u);
    for (const std::string& part : shared) {
        std::vector<std::string> owners;
        for (const auto& [pm, file] : mngr().getFamilyFiles())
            if (file->m_genericDevices.m_datas.count(part))
                owners.push_back(pm);
        ASSERT_EQ(owners.size(), 2u) << part;
        std::string pm, device, package, speed, condition;
        ASSERT_TRUE(mngr().getNameByPart(part, pm, device, package, speed, condition));
        EXPECT_EQ(pm, owners.front()) << part;  // getFamilyFiles() is in PM order
    }
}

TEST_F(GeneratorShape, FamilyKindsAndNames) {
    std::size_t ordered = 0, listed = 0;
    for (const auto& [pm, file] : mngr().getFamilyFiles()) {
        if (file->m_partGenerateMethod == "opn") {
            ordered += partsOf(*file);
            EXPECT_EQ(file->m_genericDevices.columnOf("Shipping") >= 0, true) << pm;
        } else if (!file->m_partSection.m_datas.empty()) {
            ++listed;
            // Listed mode keeps listed parts of an excepted device and never
            // builds a listed name that no combination gives.
            EXPECT_LT(partsOf(*file), file->m_partSection.m_datas.size());
            ASSERT_FALSE(file->m_deviceExceptions.empty());
            const std::string excepted = file->m_deviceExceptions.front();
            EXPECT_TRUE(std::any_of(
                file->m_genericDevices.m_datas.begin(), file->m_genericDevices.m_datas.end(),
                [&](const auto& row) { return row.first.rfind(excepted + "-", 0) == 0; }));
        }
    }
    EXPECT_EQ(listed, 1u);
    EXPECT_GT(ordered, catalogue().parts * 8 / 100);
    EXPECT_LT(ordered, catalogue().parts * 25 / 100);

    // One family is sold under two names; both select the same PM.
    StringList families;
    TarnDeviceMngr::baseGetAllFamilies(families);
    std::size_t secondNames = 0;
    for (const std::string& family : families)
        if (family.back() == 'L') {
            ++secondNames;
            EXPECT_EQ(TarnDeviceMngr::baseFamilyToPm(family),
                      TarnDeviceMngr::baseFamilyToPm(family.substr(0, family.size() - 1)));
        }
    EXPECT_EQ(secondNames, 1u);
    EXPECT_EQ(mngr().getFamilyFile(catalogue().disabledPm), nullptr);
}

TEST_F(GeneratorShape, ExceptionsLeaveTheirPartsOut) {
    bool sawAll = false;
    for (const auto& [pm, file] : mngr().getFamilyFiles()) {
        if (file->m_partGenerateMethod == "opn" || !file->m_partSection.m_datas.empty())
            continue;
        if (file->m_deviceExceptions.empty() || file->m_packageExceptions.empty() ||
            file->m_partExceptions.empty())
            continue;
        sawAll = true;
        for (const auto& [part, row] : file->m_genericDevices.m_datas) {
            ASSERT_NE(row[0], file->m_deviceExceptions.front()) << part;
            for (const auto& [device, package] : file->m_packageExceptions)
                ASSERT_FALSE(row[0] == device && row[2] == package) << part;
        }
        for (const std::string& part : file->m_partExceptions)
            EXPECT_EQ(file->m_genericDevices.m_datas.count(part), 0u) << part;
    }
    EXPECT_TRUE(sawAll);
}

TEST_F(GeneratorShape, PartsCarryEveryKindOfValue) {
    std::set<std::string> statuses, conditions, suffixes, synthesis, ascMax;
    bool aliasUsed = false, fullName = false, onBoard = false;
    forEachPart([&](const TarnSDSFile& file, const std::string& part) {
        const auto& row = file.m_genericDevices.m_datas.at(part);
        statuses.insert(file.getItemValue("Status", part, ""));
        conditions.insert(row[file.m_genericDevices.columnOf("Condition")]);
        suffixes.insert(row[file.m_genericDevices.columnOf("Suffix")]);
        synthesis.insert(mngr().getDefaultSynthesis(part));
        ascMax.insert(std::to_string(mngr().getASCMaxNum(part)));
        if (file.m_partGenerateMethod != "opn") {
            const std::string& package = row[file.m_genericDevices.columnOf("Package")];
            const std::string& shortCode = row[file.m_genericDevices.columnOf("ShortPackage")];
            (shortCode.rfind(package, 0) == 0 ? fullName : aliasUsed) = true;
        }
        std::map<std::string, int> ascs;
        if (file.getInternalASCs(part, ascs) && !ascs.empty())
            onBoard = true;
    });
    for (const char* status : {"P", "O", "PO", "E"})
        EXPECT_TRUE(statuses.count(status)) << status;
    EXPECT_EQ(conditions, (std::set<std::string>{"AUTO", "COM", "IND"}));
    EXPECT_EQ(suffixes, (std::set<std::string>{"", "ES", "T"}));
    EXPECT_EQ(synthesis, (std::set<std::string>{"precision", "synplify"}));
    EXPECT_TRUE(ascMax.count("0"));
    EXPECT_GT(ascMax.size(), 2u);
    EXPECT_TRUE(aliasUsed);
    EXPECT_TRUE(fullName);
    EXPECT_TRUE(onBoard);

    StringList chips;
    EXPECT_EQ(mngr().getGloablSupportedASCs(chips), 3);
    EXPECT_FALSE(mngr().getDefaultASC().empty());
}

TEST_F(GeneratorShape, GradesAndTwinPackages) {
    // Some grades are offered in one condition only, and some device offers
    // BG256 and its twin under one short code (the same names twice).
    bool commercialOnly = false, industrialOnly = false, twins = false;
    for (const auto& [pm, file] : mngr().getFamilyFiles()) {
        StringList devices, packages, speeds, operations;
        TarnDeviceMngr::baseGetDevices(pm, devices);
        for (const std::string& device : devices) {
            TarnDeviceMngr::baseGetPackages(pm, device, packages);
            if (std::count(packages.begin(), packages.end(), "BGN256") &&
                file->getShortPackage(device, "BGN256") == file->getShortPackage(device, "BG256"))
                twins = true;
            for (const std::string& package : packages) {
                TarnDeviceMngr::baseGetSpeeds(pm, device, package, speeds);
                for (const std::string& speed : speeds) {
                    TarnDeviceMngr::baseGetOperations(pm, device, package, speed, operations);
                    commercialOnly |= operations == StringList{"Commercial"};
                    industrialOnly |= operations == StringList{"Industrial"};
                }
            }
        }
    }
    EXPECT_TRUE(commercialOnly);
    EXPECT_TRUE(industrialOnly);
    EXPECT_TRUE(twins);
}

TEST_F(GeneratorShape, BothPartDataFormsGiveResourceFigures) {
    std::set<bool> forms;
    for (const auto& [pm, file] : mngr().getFamilyFiles()) {
        std::string path = s_loaded->dir + "/" + pm + "/" + pm + ".pwd";
        ASSERT_FALSE(file->m_deviceInfo.m_datas.empty()) << pm;
        const auto& figures = file->m_deviceInfo.m_datas.begin()->second;
        ASSERT_EQ(figures.size(), 5u) << pm;
        EXPECT_EQ(std::count(figures.begin(), figures.end(), "-"), 0) << pm;
        EXPECT_EQ(file->m_deviceInfo.m_items,
                  (StringList{"Logic Cells", "Registers", "Block RAM", "Multipliers", "IO"}));
        forms.insert(PD_UTIL::IsBinaryFile(path.c_str()));
    }
    EXPECT_EQ(forms.size(), 2u);
}

TEST_F(GeneratorShape, RenamedDevicesPointAtRealParts) {
    std::size_t renamed = 0;
    for (const std::string& part : catalogue().sampleParts) {
        std::string newName;
        if (mngr().getNewFormatDeviceName("P" + part.substr(1), newName) == 1) {
            ++renamed;
            EXPECT_EQ(newName, part);
        }
    }
    EXPECT_GT(renamed, 0u);
    int answers = 0;
    for (const std::string& part : catalogue().sampleParts) {
        std::string newName;
        int kind = mngr().getNewFormatDeviceName(part, newName);
        if (kind == 2 || kind == 3) {
            ++answers;
            EXPECT_TRUE(mngr().exists(newName)) << newName;
        }
    }
    EXPECT_GT(answers, 0);
}
