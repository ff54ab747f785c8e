// SPDX-License-Identifier: MIT
#include "progress_line.h"

#include <unistd.h>

#include <iostream>
#include <string>
#include <utility>
#include <vector>

#include "platform/ut_trace.h"

namespace devctrl_tool {

namespace {
bool shown = false;
bool holding = false;
std::vector<std::pair<std::string, std::string>> held;  // message, extra ("\1" for none)
const char* const kNoExtra = "\1";
}  // namespace

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
        if (holding) {
            held.emplace_back(message ? message : "", extra ? extra : kNoExtra);
            return;
        }
        clearProgressLine();
        diagTraceToStderr(message, extra);
    });
}

void holdTraces() {
    holding = true;
}

void releaseTraces(bool print) {
    holding = false;
    if (print && !held.empty()) {
        clearProgressLine();
        for (const auto& [message, extra] : held)
            diagTraceToStderr(message.c_str(), extra == kNoExtra ? nullptr : extra.c_str());
    }
    held.clear();
}

}  // namespace devctrl_tool
