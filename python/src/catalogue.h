// SPDX-License-Identifier: MIT
#pragma once
// The Python classes: a Catalogue over the loaded installation and the Part
// it hands out. Each keeps the session alive, so a Part outlives the
// Catalogue that made it without the manager going away underneath.

#include <pybind11/pybind11.h>
#include <pybind11/stl.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "session.h"

namespace devctrl_py {

struct CheckResult {
    std::string name;
    std::string result;  // valid, replaced, not recommended, unknown
    int code = 0;
    std::optional<std::string> use;
};

CheckResult checkName(const Session& session, const std::string& name);

class Part {
  public:
    Part(std::shared_ptr<Session> session, std::string name);
    std::shared_ptr<Session> session;
    std::string name, pm, family, device, package, speed, condition;
};

class Catalogue {
  public:
    Catalogue(const std::optional<std::string>& dataDir, const py::object& progress,
              bool skipBroken)
        : m_session(Session::open(dataDir, progress, skipBroken)) {}
    // The session, or ValueError once closed.
    const std::shared_ptr<Session>& session() const;
    void close() { m_session.reset(); }
    bool closed() const { return !m_session; }

  private:
    std::shared_ptr<Session> m_session;
};

void bindCatalogue(py::module_& module);
void bindPart(py::module_& module);
void bindExport(py::class_<Catalogue>& catalogue);
void bindIni(py::module_& module);

}  // namespace devctrl_py
