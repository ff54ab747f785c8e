// SPDX-License-Identifier: MIT
// The keyed data reader ("device.acd", "family.key"): parsing, walking every
// key with each separator pair the loaders use, the part-model record built
// from a "family.key", and the line finder that points reports at a key's or
// a record's line.

#include <algorithm>

#include "devctrl/mngr/device_mngr.h"
#include "devctrl/sds/base_lists.h"
#include "devctrl/util/string_utils.h"
#include "platform/data_file.h"
#include "platform/keyed_record_lines.h"
#include "platform/pm_devkey.h"
#include "platform/pm_record_reader.h"
#include "support/fuzz_support.h"

namespace {

// The keys the loaders ask for, and a few the input itself defines (the text
// before '=' of its first lines), so that arbitrary keys get walked too.
std::vector<std::string> keysToWalk(std::string_view text) {
    std::vector<std::string> keys{
        "FAMILY",         "DEVICES",         "PACKAGES",      "SPEEDS",    "PM_ENABLE", "PKG_ALIAS",
        "RESOURCE_ITMES", "RESOURCE_LABELS", "PACKAGE_DATAS", "ASC_DATAS", ""};
    std::vector<std::string> lines = devctrl_fuzz::splitLines(text, 17);
    lines.pop_back();  // the rest of the input
    for (const std::string& line : lines)
        if (std::size_t equals = line.find('='); equals != std::string::npos)
            keys.push_back(tarn::vyxpn::util::trim(line.substr(0, equals)));
    return keys;
}

std::size_t walk(const PM_DEVKEY& keys, const std::string& key, char recordSeparator,
                 char fieldSeparator) {
    std::size_t bytes = 0;
    for (PM_DEVKEY_KEYITER it(&keys, key.c_str(), recordSeparator, fieldSeparator, 0); it.record();
         it.setupNextIAndJ()) {
        for (; it.field(); it.advanceToNextJ())
            bytes += std::string_view(it.field()).size();
        it.advanceToNextJ();  // past the end: must stay harmless
    }
    return bytes;
}

}  // namespace

const char* const devctrl_fuzz::kDataDir = nullptr;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string_view text = devctrl_fuzz::asText(data, size);
    PM_DEVKEY keys = PM_DEVKEY::fromText(text, "fuzz.acd");

    volatile std::size_t sink = 0;
    for (const std::string& key : keysToWalk(text)) {
        sink = sink + walk(keys, key, ':', ',');
        sink = sink + walk(keys, key, ':', 0);
        sink = sink + walk(keys, key, ',', 0);
        std::vector<std::string> members;
        sink = sink +
               static_cast<std::size_t>(tarn::vyxpn::g_getMemerItems(keys, key.c_str(), members));
    }

    // The same bytes as a PM's "family.key", read from a file like the
    // part-model database does.
    std::string path = devctrl_fuzz::writeScratchFile("zr9f00/family.key", text);
    tarn::vyxpn::platform::DataFile file(path);
    std::string content;
    if (!file.readAll(content) || content != text)
        __builtin_trap();  // the reader must give back exactly what was written
    PM_RECORD record = tarn::vyxpn::util::readPmRecord(
        "zr9f00", devctrl_fuzz::scratchDir() + "/zr9f00",
        std::make_shared<const PM_DEVKEY>(PM_DEVKEY::fromText(content, path)));
    for (const PM_DEVICE_RECORD& device : record.devices)
        for (const PM_PACKAGE_RECORD& package : device.packages)
            sink = sink + package.speeds.size();

    // Every line the finder names is a line of the file.
    const std::size_t lastLine =
        static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n')) + 1;
    KeyedRecordLines lines(path);
    for (const std::string& key : keysToWalk(text)) {
        std::vector<std::string> fields;
        PM_DEVKEY_KEYITER it(&keys, key.c_str(), ':', ',', 0);
        if (it.record())
            for (; it.field() && fields.size() < 3; it.advanceToNextJ())
                fields.emplace_back(it.field());
        const std::size_t keyLine = lines.keyLine(key);
        const std::size_t recordLine = lines.recordLine(key, fields);
        if (keyLine > lastLine || recordLine > lastLine || (keyLine == 0) != (recordLine == 0))
            __builtin_trap();
    }
    return 0;
}
