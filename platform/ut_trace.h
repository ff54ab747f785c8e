#pragma once
// Diagnostic trace and progress messages. Both go through a handler that a
// host program (or a test) can replace.

#include <functional>

using DiagTraceHandler = std::function<void(const char* message, const char* extra)>;
using GuiMsgHandler = std::function<void(const char* message)>;

// Writes "devctrl: " + message (and " " + extra when extra is not null) as one
// line to standard error, or hands both to the installed handler.
void diagTrace(const char* message, const char* extra);
// Installs a handler and returns the previous one; an empty handler restores
// the default.
DiagTraceHandler setDiagTraceHandler(DiagTraceHandler handler);
// What diagTrace does when no handler is installed; a handler that only
// adds to it (clearing a progress line first, say) calls it.
void diagTraceToStderr(const char* message, const char* extra);

// Progress message to the host; does nothing unless a handler is installed.
void ut_guimsg(const char* message);
GuiMsgHandler setGuiMsgHandler(GuiMsgHandler handler);
