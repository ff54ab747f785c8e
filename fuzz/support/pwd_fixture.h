#pragma once
// A family object with a filled package section, for the part data targets:
// the part data merge has something to merge into.

#include <string>
#include <vector>

#include "devctrl/sds/sds_file.h"

class PD_DATA;

namespace devctrl_fuzz {

// The resource columns the part data targets ask the readers for.
const std::vector<std::string>& requestedPartDataColumns();

// A family "zr9f00" whose package section has two columns and three rows, one
// of them shorter than the column list.
void fillPackageSection(tarn::vyxpn::TarnSDSFile& family);

// Reads every cell of the package section, as the queries would.
std::size_t touchPackageSection(const tarn::vyxpn::TarnSDSFile& family);

// Aborts unless data that encode to the binary form decode back to data that
// encode to the same bytes.
void checkBinaryRoundTrip(const PD_DATA& data);

}  // namespace devctrl_fuzz
