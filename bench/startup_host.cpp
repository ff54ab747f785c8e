// SPDX-License-Identifier: MIT
// A host program's start-up, alone in its process: point the library at a
// data directory, call getInstance() once and exit. Like a host at exit, it
// does not destroy the manager: the operating system takes the memory back.
//
//   startup_host DIR                     load, print the families and rows
//   startup_host DIR --write-rows FILE   load, then write the finished part
//                                        and resource tables for startup_floor

#include <QString>
#include <cstring>
#include <fstream>
#include <iostream>
#include <vector>

#include "devctrl/mngr/device_mngr.h"
#include "devctrl/sds/sds_file.h"
#include "guarded_main.h"
#include "platform/base_settings.h"
#include "table_rows_file.h"

namespace {

using tarn::vyxpn::TarnDeviceMngr;
using tarn::vyxpn::TarnSDSFileSection;

// Every family's part table and resource table, the ones the floor builds.
std::vector<const TarnSDSFileSection*> finalTables(const TarnDeviceMngr& mngr) {
    std::vector<const TarnSDSFileSection*> tables;
    for (const auto& entry : mngr.getFamilyFiles()) {
        tables.push_back(&entry.second->m_genericDevices);
        tables.push_back(&entry.second->m_deviceInfo);
    }
    return tables;
}

int run(int argc, char** argv) {
    const bool writeRows = argc == 4 && std::strcmp(argv[2], "--write-rows") == 0;
    if (argc != 2 && !writeRows) {
        std::cerr << "usage: startup_host DIR [--write-rows FILE]\n";
        return 2;
    }
    BaseSystem::setDataPath(QString::fromLocal8Bit(argv[1]));
    const TarnDeviceMngr* mngr = TarnDeviceMngr::getInstance();

    std::size_t rows = 0;
    const std::vector<const TarnSDSFileSection*> tables = finalTables(*mngr);
    for (const TarnSDSFileSection* table : tables)
        rows += table->m_datas.size();
    if (writeRows) {
        std::ofstream out(argv[3], std::ios::binary);
        devctrl_bench::writeTableRows(out, tables);
        out.close();
        if (!out) {
            std::cerr << "startup_host: cannot write " << argv[3] << '\n';
            return 1;
        }
    }
    std::cout << mngr->getFamilyFiles().size() << " families, " << rows << " rows\n";
    return rows > 0 ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
    return devctrl_bench::guardedMain("startup_host", [&] { return run(argc, argv); });
}
