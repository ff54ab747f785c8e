// SPDX-License-Identifier: MIT
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
// Keeps the trace lines back from now on, until releaseTraces(): the lines
// of one family's load are printed only once it is known whether they
// matter.
void holdTraces();
// Prints the lines kept back (or drops them, when `print` is false) and
// lets later lines through again.
void releaseTraces(bool print);

}  // namespace devctrl_tool
