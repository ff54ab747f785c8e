// SPDX-License-Identifier: MIT
#pragma once
// Writes part data in the text form that PD_DATA::LoadTxtFile reads, such
// that reading the text back gives the same sections, entries, columns and
// cells, and writing that again gives the same bytes.

#include <string>

class PD_DATA;

// False, with a one-line reason in `error` when given, when the data hold
// something the text form cannot say: a table before the first key section,
// a table not named "Format", whose first column is not "Key" or that lists no
// other column; a row without a key and at least one cell; a name, key, value
// or cell with blanks at an end or a line break; a key with '=', beginning
// with "[[" or spelling "Format"; a column name or cell with ','.
bool PD_FormatText(const PD_DATA& data, std::string& text, std::string* error = nullptr);
