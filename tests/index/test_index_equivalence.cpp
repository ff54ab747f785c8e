// SPDX-License-Identifier: MIT
// The indexed answers of the manager and the family objects against the plain
// walks of reference_walks.h: on the sample data, and on a generated catalogue
// (which must also be what the generator says it is) through the events that
// must drop the indexes.

#include <gtest/gtest.h>

#include <filesystem>
#include <set>

#include "devctrl/util/comparators.h"
#include "devctrl/util/string_list.h"
#include "devctrl/util/string_utils.h"
#include "generator/catalogue_generator.h"
#include "index/library_lists.h"
#include "index/reference_walks.h"
#include "support/test_env.h"

using namespace tarn::vyxpn;
using devctrl_test::DataDirScope;
using devctrl_test::TraceCapture;
using tarn::vyxpn::StringList;
namespace ref = devctrl_test::ref;
using devctrl_test::libraryList;
using ref::Cells;

namespace {

const auto& kFilters = devctrl_test::kFilterSettings;

// Every `stride`-th distinct prefix of the name cells, by length 0..3, plus
// an unknown one; and every `stride`-th full set of cells.
std::array<std::vector<Cells>, 5> prefixesOf(const TarnSDSFile& file, std::size_t stride) {
    const auto columns = ref::nameColumns(file);
    std::array<std::set<Cells>, 5> sets;
    for (const auto& entry : file.m_genericDevices.m_datas) {
        Cells cells;
        sets[0].insert(cells);
        for (std::size_t k = 0; k < 4; ++k) {
            cells[k] = entry.second.at(columns[k]);
            sets[k + 1].insert(cells);
        }
    }
    std::array<std::vector<Cells>, 5> kept;
    for (std::size_t k = 0; k <= 4; ++k) {
        if (k > 0 && !sets[k].empty())
            sets[k].insert({"NO-SUCH"});
        std::size_t n = 0;
        std::copy_if(sets[k].begin(), sets[k].end(), std::back_inserter(kept[k]),
                     [&](const Cells&) { return n++ % stride == 0; });
    }
    return kept;
}

void expectFamilyMatchesWalk(TarnDeviceMngr& mngr, const TarnSDSFile& file, std::size_t stride) {
    const auto prefixes = prefixesOf(file, stride);
    for (const auto& [obsolete, asc] : kFilters) {
        for (int k = 0; k < 4; ++k) {
            const auto kind = static_cast<PartListKind>(k);
            for (const Cells& c : prefixes[k]) {
                StringList walked = ref::familyList(file, kind, c, obsolete, asc);
                for (bool sorted : {false, true}) {
                    if (sorted)
                        kind == PartListKind::Packages ? sortPackages(walked) : sortNatural(walked);
                    EXPECT_EQ(libraryList(file, kind, c, obsolete, asc, sorted), walked)
                        << file.m_pm << " list " << k << (sorted ? " sorted" : "") << " of ["
                        << c[0] << "|" << c[1] << "|" << c[2] << "] " << obsolete << asc;
                }
            }
        }
        StringList walked = ref::allParts(file, obsolete, asc), listed;
        sortNatural(walked);
        mngr.getAllPartsByPM(file.m_pm, listed, obsolete, asc);
        EXPECT_EQ(listed, walked) << file.m_pm << " all parts by PM " << obsolete << asc;
    }
    for (const Cells& c : prefixes[4])
        for (auto change : {+[](const std::string& s) { return s; }, &util::toLower}) {
            const Cells asked{change(c[0]), change(c[1]), change(c[2]), change(c[3])};
            EXPECT_EQ(mngr.getPartName(file.m_pm, asked[0], asked[1], asked[2], asked[3]),
                      ref::partName(mngr, file.m_pm, asked))
                << file.m_pm << " part name of " << asked[0] << asked[1] << asked[2] << asked[3];
        }
}

// Owner and cells of every part and of `extra`, the family list under all
// four filters, then every family's queries.
void expectManagerMatchesWalk(TarnDeviceMngr& mngr, std::size_t stride,
                              const StringList& extra = {}) {
    std::set<std::string> parts(extra.begin(), extra.end());
    parts.insert("NO-SUCH-PART");
    for (const auto& entry : mngr.getFamilyFiles())
        for (const auto& row : entry.second->m_genericDevices.m_datas)
            parts.insert(row.first);
    for (const std::string& part : parts) {
        StringList f(5, "?");
        const bool found = mngr.getNameByPart(part, f[0], f[1], f[2], f[3], f[4]);
        EXPECT_EQ(found ? f : StringList{}, ref::nameByPart(mngr, part)) << "name of " << part;
        EXPECT_TRUE(found || f == StringList(5, "?")) << "outputs untouched for " << part;
        EXPECT_EQ(mngr.exists(part), found) << part;
    }
    for (const auto& [obsolete, asc] : kFilters) {
        StringList families;
        mngr.getAllFamilies(families, obsolete, asc);
        EXPECT_EQ(families, ref::allFamilies(mngr, obsolete, asc)) << obsolete << asc;
    }
    for (const auto& entry : mngr.getFamilyFiles())
        expectFamilyMatchesWalk(mngr, *entry.second, stride);
}

std::string ownerOf(TarnDeviceMngr& mngr, const std::string& part) {
    std::string pm, device, package, speed, condition;
    return mngr.getNameByPart(part, pm, device, package, speed, condition) ? pm : "";
}

}  // namespace

