// SPDX-License-Identifier: MIT
#pragma once
// Helpers for tests: temporary directories, small data installations written
// on the fly, environment overrides and trace capture.

#include <string>
#include <vector>

#include "support/manager_teardown.h"

namespace devctrl_test {

// A fresh directory under the system temp dir, removed with its content.
class TempDir {
  public:
    TempDir();
    ~TempDir();
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;

    const std::string& path() const { return m_path; }
    // Writes `content` to path()/relative, creating directories.
    std::string write(const std::string& relative, const std::string& content) const;
    std::string file(const std::string& relative) const { return m_path + "/" + relative; }

  private:
    std::string m_path;
};

std::string readFile(const std::string& path);

// The names in a directory, sorted.
std::vector<std::string> listDirectory(const std::string& directory);

// Sets (or unsets, with a null value) an environment variable for a scope.
class EnvGuard {
  public:
    EnvGuard(const char* name, const char* value);
    ~EnvGuard();

  private:
    std::string m_name;
    bool m_had;
    std::string m_old;
};

// Collects diagTrace messages for a scope instead of printing them.
class TraceCapture {
  public:
    TraceCapture();
    ~TraceCapture();
    const std::vector<std::string>& lines() const { return m_lines; }
    bool contains(const std::string& text) const;

  private:
    std::vector<std::string> m_lines;
};

// Points the library at `dataDir` and drops any manager and part-model
// database built before, so the next getInstance() loads `dataDir` afresh.
// Restores the previous data directory and drops the manager at scope end.
class DataDirScope {
  public:
    explicit DataDirScope(const std::string& dataDir);
    ~DataDirScope();

  private:
    EnvGuard m_env;
};

// Runs the devctrl tool with `args` (a shell-quoted string); returns the exit
// status and fills standard output and error.
int runTool(const std::string& args, std::string* out = nullptr, std::string* err = nullptr);

}  // namespace devctrl_test
