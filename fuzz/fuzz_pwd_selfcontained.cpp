// The family's self-contained reader of the text part data form (loadPWD)
// and its merge into a filled package section.
//
// Input: an optional first line "@items a,b,c" naming the requested columns,
// then the file. Without it, the usual resource columns are requested.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "devctrl/sds/sds_file.h"
#include "devctrl/util/string_utils.h"
#include "support/fuzz_support.h"
#include "support/pwd_fixture.h"

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    devctrl_fuzz::silenceTraces();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string_view text(reinterpret_cast<const char*>(data), size);
    std::vector<std::string> requested = devctrl_fuzz::requestedPartDataColumns();
    constexpr std::string_view kItemsPrefix = "@items ";
    if (text.substr(0, kItemsPrefix.size()) == kItemsPrefix) {
        std::size_t newline = text.find('\n');
        std::string list(text.substr(kItemsPrefix.size(), newline - kItemsPrefix.size()));
        requested = tarn::vyxpn::util::split(list, ",");
        text.remove_prefix(newline == std::string_view::npos ? text.size() : newline + 1);
    }

    std::string path = devctrl_fuzz::writeScratchFile("selfcontained.pwd", text);
    tarn::vyxpn::TarnSDSFile family("zr9f00", nullptr);
    devctrl_fuzz::fillPackageSection(family);
    family.loadPWD(path, requested);
    // And once into an empty section, which takes the part data over whole.
    tarn::vyxpn::TarnSDSFile empty("zr9f00", nullptr);
    empty.loadPWD(path, requested);
    volatile std::size_t sink =
        devctrl_fuzz::touchPackageSection(family) + devctrl_fuzz::touchPackageSection(empty);
    (void)sink;
    return 0;
}
