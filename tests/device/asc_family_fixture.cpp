#include "device/asc_family_fixture.h"

namespace devctrl_test {

using tarn::vyxpn::TarnDeviceMngr;
using tarn::vyxpn::TarnSDSFile;

TarnSDSFile* makeAscFamily(TarnDeviceMngr* mngr, const std::string& pm) {
    auto* family = new TarnSDSFile(pm, mngr);
    family->m_ascTypes = {"AX1", "AX2", "AX3"};
    family->m_ascSection.m_items = {"Vendor", "ADC", "DAC", "GPIO"};
    family->m_ascSection.m_datas = {
        {"AX1", {"acme", "4", "2", "8"}},
        {"AX2", {"acme", "6", "0", "10"}},
        {"AX3", {"acme", "1"}},
    };
    family->m_ascResourceItems = {"ADC", "GPIO", "DAC", "TEMP"};
    family->m_defaultASC = "AX2";

    family->m_genericDevices.m_items = {"Device",       "Speed",     "Package",
                                        "ShortPackage", "Condition", "Suffix"};
    auto addPart = [&](const std::string& part, const std::string& device, const std::string& speed,
                       const std::string& package) {
        family->m_genericDevices.m_datas[part] = {device, speed, package, package, "C", ""};
    };
    addPart("ZR4-6BG100C", "ZR4", "6", "BG100");
    addPart("ZR4-6QF48C", "ZR4", "6", "QF48");
    addPart("ZR12-6BG100C", "ZR12", "6", "BG100");
    addPart("ZR12-7BG100C", "ZR12", "7", "BG100");
    addPart("ZR25-6BG100C", "ZR25", "6", "BG100");

    family->m_partSection.m_items = {"ASCStockNum", "ASCExtTypes", "ASCMaxNum", "DefSynthesis"};
    family->m_partSection.m_datas = {
        {"ZR4-6BG100C", {"0|2|0", "1|yes|0", "4", "Precision"}},
        {"ZR4-6QF48C", {"1|0|0", "0|0|1", "0"}},
        {"ZR12-7BG100C", {"0|0|0", "1|1|1", "2"}},
        {"ZR25-6BG100C", {"1|2", "1|1", "4"}},
    };

    family->m_deviceInfo.m_items = {"LUT", "FF", "EBR"};
    family->m_deviceInfo.m_datas = {
        {"ZR4_BG100", {"640", "600", "2"}},
        {"ZR4_QF48", {"640", "600", "2"}},
        {"ZR12_BG100", {"1280", "1200", "4"}},
        {"ZR25_BG100", {"2560"}},
    };
    return family;
}

ScopedManager::ScopedManager() : m_scope(m_dir.path()), m_mngr(new TarnDeviceMngr()) {
    // Dropped (and deleted) by m_scope at scope end like any loaded instance.
    TarnDeviceMngr::m_pMngr = m_mngr;
}

}  // namespace devctrl_test
