// SPDX-License-Identifier: MIT
#include <memory>
#include <set>

#include "devctrl/mngr/device_mngr.h"
#include "devctrl/mngr/load_progress.h"
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
    StringList pms;
    baseGetAllPMs(pms);
    // A PM listed under two family names loads twice but is announced once,
    // so that a progress bar counts what the user sees as families.
    const std::set<std::string> distinct(pms.begin(), pms.end());
    std::set<std::string> announced;
    for (const auto& pm : pms) {
        if (announced.insert(pm).second && !announceLoad(pm, static_cast<int>(announced.size()),
                                                         static_cast<int>(distinct.size()))) {
            m_loadCancelled = true;
            break;
        }
        ut_guimsg("...");
        loadDeviceInfo(pm, true);
    }
}

void TarnDeviceMngr::reset() {
    for (auto& entry : m_familyFiles)
        delete entry.second;
    m_familyFiles.clear();
    invalidateIndexes();
}

bool TarnDeviceMngr::loadDeviceInfo(const std::string& pm, bool reload) {
    auto loaded = m_familyFiles.find(pm);
    if (loaded != m_familyFiles.end()) {
        if (!reload)
            return true;
        // No rollback: a failed reload leaves the PM unloaded.
        delete loaded->second;
        m_familyFiles.erase(loaded);
        invalidateIndexes();
    }
    // Owned until stored: a range error out of bad data must not leak it.
    auto file = std::make_unique<TarnSDSFile>(pm, this);
    bool ready = false;
    try {
        ready = file->init();
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
    if (ready) {
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
