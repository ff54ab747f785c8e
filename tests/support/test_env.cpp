// SPDX-License-Identifier: MIT
#include "support/test_env.h"

#include <sys/wait.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "devctrl/mngr/device_mngr.h"
#include "platform/ut_trace.h"

namespace fs = std::filesystem;

namespace devctrl_test {

TempDir::TempDir() {
    std::string pattern = (fs::temp_directory_path() / "devctrl-test-XXXXXX").string();
    char* made = mkdtemp(pattern.data());
    if (!made)
        throw std::runtime_error("mkdtemp failed");
    m_path = made;
}

TempDir::~TempDir() {
    std::error_code ignored;
    fs::permissions(m_path, fs::perms::owner_all, fs::perm_options::add, ignored);
    fs::remove_all(m_path, ignored);
}

std::string TempDir::write(const std::string& relative, const std::string& content) const {
    fs::path target = fs::path(m_path) / relative;
    fs::create_directories(target.parent_path());
    std::ofstream out(target, std::ios::binary);
    out << content;
    return target.string();
}

std::string readFile(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

std::vector<std::string> listDirectory(const std::string& directory) {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(directory))
        names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

EnvGuard::EnvGuard(const char* name, const char* value) : m_name(name) {
    const char* old = std::getenv(name);
    m_had = old != nullptr;
    if (old)
        m_old = old;
    if (value)
        setenv(name, value, 1);
    else
        unsetenv(name);
}

EnvGuard::~EnvGuard() {
    if (m_had)
        setenv(m_name.c_str(), m_old.c_str(), 1);
    else
        unsetenv(m_name.c_str());
}

TraceCapture::TraceCapture() {
    setDiagTraceHandler([this](const char* message, const char* extra) {
        std::string line = message ? message : "";
        if (extra)
            line += std::string(" ") + extra;
        m_lines.push_back(line);
    });
}

TraceCapture::~TraceCapture() {
    setDiagTraceHandler(nullptr);
}

bool TraceCapture::contains(const std::string& text) const {
    for (const auto& line : m_lines)
        if (line.find(text) != std::string::npos)
            return true;
    return false;
}

DataDirScope::DataDirScope(const std::string& dataDir)
    : m_env("DEVCTRL_DATA_DIR", dataDir.c_str()) {
    dropManager();
}

DataDirScope::~DataDirScope() {
    dropManager();
}

int runTool(const std::string& args, std::string* out, std::string* err) {
    TempDir scratch;
    std::string command = std::string(DEVCTRL_TOOL_PATH) + " " + args + " >" + scratch.file("out") +
                          " 2>" + scratch.file("err");
    int status = std::system(command.c_str());
    if (out)
        *out = readFile(scratch.file("out"));
    if (err)
        *err = readFile(scratch.file("err"));
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

}  // namespace devctrl_test
