// SPDX-License-Identifier: MIT
#include "session.h"

#include <QDir>
#include <QFileInfo>
#include <QString>

#include "devctrl/mngr/load_progress.h"
#include "devctrl/platform/base_settings.h"
#include "devctrl/platform/pm_database.h"

namespace devctrl_py {

using tarn::vyxpn::TarnDeviceMngr;

namespace {

// The live session, if any, and the directory the loaded manager read.
std::weak_ptr<Session> g_live;
std::string g_loadedDir;

void dropManager() {
    // The manager does not clear its own pointer, and the part-model
    // database would otherwise keep the previous directory's PM list.
    delete TarnDeviceMngr::m_pMngr;
    TarnDeviceMngr::m_pMngr = nullptr;
    delete PM_DATABASE::_database;
    PM_DATABASE::_database = nullptr;
    g_loadedDir.clear();
}

// The directory the library will read for `dataDir`, absolute.
std::string resolveDataDir(const std::optional<std::string>& dataDir) {
    BaseSystem::setDataPath(dataDir ? QString::fromStdString(*dataDir) : QString());
    const QDir dir = BaseSystem::getDataPath();
    const std::string path = dir.absolutePath().toStdString();
    const QFileInfo info(dir.absolutePath());
    if (!info.isDir() || !info.isReadable())
        throw MissingDataDir("data directory " + path + " is not a readable directory");
    return path;
}

// Forwards the library's load announcements to a Python callable; the
// callable's own exception ends the load and is raised again afterwards.
class ProgressBridge {
  public:
    explicit ProgressBridge(const py::object& callback) : m_callback(callback) {}
    tarn::vyxpn::LoadProgressHandler handler() {
        if (m_callback.is_none())
            return {};
        return [this](const tarn::vyxpn::LoadProgress& step) {
            py::gil_scoped_acquire gil;
            try {
                py::object answer = m_callback(step.pm, step.family, step.index, step.count);
                return answer.is_none() || answer.cast<bool>();
            } catch (py::error_already_set& error) {
                m_error = std::make_unique<py::error_already_set>(std::move(error));
                return false;
            }
        };
    }
    void raiseCallbackError() {
        if (m_error)
            throw std::move(*m_error);
    }

  private:
    py::object m_callback;
    std::unique_ptr<py::error_already_set> m_error;
};

}  // namespace

std::mutex& libraryLock() {
    static std::mutex lock;
    return lock;
}

std::shared_ptr<Session> Session::open(const std::optional<std::string>& dataDir,
                                       const py::object& progress, bool skipBroken) {
    ProgressBridge bridge(progress);
    const bool quietLoad = progress.is_none() && !skipBroken;
    const auto broken =
        skipBroken ? TarnDeviceMngr::BrokenFamilies::Skip : TarnDeviceMngr::BrokenFamilies::Raise;
    std::shared_ptr<Session> session;
    std::string wanted;
    bool cancelled = false;
    // All of it under the library lock: two threads opening catalogues at
    // once see each other's session and never drop a manager in use.
    callLibrary([&] {
        const std::shared_ptr<Session> live = g_live.lock();
        try {
            wanted = resolveDataDir(dataDir);
        } catch (...) {
            if (live)
                BaseSystem::setDataPath(QString::fromStdString(live->dataDir()));
            throw;
        }
        if (live) {
            if (live->dataDir() == wanted) {
                session = live;
                return;
            }
            // Only one manager exists per process: reloading it would
            // change the answers of the catalogue that is still open.
            BaseSystem::setDataPath(QString::fromStdString(live->dataDir()));
            throw CatalogueBusy("a Catalogue on " + live->dataDir() +
                                " is still open; close it (or drop every reference to it and "
                                "its parts) before opening one on " +
                                wanted);
        }
        std::shared_ptr<Session> fresh(new Session(wanted));
        if (!(quietLoad && TarnDeviceMngr::m_pMngr && g_loadedDir == wanted)) {
            dropManager();
            auto previous = tarn::vyxpn::setLoadProgressHandler(bridge.handler());
            try {
                TarnDeviceMngr* mngr = TarnDeviceMngr::getInstance(broken);
                cancelled = mngr->loadCancelled();
                fresh->m_loadFailures = mngr->loadFailures();
            } catch (...) {
                tarn::vyxpn::setLoadProgressHandler(previous);
                dropManager();
                throw;
            }
            tarn::vyxpn::setLoadProgressHandler(previous);
            if (cancelled) {
                dropManager();
                return;
            }
            g_loadedDir = wanted;
        }
        g_live = fresh;
        session = fresh;
    });
    bridge.raiseCallbackError();
    if (cancelled)
        throw LoadCancelled("loading " + wanted + " was stopped by the progress callback");
    return session;
}

Session::~Session() = default;

TarnDeviceMngr& Session::mngr() const {
    return *TarnDeviceMngr::m_pMngr;
}

}  // namespace devctrl_py
