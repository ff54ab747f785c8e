// SPDX-License-Identifier: MIT
#include "platform/ut_trace.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <string>
#include <utility>
#include <vector>

namespace {

// Function-local statics so that a trace issued while other statics are being
// initialised still finds a (default) handler.
DiagTraceHandler& diagTraceHandler() {
    static DiagTraceHandler handler;
    return handler;
}

GuiMsgHandler& guiMsgHandler() {
    static GuiMsgHandler handler;
    return handler;
}

std::size_t& tracesPerFile() {
    static std::size_t limit = 5;
    return limit;
}

// The limits in force on this thread, innermost last.
std::vector<TraceFileLimit*>& activeLimits() {
    thread_local std::vector<TraceFileLimit*> limits;
    return limits;
}

void deliver(const char* message, const char* extra);

void writeTraceLine(const char* message, const char* extra) {
    // Built first and written with one call so that lines from several
    // processes sharing a terminal do not interleave mid-line.
    std::string line = "devctrl: ";
    line += message ? message : "";
    if (extra) {
        line += ' ';
        line += extra;
    }
    line += '\n';
    std::fwrite(line.data(), 1, line.size(), stderr);
    std::fflush(stderr);
}

}  // namespace

void diagTrace(const char* message, const char* extra) {
    const auto& limits = activeLimits();
    for (auto it = limits.rbegin(); it != limits.rend(); ++it)
        if (!(*it)->admit(message))
            return;
    deliver(message, extra);
}

namespace {
void deliver(const char* message, const char* extra) {
    // A copy, so that a handler may replace itself while it runs.
    DiagTraceHandler handler = diagTraceHandler();
    if (handler)
        handler(message, extra);
    else
        writeTraceLine(message, extra);
}
}  // namespace

TraceFileLimit::TraceFileLimit(std::string file) : m_prefix(std::move(file) + ":") {
    activeLimits().push_back(this);
}

TraceFileLimit::~TraceFileLimit() {
    auto& limits = activeLimits();
    limits.erase(std::remove(limits.begin(), limits.end(), this), limits.end());
    if (m_dropped == 0)
        return;
    const std::string summary = "... and " + std::to_string(m_dropped) + " more in " +
                                m_prefix.substr(0, m_prefix.size() - 1);
    diagTrace(summary.c_str(), nullptr);
}

bool TraceFileLimit::admit(const char* message) {
    if (!message || std::strncmp(message, m_prefix.c_str(), m_prefix.size()) != 0)
        return true;
    const std::size_t limit = tracesPerFile();
    if (limit == 0 || m_passed < limit) {
        ++m_passed;
        return true;
    }
    ++m_dropped;
    return false;
}

std::size_t setTracesPerFile(std::size_t limit) {
    return std::exchange(tracesPerFile(), limit);
}

void diagTraceToStderr(const char* message, const char* extra) {
    writeTraceLine(message, extra);
}

DiagTraceHandler setDiagTraceHandler(DiagTraceHandler handler) {
    return std::exchange(diagTraceHandler(), std::move(handler));
}

void ut_guimsg(const char* message) {
    GuiMsgHandler handler = guiMsgHandler();
    if (handler)
        handler(message);
}

GuiMsgHandler setGuiMsgHandler(GuiMsgHandler handler) {
    return std::exchange(guiMsgHandler(), std::move(handler));
}
