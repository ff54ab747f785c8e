// SPDX-License-Identifier: MIT
// Loading on several threads is loading one family after the other, as far as
// anyone can tell: the same announcements, progress messages and traces in
// the same order, every one of them on the thread that called init(), the
// same tables, the same stop on cancel, the same error or skipped families
// for broken data, and no thread left behind.

#include <gtest/gtest.h>

#include <dirent.h>

#include <algorithm>
#include <functional>
#include <mutex>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "devctrl/mngr/device_mngr.h"
#include "devctrl/mngr/family_export.h"
#include "devctrl/mngr/load_progress.h"
#include "devctrl/sds/sds_file.h"
#include "generator/catalogue_generator.h"
#include "platform/ut_trace.h"
#include "support/test_env.h"

using namespace tarn::vyxpn;
using devctrl_test::DataDirScope;
using devctrl_test::EnvGuard;
using devctrl_test::TempDir;
using Broken = TarnDeviceMngr::BrokenFamilies;

namespace {

// Thread counts compared with the sequential load: the machine's, one more
// than families are loaded at once here, and more threads than families.
const unsigned kThreadCounts[] = {2, 3, 16};

std::size_t threadsOfThisProcess() {
    std::size_t count = 0;
    if (DIR* tasks = opendir("/proc/self/task")) {
        while (const dirent* entry = readdir(tasks))
            count += entry->d_name[0] != '.';
        closedir(tasks);
    }
    return count;
}

// Every call of the host's handlers during a load, in order, marked when it
// came from another thread than the one that loads.
class HandlerLog {
  public:
    // Answers false to the announcement of the `stopAt`-th PM (0: never).
    explicit HandlerLog(int stopAt) : m_loader(std::this_thread::get_id()) {
        setLoadProgressHandler([this, stopAt](const LoadProgress& p) {
            note("announce " + p.pm + " " + p.family + " " + std::to_string(p.index) + "/" +
                 std::to_string(p.count));
            return p.index != stopAt;
        });
        setGuiMsgHandler([this](const char* message) { note(std::string("progress ") + message); });
        setDiagTraceHandler([this](const char* message, const char* extra) {
            note(std::string("trace ") + message + (extra ? std::string(" | ") + extra : ""));
        });
    }
    ~HandlerLog() {
        setLoadProgressHandler(nullptr);
        setGuiMsgHandler(nullptr);
        setDiagTraceHandler(nullptr);
    }

    std::vector<std::string> calls() {
        std::lock_guard<std::mutex> lock(m_guard);
        return m_calls;
    }

  private:
    void note(std::string call) {
        if (std::this_thread::get_id() != m_loader)
            call = "ON ANOTHER THREAD: " + call;
        std::lock_guard<std::mutex> lock(m_guard);
        m_calls.push_back(std::move(call));
    }

