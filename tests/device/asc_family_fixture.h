#pragma once
// A small family with ASC chips, built in memory, and a manager that holds it
// as the process-wide instance for the length of a test.

#include <memory>
#include <string>

#include "devctrl/mngr/device_mngr.h"
#include "devctrl/sds/sds_file.h"
#include "support/test_env.h"

namespace devctrl_test {

// Family "zr1a00": ASC types AX1, AX2, AX3; parts
//   ZR4-6BG100C   stock 0|2|0, linkable AX1|AX2, max 4, DefSynthesis Precision
//   ZR4-6QF48C    stock 1|0|0, linkable AX3 only, max 0
//   ZR12-6BG100C  no ASC items at all
//   ZR12-7BG100C  stock 0|0|0 (well formed, nothing on board), linkable all, max 2
//   ZR25-6BG100C  stock with two fields only (malformed for three types)
// The catalogue rows: AX1 = 4 ADC, 2 DAC, 8 GPIO; AX2 = 6 ADC, 0 DAC, 10 GPIO;
// AX3 stops after its ADC value (a short row). Resource items ADC, GPIO,
// DAC and TEMP, the last of which no chip describes. Default chip AX2.
tarn::vyxpn::TarnSDSFile* makeAscFamily(tarn::vyxpn::TarnDeviceMngr* mngr,
                                        const std::string& pm = "zr1a00");

// A manager of its own, installed as the process-wide instance over an empty
// data directory; the instance is dropped again at scope end.
class ScopedManager {
  public:
    ScopedManager();
    tarn::vyxpn::TarnDeviceMngr& operator*() const { return *m_mngr; }
    tarn::vyxpn::TarnDeviceMngr* operator->() const { return m_mngr; }
    const TempDir& dataDir() const { return m_dir; }

  private:
    TempDir m_dir;
    DataDirScope m_scope;
    tarn::vyxpn::TarnDeviceMngr* m_mngr;
};

}  // namespace devctrl_test
