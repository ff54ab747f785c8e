#pragma once
// The one-line load progress shown on standard error when a person watches
// it, and the trace handler that keeps trace lines off it.

#include <string>

namespace devctrl_tool {

// Shows `text` in place of the current progress line; nothing when standard
// error is not a terminal.
void showProgressLine(const std::string& text);
// Erases the progress line, if one is shown.
void clearProgressLine();
// Routes the library's trace lines to standard error, each after clearing
// the progress line; with `quiet`, drops them.
void installTraceHandler(bool quiet);

}  // namespace devctrl_tool
