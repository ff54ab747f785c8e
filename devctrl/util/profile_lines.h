// SPDX-License-Identifier: MIT
#pragma once
// Line handling shared by the profile readers and the writer. Not part of the
// exported interface.

#include <stdio.h>

namespace tarn::vyxpn::util::profile {

// Lines are read in pieces of at most this size - 1 characters; a longer
// physical line becomes several lines. Keys are cut to the same size.
constexpr unsigned kLineSize = 1024;

enum class LineKind { Comment, Header, Entry };

// Reads the next piece of a line into `line` (kLineSize bytes); false at the
// end of the file.
bool readLine(FILE* file, char* line);

// Trailing, then leading whitespace removed in place.
void trimLine(char* line);

// Classifies a trimmed line by its first character.
LineKind kindOf(const char* line);

// The section name of a header line, written to `name` (kLineSize bytes);
// false when the line does not end with "]".
bool headerName(const char* line, char* name);

// The key of an entry line (text before the first "=", cut to kLineSize - 1
// characters, trailing whitespace removed) written to `key`. An empty line
// leaves `key` as it was: a blank line repeats the key of the line before.
void entryKey(const char* line, char* key);

}  // namespace tarn::vyxpn::util::profile
