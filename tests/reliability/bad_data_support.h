#pragma once
// A small, valid family installation that the bad-data tests damage one way
// at a time, and the checks they share.

#include <string>
#include <vector>

#include "support/test_env.h"

namespace devctrl_test {

// The PM of the family these tests install, and its two files, clean.
extern const char* const kBadDataPm;
std::string cleanFamilyKey();
std::string cleanDeviceAcd();

// Byte-level damage, applied to a whole file.
std::string withCrlf(const std::string& text);
std::string withoutFinalNewline(const std::string& text);

// Writes the family into `dir` (as <dir>/<kBadDataPm>/...).
void writeFamily(const TempDir& dir, const std::string& familyKey, const std::string& deviceAcd);

// The part names the manager offers for `pm` (obsolete parts included), after
// loading the data directory `dir` afresh. Empty when the PM did not load.
std::vector<std::string> loadedParts(const std::string& dir, const std::string& pm);

// The trace lines that mention `text`.
std::vector<std::string> linesMentioning(const TraceCapture& traces, const std::string& text);

}  // namespace devctrl_test
