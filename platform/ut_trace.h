// SPDX-License-Identifier: MIT
#pragma once
// Diagnostic trace and progress messages. Both go through a handler that a
// host program (or a test) can replace.

#include <cstddef>
#include <functional>
#include <string>

#include "export.h"

using DiagTraceHandler = std::function<void(const char* message, const char* extra)>;
using GuiMsgHandler = std::function<void(const char* message)>;

// Writes "devctrl: " + message (and " " + extra when extra is not null) as one
// line to standard error, or hands both to the installed handler.
DEVCTRL_API void diagTrace(const char* message, const char* extra);
// Installs a handler and returns the previous one; an empty handler restores
// the default.
DEVCTRL_API DiagTraceHandler setDiagTraceHandler(DiagTraceHandler handler);
// What diagTrace does when no handler is installed; a handler that only
// adds to it (clearing a progress line first, say) calls it.
DEVCTRL_API void diagTraceToStderr(const char* message, const char* extra);

// Progress message to the host; does nothing unless a handler is installed.
DEVCTRL_API void ut_guimsg(const char* message);
DEVCTRL_API GuiMsgHandler setGuiMsgHandler(GuiMsgHandler handler);

// Keeps a damaged file from burying everything else: while one of these is
// alive for a file, only the first few traces whose message starts with
// "FILE:" pass; the others are counted, and the end of the scope traces
// "... and N more in FILE". Readers open one for each file they read.
class DEVCTRL_API TraceFileLimit {
  public:
    explicit TraceFileLimit(std::string file);
    ~TraceFileLimit();
    TraceFileLimit(const TraceFileLimit&) = delete;
    TraceFileLimit& operator=(const TraceFileLimit&) = delete;

    // Used by diagTrace: whether a trace about this file may pass.
    bool admit(const char* message);

  private:
    std::string m_prefix;  // "FILE:"
    std::size_t m_passed = 0;
    std::size_t m_dropped = 0;
};

// How many traces about one file pass before the rest is summed up (5 by
// default); 0 lets every one pass, for a linter that must see them all.
// Returns the previous limit.
DEVCTRL_API std::size_t setTracesPerFile(std::size_t limit);
