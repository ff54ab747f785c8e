// SPDX-License-Identifier: MIT
// The part data layer's text reader, its text and binary writers on what it
// read, and the family's library reader (loadPWD_Bin) on the same bytes as a
// PM's ".pwd" file (binary-looking input takes the binary path there).
//
// Beyond "no crash": text written from read data reads back to data that
// write the same text, and read data survive the binary form unchanged.

#include <cstdlib>

#include "platform/pd_data.h"
#include "platform/pd_text_writer.h"
#include "support/fuzz_support.h"

const char* const devctrl_fuzz::kDataDir = "data";

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string_view bytes = devctrl_fuzz::asText(data, size);
    PD_DATA parsed;
    if (parsed.LoadTxtString(std::string(bytes), "fuzz.pwd")) {
        std::string text, textAgain;
        // Data the text form cannot say are refused, which is fine.
        if (PD_FormatText(parsed, text)) {
            PD_DATA again;
            if (!again.LoadTxtString(text, "round-trip") || !PD_FormatText(again, textAgain) ||
                textAgain != text)
                std::abort();
        }
        devctrl_fuzz::checkBinaryRoundTrip(parsed);
    }
    devctrl_fuzz::readIntoFamilies(bytes, true);
    return 0;
}