    std::thread::id m_loader;
    std::mutex m_guard;
    std::vector<std::string> m_calls;
};

// Everything a family answers: its tables as dumped, and its export with
// and without the ASC filter (which asks the manager about every family).
std::string describeFamily(const TarnSDSFile& family) {
    std::ostringstream text;
    family.printMe(text);
    for (bool ascOnly : {false, true}) {
        const FamilyExport exported = exportFamily(family, true, ascOnly);
        std::function<void(const SelectionNode&, int)> walk = [&](const SelectionNode& node,
                                                                  int depth) {
            text << std::string(static_cast<std::size_t>(depth), ' ') << node.name << '\n';
            for (const SelectionNode& child : node.children)
                walk(child, depth + 1);
        };
        for (const SelectionNode& device : exported.devices)
            walk(device, 0);
        for (const ExportedPart& part : exported.parts) {
            text << part.name << (part.obsolete ? " obsolete" : "");
            for (const auto& [column, value] : part.fields)
                text << ' ' << column << '=' << value;
            for (const auto& [column, value] : part.items)
                text << ' ' << column << '=' << value;
            text << '\n';
        }
    }
    return text.str();
}

// What one load showed and left.
struct LoadResult {
    std::vector<std::string> calls;
    std::string outcome;
    std::vector<std::string> failures;
    std::vector<std::string> switchedOff;
    std::vector<std::string> families;  // "pm" and the family's description
    bool threadsLeftRunning = false;
};

void expectSameLoad(const LoadResult& sequential, const LoadResult& parallel,
                    const std::string& what) {
    EXPECT_EQ(sequential.calls, parallel.calls) << what;
    EXPECT_EQ(sequential.outcome, parallel.outcome) << what;
    EXPECT_EQ(sequential.failures, parallel.failures) << what;
    EXPECT_EQ(sequential.switchedOff, parallel.switchedOff) << what;
    ASSERT_EQ(sequential.families.size(), parallel.families.size()) << what;
    for (std::size_t i = 0; i < sequential.families.size(); ++i)
        // Compared as a whole, shown only by its first line when it differs.
        EXPECT_TRUE(sequential.families[i] == parallel.families[i])
            << what << ": family " << sequential.families[i].substr(0, 40);
    EXPECT_FALSE(parallel.threadsLeftRunning) << what;
}

// Where loads read from. A file that cannot be read is reported once per
// process, so an installation with such a file is written afresh for every
// load (under a new path, which is then reported again); the others load
// from one directory.
struct Installation {
    std::function<void(const TempDir&)> write;  // null: `directory` as it is
    std::string directory;
};

void replaceAll(std::string& text, const std::string& from, const std::string& to) {
    for (std::size_t at = text.find(from); at != std::string::npos;
         at = text.find(from, at + to.size()))
        text.replace(at, from.size(), to);
}

// Loads the installation into a manager of its own with `threads`; the data
// directory is called <data> in every text.
LoadResult loadWith(const Installation& installation, unsigned threads, Broken broken,
                    int stopAt = 0) {
    TempDir fresh;
    if (installation.write)
        installation.write(fresh);
    const std::string dataDir = installation.write ? fresh.path() : installation.directory;
    DataDirScope scope(dataDir);
    EnvGuard threadCount("DEVCTRL_LOAD_THREADS", std::to_string(threads).c_str());
    LoadResult result;
    TarnDeviceMngr mngr;
    // A sanitizer's runtime may start a thread of its own with the first
    // thread a process makes: counted before, not as left behind.
    std::thread([] {}).join();
    const std::size_t threadsBefore = threadsOfThisProcess();
    {
        HandlerLog log(stopAt);
        try {
            mngr.init(broken);
            result.outcome = mngr.loadCancelled() ? "cancelled" : "loaded";
        } catch (const DataError& error) {
            result.outcome = "raised " + error.pm() + " " + error.file() + " " + error.key() + " " +
                             error.row() + " " + error.problem();
        }
        result.calls = log.calls();
    }
    result.threadsLeftRunning = threadsOfThisProcess() != threadsBefore;
    for (const DataError& failure : mngr.loadFailures())
        result.failures.push_back(failure.pm() + " " + failure.file() + " " + failure.key() + " " +
                                  failure.problem());
    StringList pms;
    TarnDeviceMngr::baseGetAllPMs(pms);
    for (const std::string& pm : pms)
        if (mngr.isSwitchedOff(pm))
            result.switchedOff.push_back(pm);
    for (const auto& [pm, family] : mngr.getFamilyFiles())
        result.families.push_back(pm + "\n" + describeFamily(*family));
    for (auto* texts : {&result.calls, &result.failures, &result.families})
        for (std::string& text : *texts)
            replaceAll(text, dataDir, "<data>");
    replaceAll(result.outcome, dataDir, "<data>");
    return result;
}

// The load of the installation, whole and (with `everyStop`) stopped at
// every PM, compared on every thread count with the sequential one.
void expectEveryLoadSequentialAlike(const Installation& installation, Broken broken = Broken::Skip,
                                    bool everyStop = true) {
    const LoadResult whole = loadWith(installation, 1, broken);
    ASSERT_FALSE(whole.calls.empty());
    for (unsigned threads : kThreadCounts)
        expectSameLoad(whole, loadWith(installation, threads, broken),
                       "whole load, " + std::to_string(threads) + " threads");
    const auto announced =
        std::count_if(whole.calls.begin(), whole.calls.end(),
                      [](const std::string& call) { return call.rfind("announce ", 0) == 0; });
    ASSERT_GT(announced, 0);
    for (int stopAt = 1; everyStop && stopAt <= announced; ++stopAt) {
        const LoadResult stopped = loadWith(installation, 1, broken, stopAt);
        ASSERT_EQ(stopped.outcome, "cancelled");
        expectSameLoad(stopped, loadWith(installation, 2, broken, stopAt),
                       "stopped at PM " + std::to_string(stopAt));
    }
}

// ---- a small installation that says a lot while it loads --------------------

// PMs tp1a00..tp6a00 in load order. Every family leaves the ES value out for
// more device/package pairs than traces pass per file (so each file's limit
// summarises), tp2a00 is installed under two family names (loaded twice),
// tp3a00 is switched off, tp4a00 has a directory where its part data file
// belongs, and the shared device table is a directory too, which every
// family tries to read and the first one reports.
const int kNoisyPms = 6;

std::string noisyPm(int i) {
    return "tp" + std::to_string(i) + "a00";
}

std::string noisyDeviceAcd(int i) {
    return std::string(i == 3 ? "PM_ENABLE = false\n" : "PM_ENABLE = true\n") +
           "PKG_ALIAS = BG10, B10\nRESOURCE_ITMES = LUT\nDEVICE_ITEMS = Status\n"
           "DEVICE_DATAS = D1, P : D2, P : D3, P : D4, P\nPACKAGE_ITEMS = Condition, LUT\n"
           "PACKAGE_DATAS = D1, BG10, C, 10 : D2, BG10, CI, 20 : D3, BG10, I, 30 : "
           "D4, BG10, C, 40 : D1, BG20, C, 11 : D2, BG20, CI, 21 : D3, BG20, I, 31\n";
}

// A device table that stops its family's construction (a negative PKGIndex).
const char* kBrokenDeviceAcd =
    "PM_ENABLE = true\nPKG_ALIAS = BG10, B10\nPACKAGE_ITEMS = ES, PKGIndex\n"
    "PACKAGE_DATAS = D1, BG10, No, 0 : D2, BG10, No, -1\n";

// Writes the installation; `brokenAt` (1-based, 0: none) gets a broken table.
void writeNoisyInstallation(const TempDir& dir, int brokenAt = 0) {
    for (int i = 1; i <= kNoisyPms; ++i) {
        const std::string pm = noisyPm(i);
        const std::string family = "TP" + std::to_string(i);
        dir.write(pm + "/family.key",
                  "FAMILY = " + family + (i == 2 ? ", TP2L" : "") +
                      "\nDEVICES = D1, D2, D3, D4\n"
                      "PACKAGES = D1, BG10, BG20 : D2, BG10, BG20 : D3, BG10, BG20 : D4, BG10\n"
                      "SPEEDS = D1, BG10, 1, 2 : D1, BG20, 1 : D2, BG10, 1 : D2, BG20, 2 : "
                      "D3, BG10, 3 : D3, BG20, 3 : D4, BG10, 1\n");
        dir.write(pm + "/device.acd", i == brokenAt ? kBrokenDeviceAcd : noisyDeviceAcd(i));
    }
    dir.write(noisyPm(4) + "/" + noisyPm(4) + ".pwd/keep", "");
    dir.write("device.acd/keep", "");
}

Installation noisyInstallation(int brokenAt = 0) {
    return {[brokenAt](const TempDir& dir) { writeNoisyInstallation(dir, brokenAt); }, ""};
}

TEST(ParallelLoad, NoisyInstallationShowsTheSameOnEveryThreadCount) {
    expectEveryLoadSequentialAlike(noisyInstallation());

    // What is compared is worth comparing: limits summarise, the shared
    // table is reported once, right after the first announcement, and the
    // twice-listed PM is ticked twice.
    const LoadResult parallel = loadWith(noisyInstallation(), 2, Broken::Skip);
    const auto& calls = parallel.calls;
    ASSERT_GE(calls.size(), 3u);
    EXPECT_EQ(calls[0], "announce tp1a00 TP1 1/6");
    EXPECT_EQ(calls[1], "progress ...");
    EXPECT_EQ(calls[2], "trace cannot read <data>/device.acd: a directory, not a regular file");
    const auto count = [&](const std::string& text) {
        return std::count_if(calls.begin(), calls.end(), [&](const std::string& call) {
            return call.find(text) != std::string::npos;
        });
    };
    EXPECT_EQ(count("cannot read <data>/device.acd"), 1);
    EXPECT_EQ(count("cannot read <data>/tp4a00/tp4a00.pwd"), 1);
    EXPECT_EQ(count("... and 2 more in"), 6) << "every family built, tp2a00 twice";
    EXPECT_EQ(count("progress ..."), 7);
    EXPECT_EQ(parallel.switchedOff, std::vector<std::string>{"tp3a00"});
    EXPECT_EQ(parallel.families.size(), 5u);
}

// A broken family first, in the middle and last: raised at the same family
// with the families before it kept, or skipped with the same failures.
TEST(ParallelLoad, BrokenFamilyAtEveryPositionRaisesOrIsSkippedAlike) {
    for (int brokenAt : {1, 4, kNoisyPms}) {
        const Installation installation = noisyInstallation(brokenAt);
        const std::string pm = noisyPm(brokenAt);
        const std::string where = "broken " + pm;

        const LoadResult raised = loadWith(installation, 1, Broken::Raise);
        EXPECT_EQ(raised.outcome, "raised " + pm + " <data>/" + pm +
                                      "/device.acd PACKAGE_DATAS D2, BG10 PKGIndex -1 is negative")
            << where;
        // Families before the broken one stay, the switched-off one aside;
        // none after it is taken.
        std::size_t before = 0;
        for (int i = 1; i < brokenAt; ++i)
            before += i != 3;
        EXPECT_EQ(raised.families.size(), before) << where;
        for (unsigned threads : kThreadCounts)
            expectSameLoad(raised, loadWith(installation, threads, Broken::Raise),
                           where + ", raise, " + std::to_string(threads) + " threads");

        const LoadResult skipped = loadWith(installation, 1, Broken::Skip);
        EXPECT_EQ(skipped.failures,
                  std::vector<std::string>{pm + " <data>/" + pm +
                                           "/device.acd PACKAGE_DATAS PKGIndex -1 is negative"})
            << where;
        for (unsigned threads : kThreadCounts)
            expectSameLoad(skipped, loadWith(installation, threads, Broken::Skip),
                           where + ", skip, " + std::to_string(threads) + " threads");
    }
}

// Stopped at each PM before the broken one, or raising when it comes first.
TEST(ParallelLoad, StoppedLoadsOfABrokenInstallationStopAlike) {
    const Installation installation = noisyInstallation(4);
    for (int stopAt = 1; stopAt <= kNoisyPms; ++stopAt) {
        const LoadResult stopped = loadWith(installation, 1, Broken::Raise, stopAt);
        EXPECT_EQ(stopped.outcome.substr(0, 6), stopAt <= 4 ? "cancel" : "raised");
        expectSameLoad(stopped, loadWith(installation, 2, Broken::Raise, stopAt),
                       "stopped at PM " + std::to_string(stopAt));
    }
}

TEST(ParallelLoad, SampleInstallationLoadsAlike) {
    expectEveryLoadSequentialAlike({nullptr, DEVCTRL_TEST_SAMPLE_DATA});
}

TEST(ParallelLoad, GeneratedCataloguesLoadAlike) {
    for (std::uint32_t seed : {1u, 7u}) {
        TempDir dir;
        gen::GeneratorOptions options;
        options.parts = 10000;
        options.seed = seed;
        const gen::GeneratedCatalogue catalogue =
            gen::generateCatalogue(dir.file("catalogue"), options);
        ASSERT_GE(catalogue.pms.size(), 5u);
        // Stopped at every PM once: the stops do not depend on the data.
        expectEveryLoadSequentialAlike({nullptr, dir.file("catalogue")}, Broken::Skip, seed == 1);
    }
}

// The host's own call: getInstance() answers the same catalogue.
TEST(ParallelLoad, GetInstanceAnswersTheSameOnEveryThreadCount) {
    DataDirScope scope(DEVCTRL_TEST_SAMPLE_DATA);
    std::vector<std::string> answers;
    for (const char* threads : {"1", "2"}) {
        EnvGuard threadCount("DEVCTRL_LOAD_THREADS", threads);
        devctrl_test::TraceCapture quiet;
        TarnDeviceMngr* mngr = TarnDeviceMngr::getInstance();
        std::string answer;
        for (const auto& [pm, family] : mngr->getFamilyFiles())
            answer += pm + "\n" + describeFamily(*family);
        answers.push_back(answer);
        devctrl_test::dropManager();
    }
    EXPECT_FALSE(answers[0].empty());
    EXPECT_TRUE(answers[0] == answers[1]);
}

}  // namespace
