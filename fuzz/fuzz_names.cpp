// SPDX-License-Identifier: MIT
// Names as users type them, against the sample installation: the natural
// orderings, name lookups, the name check (renamed and superseded devices)
// and the validation of a part with linked ASC chips; and the text helpers
// that cut names apart.
//
// Input: names, one per line. The first is the part; the others are sorted
// and compared, and serve as its linked ASC chips.

#include <algorithm>
#include <cstdlib>

#include "devctrl/mngr/device_mngr.h"
#include "devctrl/sds/devstatus_flags.h"
#include "devctrl/util/comparators.h"
#include "devctrl/util/string_utils.h"
#include "devctrl/util/tokenizer.h"
#include "support/fuzz_support.h"

namespace {

using tarn::vyxpn::TarnDeviceMngr;

constexpr std::size_t kNameLimit = 32;

void compareAll(const std::vector<std::string>& names) {
    volatile bool sink = false;
    for (const std::string& a : names)
        for (const std::string& b : names)
            sink = sink ^ tarn::vyxpn::STRgreater(a, b) ^ tarn::vyxpn::PKGSTRgreater(a, b);
    std::vector<std::string> sorted = names, packages = names;
    tarn::vyxpn::sortNatural(sorted);
    tarn::vyxpn::sortPackages(packages);
    // A sort keeps every element, whatever the comparator thinks of them.
    if (!std::is_permutation(sorted.begin(), sorted.end(), names.begin(), names.end()) ||
        !std::is_permutation(packages.begin(), packages.end(), names.begin(), names.end()))
        std::abort();
}

void cutApart(const std::string& name) {
    using namespace tarn::vyxpn::util;
    volatile std::size_t sink = toLower(name).size() + toUpper(name).size() + trim(name).size() +
                                split(name, "-_|,").size() + parseString<int>(name);
    tarn::vyxpn::util::Tokenizer tokens(name, "-_ ");
    while (tokens.nextToken())
        sink = sink + tokens.getToken().size();
    sink = sink + tarn::vyxpn::DEVSTATUS_FLAGS::toDevStatusFlag(name);
}

void lookUp(TarnDeviceMngr& mngr, const std::vector<std::string>& names) {
    const std::string& part = names.front();
    devctrl_fuzz::exercisePart(mngr, part, {names.begin() + 1, names.end()});
    mngr.getItemValue(part, part, "x");
    std::string value;
    mngr.getGlobalASCValue(names.back(), part, value);
    TarnDeviceMngr::baseFamilyToPm(part);
}

}  // namespace

const char* const devctrl_fuzz::kDataDir = DEVCTRL_SOURCE_DATA_DIR;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::vector<std::string> names =
        devctrl_fuzz::splitLines(devctrl_fuzz::asText(data, size), kNameLimit);
    compareAll(names);
    for (const std::string& name : names)
        cutApart(name);
    devctrl_fuzz::expectOnlyDesignedRangeErrors(
        [&] { lookUp(*TarnDeviceMngr::getInstance(), names); });
    return 0;
}
