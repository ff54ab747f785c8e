// Names as users type them, against the sample installation: the natural
// orderings, name lookups, the name check (renamed and superseded devices)
// and the validation of a part with linked ASC chips; and the text helpers
// that cut names apart.
//
// Input: names, one per line. The first is the part; the others are sorted
// and compared, and serve as its linked ASC chips.

#include <algorithm>
#include <cstdlib>

#include "devctrl/device/device_obj.h"
#include "devctrl/mngr/comparators.h"
#include "devctrl/mngr/device_mngr.h"
#include "devctrl/mngr/devstatus_flags.h"
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
    std::vector<std::string> sorted = names;
    tarn::vyxpn::sortNatural(sorted);
    // A sort keeps every element, whatever the comparator thinks of them.
    std::vector<std::string> packages = names;
    tarn::vyxpn::sortPackages(packages);
    std::vector<std::string> original = names;
    std::sort(original.begin(), original.end());
    std::sort(sorted.begin(), sorted.end());
    std::sort(packages.begin(), packages.end());
    if (sorted != original || packages != original)
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
    std::string newName, inner, pm, device, package, speed, condition;
    mngr.checkDevice(part, newName);
    mngr.getNewFormatDeviceName(part, newName);
    mngr.getInnerDeviceName(part, inner);
    mngr.getNameByPart(part, pm, device, package, speed, condition);
    mngr.getItemValue("Status", part, "");
    mngr.getItemValue(part, part, "x");
    mngr.getASCMaxNum(part);
    mngr.enableICF(part);
    std::string value;
    mngr.getGlobalASCValue(part, part, value);
    if (names.size() > 1)
        mngr.getGlobalASCValue(names[1], part, value);
    TarnDeviceMngr::baseFamilyToPm(part);

    tarn::vyxpn::TarnDeviceObj dev(part);
    dev.m_ascList.assign(names.begin() + 1, names.end());
    std::string message;
    mngr.isValid(dev, message);
    dev.toString(false);
    tarn::vyxpn::KeyValueReport report;
    mngr.calcDeviceData(dev, report);
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
