// SPDX-License-Identifier: MIT
// The part-owner cache file against the manager's own owner index: every
// name of a generated catalogue, names just beside them, shared names, and
// which families a PM question needs.

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cctype>

#include "devctrl/mngr/device_mngr.h"
#include "devctrl/mngr/part_owner_cache.h"
#include "devctrl/sds/sds_file.h"
#include "generator/catalogue_generator.h"
#include "support/test_env.h"

using tarn::vyxpn::PartOwnerCache;
using tarn::vyxpn::StringList;
using tarn::vyxpn::TarnDeviceMngr;

namespace {

class PartOwnerCacheTest : public ::testing::Test {
  protected:
    void SetUp() override {
        tarn::vyxpn::gen::GeneratorOptions options;
        options.parts = 3000;
        options.seed = 3;
        m_catalogue = tarn::vyxpn::gen::generateCatalogue(m_data.path(), options);
    }
    devctrl_test::TempDir m_data, m_cache;
    devctrl_test::EnvGuard m_cacheDir{"DEVCTRL_CACHE_DIR", m_cache.path().c_str()};
    tarn::vyxpn::gen::GeneratedCatalogue m_catalogue;
};

TEST_F(PartOwnerCacheTest, EveryNameHasTheOwnerAFullLoadGivesIt) {
    devctrl_test::DataDirScope scope(m_data.path());
    const std::string stamp = tarn::vyxpn::dataDirectoryStamp();
    ASSERT_FALSE(stamp.empty());
    EXPECT_FALSE(PartOwnerCache(stamp).usable());
    TarnDeviceMngr* mngr = TarnDeviceMngr::getInstance();
    ASSERT_TRUE(PartOwnerCache::write(*mngr, stamp));
    const PartOwnerCache cache(stamp);
    ASSERT_TRUE(cache.usable());

    const auto indexOwner = [mngr](const std::string& part) -> std::optional<std::string> {
        const auto* owner = mngr->partOwnerIndex().find(part);
        return owner ? std::optional<std::string>(*owner->pm) : std::nullopt;
    };
    std::size_t checked = 0;
    for (const auto& [pm, family] : mngr->getFamilyFiles())
        for (const auto& row : family->m_genericDevices.m_datas) {
            ASSERT_TRUE(indexOwner(row.first)) << row.first;
            EXPECT_EQ(cache.ownerOf(row.first), indexOwner(row.first)) << row.first;
            // Just beside it in byte order: whatever the index says.
            for (const std::string& near : {row.first + '\x01', row.first.substr(1),
                                            row.first.substr(0, row.first.size() - 1)})
                EXPECT_EQ(cache.ownerOf(near), indexOwner(near)) << near;
            ++checked;
        }
    EXPECT_GE(checked, m_catalogue.parts);
    EXPECT_EQ(cache.ownerOf(""), std::nullopt);
    EXPECT_EQ(cache.ownerOf("\xff\xff"), std::nullopt);

    // The later family of a shared name needs the owner for ASC questions.
    ASSERT_FALSE(m_catalogue.sharedParts.empty());
    for (const std::string& part : m_catalogue.sharedParts) {
        const std::string owner = *cache.ownerOf(part);
        bool sharedByAnother = false;
        for (const auto& [pm, family] : mngr->getFamilyFiles())
            if (pm != owner && family->m_genericDevices.m_datas.count(part)) {
                sharedByAnother = true;
                const StringList needed = *tarn::vyxpn::familiesForPm(pm, &cache);
                EXPECT_NE(std::find(needed.begin(), needed.end(), owner), needed.end()) << part;
                EXPECT_EQ(*tarn::vyxpn::familiesForPm(pm), StringList{pm});
            }
        EXPECT_TRUE(sharedByAnother) << part;
    }

    // Another stamp: the file is not used.
    EXPECT_FALSE(PartOwnerCache(stamp + "file 1 2 added\n").usable());

    // A FIFO in the file's place is refused at once, never waited on.
    const std::string file = PartOwnerCache::path();
    ASSERT_EQ(::unlink(file.c_str()), 0);
    ASSERT_EQ(::mkfifo(file.c_str(), 0600), 0);
    EXPECT_FALSE(PartOwnerCache(stamp).usable());
    // And a new index replaces it.
    ASSERT_TRUE(PartOwnerCache::write(*mngr, stamp));
    EXPECT_TRUE(PartOwnerCache(stamp).usable());
}

TEST_F(PartOwnerCacheTest, PmQuestionsNeedTheirFamilyOrEverything) {
    devctrl_test::DataDirScope scope(m_data.path());
    const std::string pm = m_catalogue.pms.front();
    const std::string family = TarnDeviceMngr::basePmToFamily(pm);
    std::string lower = family;
    for (char& c : lower)
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    const struct {
        std::string name;
        std::optional<StringList> needed;
    } cases[]{
        {pm, StringList{pm}},     {family, StringList{pm}}, {lower, StringList{pm}},
        {"zz9z99", std::nullopt}, {"", std::nullopt},
    };
    for (const auto& c : cases)
        EXPECT_EQ(tarn::vyxpn::familiesForPm(c.name), c.needed) << c.name;
    // Without a usable cache an ASC question cannot say which owners count.
    const PartOwnerCache none("");
    EXPECT_EQ(tarn::vyxpn::familiesForPm(pm, &none), std::nullopt);
}

}  // namespace
