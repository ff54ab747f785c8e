// SPDX-License-Identifier: MIT
#include <memory>
#include <optional>
#include <set>

#include "devctrl/mngr/device_mngr.h"
#include "devctrl/mngr/load_progress.h"
#include "devctrl/mngr/parallel_family_load.h"
#include "devctrl/mngr/parallel_ordered_tasks.h"
#include "devctrl/sds/sds_file.h"
#include "devctrl/util/quote.h"
#include "platform/pm_database.h"
#include "platform/ut_trace.h"

namespace tarn::vyxpn {

TarnDeviceMngr* TarnDeviceMngr::m_pMngr = nullptr;

TarnDeviceMngr::TarnDeviceMngr() = default;

TarnDeviceMngr::~TarnDeviceMngr() {
    reset();
    // The part-model database goes with the manager, so the next manager
    // reads the data directory afresh (a process may switch directories).
    delete PM_DATABASE::_database;
    PM_DATABASE::_database = nullptr;
    if (m_pMngr == this)
        m_pMngr = nullptr;
}

TarnDeviceMngr* TarnDeviceMngr::getInstance() {
    return getInstance(BrokenFamilies::Raise);
}

TarnDeviceMngr* TarnDeviceMngr::getInstance(BrokenFamilies broken) {
    if (m_pMngr)
        return m_pMngr;
    // Published before loading: a family that asks for the manager while it
    // loads must get this one, not start a second.
    m_pMngr = new TarnDeviceMngr();
    try {
        m_pMngr->init(broken);
    } catch (...) {
        // A half-loaded manager would answer as if the broken family and
        // every family after it were not installed: drop it, so the next
        // call loads again.
        delete m_pMngr;
        m_pMngr = nullptr;
        throw;
    }
    return m_pMngr;
}

void TarnDeviceMngr::init() {
    init(BrokenFamilies::Raise);
}

void TarnDeviceMngr::init(BrokenFamilies broken) {
    StringList pms;
    baseGetAllPMs(pms);
    loadFamilies(pms, broken);
}

void TarnDeviceMngr::loadFamilies(const StringList& pms, BrokenFamilies broken) {
    reset();
    m_loadCancelled = false;
    // Only this load skips broken families; a later loadDeviceInfo() by the
    // host raises as designed, however this load ends.
    m_broken = broken;
    struct Restore {
        BrokenFamilies& mode;
        ~Restore() { mode = BrokenFamilies::Raise; }
    } restore{m_broken};
    m_loadFailures.clear();
    m_switchedOff.clear();
    // Families are built on helper threads, ahead of this loop, which takes
    // them in order: what the host sees (announcements, progress, traces,
    // errors, the families kept) is what loading one after the other shows,
    // and every handler is called on this thread. Helpers only read the
    // part-model database, which is complete before the first one starts.
    PM_DATABASE::buildMe();
    std::optional<ParallelOrderedTasks<FamilyBuild>> builds;
    if (const unsigned threads = familyLoadThreads(pms.size()); threads > 1)
        builds.emplace(pms.size(), threads,
                       [this, &pms](std::size_t i) { return buildFamily(pms[i], this, true); });
    // A PM listed under two family names loads twice but is announced once,
    // so that a progress bar counts what the user sees as families.
    const std::set<std::string> distinct(pms.begin(), pms.end());
    std::set<std::string> announced;
    for (std::size_t i = 0; i < pms.size(); ++i) {
        const std::string& pm = pms[i];
        if (announced.insert(pm).second && !announceLoad(pm, static_cast<int>(announced.size()),
                                                         static_cast<int>(distinct.size()))) {
            // Families being built are waited for and dropped with `builds`.
            m_loadCancelled = true;
            break;
        }
        ut_guimsg("...");
        if (!builds) {
            loadDeviceInfo(pm, true);
            continue;
        }
        FamilyBuild build = builds->take(i);
        dropFamily(pm);
        adoptFamilyBuild(pm, build);
    }
}

void TarnDeviceMngr::reset() {
    for (auto& entry : m_familyFiles)
        delete entry.second;
    m_familyFiles.clear();
    invalidateIndexes();
}

bool TarnDeviceMngr::loadDeviceInfo(const std::string& pm, bool reload) {
    if (!reload && m_familyFiles.count(pm))
        return true;
    // No rollback: a failed reload leaves the PM unloaded.
    dropFamily(pm);
    FamilyBuild build = buildFamily(pm, this, false);
    return adoptFamilyBuild(pm, build);
}

void TarnDeviceMngr::dropFamily(const std::string& pm) {
    auto loaded = m_familyFiles.find(pm);
    if (loaded == m_familyFiles.end())
        return;
    delete loaded->second;
    m_familyFiles.erase(loaded);
    invalidateIndexes();
}

bool TarnDeviceMngr::adoptFamilyBuild(const std::string& pm, FamilyBuild& build) {
    build.messages.replay();
    // Owned until stored: a range error out of bad data must not leak it.
    std::unique_ptr<TarnSDSFile> file = std::move(build.file);
    if (build.error) {
        try {
            std::rethrow_exception(build.error);
        } catch (const std::out_of_range& error) {
            // Whatever range error the data provoke leaves here located, so a
            // host can always name the family and file.
            const auto* located = dynamic_cast<const DataError*>(&error);
            DataError failure =
                located ? *located : DataError(pm, file->deviceTablePath(), "", "", error.what());
            if (m_broken == BrokenFamilies::Raise)
                throw failure;
            // Handed to the host, which names the family; the other families load.
            m_loadFailures.push_back(std::move(failure));
            return false;
        }
    }
    if (build.ready) {
        m_familyFiles[pm] = file.release();
        invalidateIndexes();
        return true;
    }
    if (file->switchedOff())
        m_switchedOff.insert(pm);
    diagTrace(
        ("TarnDeviceMngr failed to load " + util::escapedForMessage(pm) + " device information.")
            .c_str(),
        nullptr);
    return false;
}

TarnSDSFile* TarnDeviceMngr::getFamilyFile(const std::string& pm) const {
    auto found = m_familyFiles.find(pm);
    return found == m_familyFiles.end() ? nullptr : found->second;
}

void TarnDeviceMngr::adoptFamilyFile(TarnSDSFile* file) {
    if (!file)
        return;
    auto& slot = m_familyFiles[file->m_pm];
    if (slot != file)
        delete slot;
    slot = file;
    invalidateIndexes();
}

}  // namespace tarn::vyxpn
