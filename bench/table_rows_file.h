// SPDX-License-Identifier: MIT
#pragma once
// The finished part and resource tables of a loaded catalogue, written once
// to a file so that the floor program can build the same tables from
// ready-made strings in a process of its own. Every string is its length (4
// bytes, host order) and its bytes; the file is only ever read back on the
// machine that wrote it.

#include <cstdint>
#include <istream>
#include <ostream>
#include <string>
#include <vector>

#include "devctrl/sds/sds_file_section.h"

namespace devctrl_bench {

// Writes the tables in order: column count and names, row count, then per
// row its key, cell count and cells, in key order.
void writeTableRows(std::ostream& out,
                    const std::vector<const tarn::vyxpn::TarnSDSFileSection*>& tables);

// Reads the next table written by writeTableRows into `table`, row by row
// with a hint at the end of the map, the cheapest build there is. False at
// the end of the file; throws on a file cut short or not of this form.
bool readTableRows(std::istream& in, tarn::vyxpn::TarnSDSFileSection& table);

// The number of tables the file holds, read from its header.
std::uint32_t readTableCount(std::istream& in);

}  // namespace devctrl_bench
