#include "progress_line.h"

#include <unistd.h>

#include <iostream>

#include "platform/ut_trace.h"

namespace devctrl_tool {

namespace {
bool shown = false;
}

void showProgressLine(const std::string& text) {
    if (!isatty(STDERR_FILENO))
        return;
    std::cerr << "\r" << text << "\033[K" << std::flush;
    shown = true;
}

void clearProgressLine() {
    if (!shown)
        return;
    std::cerr << "\r\033[K" << std::flush;
    shown = false;
}

void installTraceHandler(bool quiet) {
    if (quiet) {
        setDiagTraceHandler([](const char*, const char*) {});
        return;
    }
    setDiagTraceHandler([](const char* message, const char* extra) {
        clearProgressLine();
        diagTraceToStderr(message, extra);
    });
}

}  // namespace devctrl_tool
