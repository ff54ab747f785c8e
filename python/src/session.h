// SPDX-License-Identifier: MIT
#pragma once
// The Python side of the one process-wide device manager: which data
// directory it holds, which catalogues share it, and the lock that keeps two
// Python threads from asking it at once while the GIL is released.

#include <pybind11/pybind11.h>

#include <memory>
#include <mutex>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "devctrl/mngr/device_mngr.h"

namespace devctrl_py {

namespace py = pybind11;

// A catalogue on another data directory than the live ones.
class CatalogueBusy : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

// The data directory cannot be read.
class MissingDataDir : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

// The load was stopped by the progress callback.
class LoadCancelled : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

// Held by every live Catalogue (and Part): the manager stays loaded from
// the same directory as long as one of them lives.
class Session {
  public:
    // The session for `dataDir` (the library's default choice when empty):
    // the live one when it reads the same directory, else a fresh load.
    // Throws CatalogueBusy while a session on another directory lives.
    static std::shared_ptr<Session> open(const std::optional<std::string>& dataDir,
                                         const py::object& progress, bool skipBroken);
    ~Session();

    const std::string& dataDir() const { return m_dataDir; }
    // Only under the library lock (see callLibrary).
    tarn::vyxpn::TarnDeviceMngr& mngr() const;
    const std::vector<tarn::vyxpn::DataError>& loadFailures() const { return m_loadFailures; }

  private:
    explicit Session(std::string dataDir) : m_dataDir(std::move(dataDir)) {}
    std::string m_dataDir;
    std::vector<tarn::vyxpn::DataError> m_loadFailures;
};

// Serialises every call into the library.
std::mutex& libraryLock();

// Runs `work` without the GIL and under the library lock, so that a long
// query lets other Python threads run and two queries never overlap. The
// GIL goes first: a thread waiting for the lock never holds it.
template <typename Work>
auto callLibrary(Work&& work) {
    py::gil_scoped_release release;
    std::lock_guard<std::mutex> lock(libraryLock());
    return work();
}

}  // namespace devctrl_py
