// SPDX-License-Identifier: MIT
#pragma once
// A small generated family built in memory: three devices, their packages,
// speeds and conditions, with Status and ASCMaxNum as custom items.

#include <string>
#include <vector>

#include "devctrl/mngr/device_mngr.h"
#include "devctrl/sds/sds_file.h"

namespace devctrl_test {

// A family object owned by `mngr`, with the auto part-table layout and the
// columns Status and ASCMaxNum after the fixed ones.
inline tarn::vyxpn::TarnSDSFile* makeSelectionFamily(tarn::vyxpn::TarnDeviceMngr& mngr,
                                                     const std::string& pm = "zr1a00") {
    auto* file = new tarn::vyxpn::TarnSDSFile(pm, &mngr);
    file->m_genericDevices.m_items = {"Device",    "Speed",  "Package", "ShortPackage",
                                      "Condition", "Suffix", "Status",  "ASCMaxNum"};
    // Part names are keys in byte order: ZR12 sorts before ZR4.
    file->m_genericDevices.m_datas = {
        {"ZR12-6BG100C", {"ZR12", "6", "BG100", "BG100C", "COM", "", "P", "2"}},
        {"ZR12-6BG100I", {"ZR12", "6", "BG100", "BG100I", "IND", "", "P", "2"}},
        {"ZR12-7BG100C", {"ZR12", "7", "BG100", "BG100C", "COM", "", "P", "2"}},
        {"ZR12-6QF48C", {"ZR12", "6", "QF48", "QF48C", "COM", "", "P", "0"}},
        {"ZR4-12QF48C", {"ZR4", "12", "QF48", "QF48C", "COM", "", "P", "0"}},
        {"ZR4-6QF48C", {"ZR4", "6", "QF48", "QF48C", "COM", "", "O", "0"}},
        {"ZR9-6QF48C", {"ZR9", "6", "QF48", "QF48C", "COM", "", "PO", "1"}},
    };
    mngr.adoptFamilyFile(file);
    return file;
}

}  // namespace devctrl_test
