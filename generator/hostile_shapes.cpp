// SPDX-License-Identifier: MIT
#include "generator/hostile_shapes.h"

#include <filesystem>
#include <fstream>
#include <stdexcept>

namespace tarn::vyxpn::gen {

namespace {

void writeFile(const std::string& path, const std::string& text) {
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out << text;
    out.close();
    if (!out)
        throw std::runtime_error("cannot write " + path);
}

std::string deviceName(std::size_t i) {
    return "HX" + std::to_string(i);
}

std::string packageName(std::size_t i) {
    return "P" + std::to_string(i);
}

// "KEY = item<sep>item..." with `count` items made by `item`, each on a line
// of its own (continued with '\') or all on one line.
template <typename Item>
std::string listValue(const char* key, std::size_t count, const char* separator, bool oneLine,
                      Item item) {
    std::string text = std::string(key) + " = ";
    for (std::size_t i = 0; i < count; ++i) {
        if (i) {
            text += separator;
            text += oneLine ? " " : " \\\n    ";
        }
        text += item(i);
    }
    return text + "\n";
}

std::string familyKey(HostileShape shape, std::size_t count) {
    std::string text = "FAMILY = HXL\n";
    const bool oneLine = shape == HostileShape::HugeLine;
    switch (shape) {
        case HostileShape::HugeList:
        case HostileShape::HugeLine:
            text += listValue("DEVICES", count, ",", oneLine, deviceName);
            text += listValue("PACKAGES", count, " :", oneLine,
                              [](std::size_t i) { return deviceName(i) + ", QF48"; });
            text += listValue("SPEEDS", count, " :", oneLine,
                              [](std::size_t i) { return deviceName(i) + ", QF48, 6"; });
            break;
        case HostileShape::Continuations:
            text += "DEVICES = HX1\nPACKAGES = HX1, QF48\nSPEEDS = HX1, QF48, 6\n";
            text += listValue("NOTES", count, "", false,
                              [](std::size_t i) { return "note " + std::to_string(i); });
            break;
        case HostileShape::NoPackages:
            text += listValue("DEVICES", count, ",", false, deviceName);
            break;
        case HostileShape::ManyPackages:
            text += "DEVICES = HX1\n";
            text += "PACKAGES = HX1, " + listValue("", count, ",", true, packageName).substr(3);
            text += listValue("SPEEDS", count, " :", false,
                              [](std::size_t i) { return "HX1, " + packageName(i) + ", 6"; });
            break;
    }
    return text;
}

}  // namespace

const char* nameOf(HostileShape shape) {
    switch (shape) {
        case HostileShape::HugeList:
            return "huge_list";
        case HostileShape::HugeLine:
            return "huge_line";
        case HostileShape::Continuations:
            return "continuations";
        case HostileShape::NoPackages:
            return "no_packages";
        case HostileShape::ManyPackages:
            return "many_packages";
    }
    return "";
}

std::size_t writeHostileShape(const std::string& directory, HostileShape shape, std::size_t count) {
    const std::string family = directory + "/hx1a00";
    std::filesystem::create_directories(family);
    const std::string key = familyKey(shape, count);
    writeFile(family + "/family.key", key);
    writeFile(family + "/device.acd", "PM_ENABLE = true\nPKG_ALIAS = QF48, Q48\n");
    return key.size();
}

}  // namespace tarn::vyxpn::gen
