// SPDX-License-Identifier: MIT
// The floor of start-up, alone in its process: the same final part and
// resource tables a load ends with, of the same types, built from strings
// that were computed beforehand (startup_host --write-rows), rows in key
// order with a hint at the end of each map. The file is read through a
// buffer of modest size, so that its bytes never sit in memory at once and
// the peak resident size is the tables'. Exits without destroying them, as
// a host would.
//
//   startup_floor FILE

#include <fstream>
#include <iostream>
#include <stdexcept>
#include <vector>

#include "devctrl/sds/sds_file_section.h"
#include "guarded_main.h"
#include "table_rows_file.h"

namespace {

constexpr std::size_t kReadBuffer = 256 * 1024;

int run(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: startup_floor FILE\n";
        return 2;
    }
    std::vector<char> buffer(kReadBuffer);
    std::ifstream in;
    in.rdbuf()->pubsetbuf(buffer.data(), static_cast<std::streamsize>(buffer.size()));
    in.open(argv[1], std::ios::binary);
    if (!in) {
        std::cerr << "startup_floor: cannot read " << argv[1] << '\n';
        return 1;
    }
    // Left to the operating system at exit, like the manager's tables.
    auto* tables =
        new std::vector<tarn::vyxpn::TarnSDSFileSection>(devctrl_bench::readTableCount(in));
    std::size_t rows = 0;
    for (auto& table : *tables) {
        if (!devctrl_bench::readTableRows(in, table))
            throw std::runtime_error("table rows file cut short");
        rows += table.m_datas.size();
    }
    std::cout << tables->size() << " tables, " << rows << " rows\n";
    return rows > 0 ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
    return devctrl_bench::guardedMain("startup_floor", [&] { return run(argc, argv); });
}
