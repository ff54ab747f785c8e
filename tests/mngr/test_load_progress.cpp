// SPDX-License-Identifier: MIT
// What a host sees of loading: one announcement per PM with its place and
// the count of PMs, a stop on request, and the data directory chosen in code.

#include <gtest/gtest.h>

#include <QDir>

#include "devctrl/mngr/device_mngr.h"
#include "devctrl/mngr/load_progress.h"
#include "platform/base_settings.h"
#include "platform/ut_trace.h"
#include "support/test_env.h"

using namespace tarn::vyxpn;
using devctrl_test::DataDirScope;
using devctrl_test::TraceCapture;

namespace {

// Records announcements and progress ticks while in scope; stops the load at
// announcement `stopAt` (0: never).
struct LoadWatch {
    std::vector<std::string> seen;
    int ticks = 0;
    explicit LoadWatch(int stopAt = 0) {
        setLoadProgressHandler([this, stopAt](const LoadProgress& p) {
            seen.push_back(p.pm + " " + p.family + " " + std::to_string(p.index) + "/" +
                           std::to_string(p.count));
            return p.index != stopAt;
        });
        setGuiMsgHandler([this](const char*) { ++ticks; });
    }
    ~LoadWatch() {
        setLoadProgressHandler(nullptr);
        setGuiMsgHandler(nullptr);
    }
};

std::vector<std::string> loadedPms(const TarnDeviceMngr& mngr) {
    std::vector<std::string> pms;
    for (const auto& entry : mngr.getFamilyFiles())
        pms.push_back(entry.first);
    return pms;
}

}  // namespace

TEST(LoadProgress, AnnouncesEachPmOnceAndStopsOnRequest) {
    DataDirScope scope(DEVCTRL_TEST_SAMPLE_DATA);
    TraceCapture quiet;  // zr4x00 is switched off and says so
    {
        // zr2b00 is listed as ZR2 and ZR2L: loaded (and ticked) twice,
        // announced once; the count is of PMs.
        LoadWatch watch;
        TarnDeviceMngr& mngr = *TarnDeviceMngr::getInstance();
        EXPECT_EQ(watch.seen,
                  (std::vector<std::string>{"zr1a00 ZR1 1/5", "zr2b00 ZR2 2/5", "zr3c00 ZR3 3/5",
                                            "zr4x00 ZR4X 4/5", "zr5b00 ZR5 5/5"}));
        EXPECT_EQ(watch.ticks, 6);
        EXPECT_FALSE(mngr.loadCancelled());
    }
    TarnDeviceMngr& mngr = *TarnDeviceMngr::getInstance();
    {
        LoadWatch watch(3);
        mngr.init();
        EXPECT_EQ(watch.seen.size(), 3u);
        EXPECT_EQ(watch.ticks, 3) << "nothing is ticked for the PM that does not load";
        EXPECT_TRUE(mngr.loadCancelled());
        EXPECT_EQ(loadedPms(mngr), (std::vector<std::string>{"zr1a00", "zr2b00"}));
    }
    mngr.init();  // no handler: everything, and the stop is forgotten
    EXPECT_FALSE(mngr.loadCancelled());
    EXPECT_EQ(loadedPms(mngr), (std::vector<std::string>{"zr1a00", "zr2b00", "zr3c00", "zr5b00"}));
}

TEST(LoadProgress, DataDirectoryFromCodeOverTheEnvironment) {
    devctrl_test::TempDir other;
    other.write("tq1a00/family.key",
                "FAMILY = TQ1\nDEVICES = TQ4\nPACKAGES = TQ4, QF48\nSPEEDS = TQ4, QF48, 6\n");
    other.write("tq1a00/device.acd", "PM_ENABLE = true\nPKG_ALIAS = QF48, Q48\n");
    DataDirScope scope(other.path());
    TraceCapture quiet;

    BaseSystem::setDataPath(QString::fromStdString(DEVCTRL_TEST_SAMPLE_DATA));
    EXPECT_EQ(BaseSystem::getDataPath(), QDir(DEVCTRL_TEST_SAMPLE_DATA));
    EXPECT_NE(TarnDeviceMngr::getInstance()->getFamilyFile("zr1a00"), nullptr);
    EXPECT_EQ(TarnDeviceMngr::getInstance()->getFamilyFile("tq1a00"), nullptr);

    // Emptied: the environment counts again, for the next manager.
    BaseSystem::setDataPath(QString());
    EXPECT_EQ(BaseSystem::getDataPath(), QDir(QString::fromStdString(other.path())));
    devctrl_test::dropManager();
    EXPECT_EQ(loadedPms(*TarnDeviceMngr::getInstance()), std::vector<std::string>{"tq1a00"});
}
