// SPDX-License-Identifier: MIT
#include "platform/ut_trace.h"

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <cstring>
#include <mutex>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "platform/ut_trace_recording.h"

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

// Atomic because helper threads that load families read it while a host's
// thread may set it.
std::atomic<std::size_t>& tracesPerFile() {
    static std::atomic<std::size_t> limit{5};
    return limit;
}

// The limits in force on this thread, innermost last.
std::vector<TraceFileLimit*>& activeLimits() {
    thread_local std::vector<TraceFileLimit*> limits;
    return limits;
}

// Where this thread's messages go instead of the handlers; null: to them.
TraceRecording*& activeRecording() {
    thread_local TraceRecording* recording = nullptr;
    return recording;
}

// The texts diagTraceOnce has let through, for the whole process.
struct SaidOnce {
    std::mutex guard;
    std::set<std::string> texts;

    // True the first time `text` comes.
    bool first(const char* text) {
        std::lock_guard<std::mutex> lock(guard);
        return texts.insert(text ? text : "").second;
    }
    bool seen(const char* text) {
        std::lock_guard<std::mutex> lock(guard);
        return texts.count(text ? text : "") != 0;
    }
};

SaidOnce& saidOnce() {
    static SaidOnce said;
    return said;
}

// Whether the file limits of this thread let `message` pass (counting it).
bool admittedHere(const char* message) {
    const auto& limits = activeLimits();
    for (auto it = limits.rbegin(); it != limits.rend(); ++it)
        if (!(*it)->admit(message))
            return false;
    return true;
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
    if (admittedHere(message))
        deliver(message, extra);
}

void diagTraceOnce(const char* message) {
    TraceRecording* recording = activeRecording();
    if (!recording) {
        // Marked as said even when a file limit then holds it back.
        if (saidOnce().first(message))
            diagTrace(message, nullptr);
        return;
    }
    // Said before this recording began: dropped here as it would be anywhere.
    // Whether an earlier recording, not yet replayed, says it first is
    // settled by the replay.
    if (saidOnce().seen(message))
        return;
    recording->add(
        admittedHere(message) ? TraceRecording::Kind::Once : TraceRecording::Kind::OnceLimited,
        message, nullptr);
}

namespace {
void deliver(const char* message, const char* extra) {
    if (TraceRecording* recording = activeRecording()) {
        recording->add(TraceRecording::Kind::Trace, message, extra);
        return;
    }
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
    return tracesPerFile().exchange(limit);
}

void diagTraceToStderr(const char* message, const char* extra) {
    writeTraceLine(message, extra);
}

DiagTraceHandler setDiagTraceHandler(DiagTraceHandler handler) {
    return std::exchange(diagTraceHandler(), std::move(handler));
}

void ut_guimsg(const char* message) {
    if (TraceRecording* recording = activeRecording()) {
        recording->add(TraceRecording::Kind::GuiMsg, message, nullptr);
        return;
    }
    GuiMsgHandler handler = guiMsgHandler();
    if (handler)
        handler(message);
}

GuiMsgHandler setGuiMsgHandler(GuiMsgHandler handler) {
    return std::exchange(guiMsgHandler(), std::move(handler));
}

void TraceRecording::add(Kind kind, const char* text, const char* extra) {
    m_messages.push_back(
        Message{kind, text ? text : "", extra != nullptr, extra ? extra : std::string()});
}

void TraceRecording::replay() const {
    for (const Message& message : m_messages) {
        const char* text = message.text.c_str();
        switch (message.kind) {
            case Kind::Trace:
                diagTrace(text, message.hasExtra ? message.extra.c_str() : nullptr);
                break;
            case Kind::Once:
                if (saidOnce().first(text))
                    diagTrace(text, nullptr);
                break;
            case Kind::OnceLimited:
                saidOnce().first(text);
                break;
            case Kind::GuiMsg:
                ut_guimsg(text);
                break;
        }
    }
}

TraceRecorder::TraceRecorder(TraceRecording& into)
    : m_outer(std::exchange(activeRecording(), &into)) {}

TraceRecorder::~TraceRecorder() {
    activeRecording() = m_outer;
}