TEST(IndexEquivalence, SampleData) {
    DataDirScope scope(DEVCTRL_TEST_SAMPLE_DATA);
    TraceCapture quiet;
    TarnDeviceMngr& mngr = *TarnDeviceMngr::getInstance();
    ASSERT_GE(mngr.getFamilyFiles().size(), 4u);
    expectManagerMatchesWalk(mngr, 1);
}

TEST(IndexEquivalence, GeneratedCatalogueThroughReloadAdoptionAndEdits) {
    devctrl_test::TempDir root;
    const std::string dir = root.path() + "/data";
    gen::GeneratorOptions options;
    options.parts = 3000;
    options.seed = 7;
    const gen::GeneratedCatalogue catalogue = gen::generateCatalogue(dir, options);
    DataDirScope scope(dir);
    TraceCapture quiet;  // the switched-off family complains while loading
    TarnDeviceMngr& mngr = *TarnDeviceMngr::getInstance();
    // What the generator claims about its catalogue holds once loaded.
    std::size_t built = 0;
    for (const auto& entry : mngr.getFamilyFiles())
        built += entry.second->m_genericDevices.m_datas.size();
    EXPECT_EQ(built, catalogue.parts);
    ASSERT_NE(mngr.getFamilyFile(catalogue.largestPm), nullptr);
    EXPECT_EQ(mngr.getFamilyFile(catalogue.largestPm)->m_genericDevices.m_datas.size(),
              catalogue.largestPmParts);
    EXPECT_EQ(mngr.getFamilyFile(catalogue.disabledPm), nullptr);
    EXPECT_EQ(mngr.getFamilyFiles().size(), catalogue.pms.size() - 1);
    for (const std::string& part : catalogue.sampleParts)
        EXPECT_TRUE(mngr.exists(part)) << part;
    const StringList& shared = catalogue.sharedParts;
    ASSERT_FALSE(shared.empty());
    StringList holders;
    for (const auto& [pm, file] : mngr.getFamilyFiles())
        if (file->m_genericDevices.m_datas.count(shared.front()))
            holders.push_back(pm);
    ASSERT_EQ(holders.size(), 2u);
    const StringList extra{shared.front(), util::toLower(shared.front()), shared.back()};
    expectManagerMatchesWalk(mngr, 1, extra);

    mngr.reset();
    EXPECT_FALSE(mngr.exists(shared.front()));
    mngr.init();
    EXPECT_EQ(ownerOf(mngr, shared.front()), holders[0]);

    // A reload that fails leaves the PM unloaded: its shared names pass on.
    ASSERT_TRUE(std::filesystem::remove(dir + "/" + holders[0] + "/device.acd"));
    EXPECT_FALSE(mngr.loadDeviceInfo(holders[0], true));
    EXPECT_EQ(mngr.getFamilyFile(holders[0]), nullptr);
    EXPECT_EQ(ownerOf(mngr, shared.front()), holders[1]);
    expectManagerMatchesWalk(mngr, 10, extra);

    // A family whose PM sorts first takes a name over, ASC capacity included.
    // It has no manager pointer, yet its own invalidation must reach the
    // manager holding it.
    const std::string taken = shared.back(), owner = ownerOf(mngr, taken);
    const bool ownerTakesAsc = mngr.enableASC(taken);
    auto* first = new TarnSDSFile("aa0a00", nullptr);
    first->m_genericDevices.m_items = {"Device",    "Speed",  "Package",
                                       "Condition", "Status", "ASCMaxNum"};
    first->m_genericDevices.m_datas[taken] = {"AQ1", "6", "QF48",
                                              "COM", "P", ownerTakesAsc ? "0" : "3"};
    mngr.adoptFamilyFile(first);
    EXPECT_EQ(ownerOf(mngr, taken), "aa0a00");
    EXPECT_NE(mngr.enableASC(taken), ownerTakesAsc);
    expectManagerMatchesWalk(mngr, 10, extra);
    first->m_genericDevices.m_datas.clear();
    first->invalidateIndexes();
    EXPECT_EQ(ownerOf(mngr, taken), owner);
    EXPECT_EQ(mngr.enableASC(taken), ownerTakesAsc);

    // Edits in place, announced by the family, then by the manager.
    TarnSDSFile& edited = *mngr.getFamilyFile(holders[1]);
    auto& parts = edited.m_genericDevices.m_datas;
    parts.begin()->second.at(edited.m_genericDevices.columnOf("Device")) = "ZZ-RENAMED";
    parts.erase(std::next(parts.begin()));
    parts["ZZ-ADDED"] = parts.rbegin()->second;
    edited.invalidateIndexes();
    expectManagerMatchesWalk(mngr, 10, extra);
    parts.erase(parts.begin());
    mngr.invalidateIndexes();
    expectManagerMatchesWalk(mngr, 10, extra);
}
