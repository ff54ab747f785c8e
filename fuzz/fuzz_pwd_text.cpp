// The part data layer's text reader, its text and binary writers on what it
// read, and the family's library reader (loadPWD_Bin) on the same bytes as a
// PM's ".pwd" file.
//
// Checks beyond "no crash": text written from read data reads back to data
// that write the same text, and read data survive the binary form unchanged.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "devctrl/sds/sds_file.h"
#include "platform/pd_binary_format.h"
#include "platform/pd_data.h"
#include "platform/pd_text_writer.h"
#include "support/fuzz_support.h"
#include "support/pwd_fixture.h"

namespace {

void checkTextRoundTrip(const PD_DATA& data) {
    std::string text;
    if (!PD_FormatText(data, text))
        return;  // holds something the text form cannot say; refused, fine
    PD_DATA again;
    if (!again.LoadTxtString(text, "round-trip"))
        std::abort();
    std::string textAgain;
    if (!PD_FormatText(again, textAgain) || textAgain != text)
        std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    devctrl_fuzz::silenceTraces();
    setenv("DEVCTRL_DATA_DIR", (devctrl_fuzz::scratchDir() + "/data").c_str(), 1);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string text(reinterpret_cast<const char*>(data), size);
    PD_DATA parsed;
    if (parsed.LoadTxtString(text, "fuzz.pwd")) {
        checkTextRoundTrip(parsed);
        devctrl_fuzz::checkBinaryRoundTrip(parsed);
    }

    // The family's reader goes through the file; binary-looking input takes
    // the binary path there, which is fine too.
    devctrl_fuzz::writeScratchFile("data/zr9f00/zr9f00.pwd", text);
    tarn::vyxpn::TarnSDSFile family("zr9f00", nullptr);
    devctrl_fuzz::fillPackageSection(family);
    family.loadPWD_Bin("zr9f00", nullptr, devctrl_fuzz::requestedPartDataColumns());
    volatile std::size_t sink = devctrl_fuzz::touchPackageSection(family);
    (void)sink;
    return 0;
}
