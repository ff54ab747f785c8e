#include "platform/ut_trace.h"

#include <cstdio>
#include <string>
#include <utility>

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
    // A copy, so that a handler may replace itself while it runs.
    DiagTraceHandler handler = diagTraceHandler();
    if (handler)
        handler(message, extra);
    else
        writeTraceLine(message, extra);
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
