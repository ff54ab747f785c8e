// SPDX-License-Identifier: MIT
// The name checks every front-end shares, against the sample installation:
// the answer for a right name, and for a wrong one the error kind, its place
// and the nearest names.

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "devctrl/mngr/device_mngr.h"
#include "devctrl/mngr/known_names.h"
#include "devctrl/mngr/near_names.h"
#include "support/test_env.h"

namespace {

using tarn::vyxpn::FamilyNotLoadedError;
using tarn::vyxpn::TarnDeviceMngr;
using tarn::vyxpn::UnknownNameError;

class KnownNames : public ::testing::Test {
  protected:
    void SetUp() override {
        mngr = TarnDeviceMngr::getInstance();
        if (mngr->getFamilyFiles().empty())
            GTEST_SKIP() << "no sample families installed";
    }
    devctrl_test::DataDirScope scope{DEVCTRL_TEST_SAMPLE_DATA};
    devctrl_test::TraceCapture quiet;  // zr4x00 is switched off and says so
    TarnDeviceMngr* mngr = nullptr;
};

// The message a failed check threw, which names the kind of name, where it
// was looked for and the nearest names; none when the name was accepted.
template <typename Check>
std::optional<std::string> refusalOf(Check check) {
    try {
        check();
    } catch (const UnknownNameError& e) {
        return std::string(e.what());
    }
    return std::nullopt;
}

TEST_F(KnownNames, PmOrFamilyResolvesToTheLoadedPm) {
    const struct {
        const char* typed;
        const char* pm;
    } cases[] = {{"zr1a00", "zr1a00"}, {"ZR1", "zr1a00"}, {"zr1", "zr1a00"},
                 {"ZR2L", "zr2b00"},   {"Zr2", "zr2b00"}, {"zr5b00", "zr5b00"}};
    for (const auto& c : cases)
        EXPECT_EQ(tarn::vyxpn::requireLoadedPm(*mngr, c.typed), c.pm) << c.typed;
}

TEST_F(KnownNames, UnknownPmOrFamilySuggestsPmsAndFamilies) {
    try {
        tarn::vyxpn::requireLoadedPm(*mngr, "ZR9");
        FAIL() << "ZR9 accepted";
    } catch (const UnknownNameError& e) {
        EXPECT_EQ(e.kind(), "PM or family");
        EXPECT_EQ(e.suggestions(), (std::vector<std::string>{"ZR1", "ZR2", "ZR3", "ZR5"}));
    }
}

// A family switched off is installed: typed right, so no suggestions, and
// not an UnknownNameError a host would answer with "did you mean".
TEST_F(KnownNames, InstalledFamilyThatDidNotLoadIsNotAnUnknownName) {
    for (const char* typed : {"ZR4X", "zr4x00"}) {
        try {
            tarn::vyxpn::requireLoadedPm(*mngr, typed);
            FAIL() << typed << " accepted";
        } catch (const FamilyNotLoadedError& e) {
            EXPECT_NE(std::string(e.what()).find("(PM zr4x00) is installed but did not load"),
                      std::string::npos)
                << e.what();
        }
    }
}

TEST_F(KnownNames, SelectionIsRefusedAtTheFirstLevelThatDoesNotKnowIt) {
    const std::string qn48 = "QN48", qf65 = "QF65", sg33 = "SG33", sg32 = "SG32", four = "4",
                      seven = "7";
    const struct {
        const char* device;
        const std::string* package;
        const std::string* speed;
        std::optional<std::string> expected;
    } cases[] = {
        {"ZS3", &qn48, &four, std::nullopt},
        {"ZS3", nullptr, nullptr, std::nullopt},
        // An obsolete part's selection is still known.
        {"ZS1", &sg32, &four, std::nullopt},
        {"ZS2", &qn48, &four, "unknown device 'ZS2' in zr2b00; did you mean ZS1, ZS3, ZS6?"},
        {"zs3", nullptr, nullptr, "unknown device 'zs3' in zr2b00; did you mean ZS3?"},
        {"ZS3", &qf65, &four, "unknown package 'QF65' in zr2b00; did you mean QF64?"},
        {"ZS1", &sg33, nullptr, "unknown package 'SG33' in zr2b00; did you mean SG32?"},
        {"ZS3", &qn48, &seven, "unknown speed grade '7' in zr2b00; did you mean 4, 5, 6?"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(refusalOf([&] {
                      tarn::vyxpn::requireSelection(*mngr, "zr2b00", c.device, c.package, c.speed);
                  }),
                  c.expected)
            << c.device;
}

TEST_F(KnownNames, UnknownPartSuggestsPartsOfEveryFamily) {
    EXPECT_EQ(refusalOf([&] { tarn::vyxpn::requireKnownPart(*mngr, "ZR12-6BG100C"); }),
              std::nullopt);
    EXPECT_EQ(refusalOf([&] { tarn::vyxpn::requireKnownPart(*mngr, "ZR12-6BG10C"); }),
              "unknown part 'ZR12-6BG10C'; did you mean ZR12-6BG100C?");
}

}  // namespace
