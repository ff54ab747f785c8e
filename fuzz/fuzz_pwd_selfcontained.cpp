// SPDX-License-Identifier: MIT
// The family's self-contained reader of the text part data form (loadPWD)
// and its merge into a filled and into an empty package section.
//
// Input: an optional first line "@items a,b,c" naming the requested columns,
// then the file. Without it, the usual resource columns are requested.

#include "devctrl/util/string_utils.h"
#include "support/fuzz_support.h"

const char* const devctrl_fuzz::kDataDir = nullptr;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string_view text = devctrl_fuzz::asText(data, size);
    std::vector<std::string> requested = devctrl_fuzz::kPartDataColumns;
    constexpr std::string_view kItemsPrefix = "@items ";
    if (text.substr(0, kItemsPrefix.size()) == kItemsPrefix) {
        std::size_t newline = text.find('\n');
        requested = tarn::vyxpn::util::split(
            std::string(text.substr(kItemsPrefix.size(), newline - kItemsPrefix.size())), ",");
        text.remove_prefix(newline == std::string_view::npos ? text.size() : newline + 1);
    }
    devctrl_fuzz::readIntoFamilies(text, false, requested);
    return 0;
}
