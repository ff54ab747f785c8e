// SPDX-License-Identifier: MIT
#include "generator/shared_files_writer.h"

#include <fstream>
#include <set>
#include <stdexcept>

#include "generator/family_files_writer.h"
#include "generator/keyed_file_writer.h"

namespace tarn::vyxpn::gen {

namespace {

constexpr std::size_t kEntriesPerSection = 100;

// The name a part had as a prototype: device letter Q became P.
std::string prototypeName(const std::string& part) {
    return "P" + part.substr(1);
}

void writeText(const std::string& path, const std::string& text) {
    std::ofstream out(path, std::ios::binary);
    out << text;
    out.close();
    if (!out)
        throw std::runtime_error("cannot write " + path);
}

}  // namespace

void writeAscCatalogue(const std::string& dataDirectory) {
    KeyedFileWriter out(dataDirectory + "/device.acd");
    out.comment("Shared device table: the ASC companion chips every family may attach.");
    out.list("ASC_RESOURCE_ITMES", {"ADC", "DAC", "GPIO"});
    out.list("ASC_ITMES", {"Name", "ADC", "DAC", "GPIO", "Rails"});
    const auto& types = ascChipTypes();
    out.beginRecords("ASC_DATAS");
    out.record({types[0], "Monitor 1", "4", "1", "8", "4"});
    out.record({types[1], "Monitor 2", "8", "2", "16", "8"});
    out.record({types[2], "Monitor 4", "16", "4", "24", "12"});
    out.endRecords();
    out.comment("Without this line the last chip listed would be the default.");
    out.value("ASC_DEFAULT", types[1]);
    out.close();
}

void writeRenamedDevices(const std::string& dataDirectory, const std::vector<std::string>& parts,
                         RandomSource random) {
    std::string text =
        "; Device name list: old full part names and the names to use instead.\n\n"
        "[Name Transfer]\n";
    if (parts.size() < 2) {
        writeText(dataDirectory + "/pqrndev.lst", text + "\n[MIGRATION]\n\n[Not Recommend]\n");
        return;
    }
    auto any = [&]() -> const std::string& { return random.pick(parts); };
    const std::size_t count = std::min(kEntriesPerSection, parts.size());
    // An old name is listed once per section.
    std::set<std::string> listed;
    for (std::size_t i = 0; i < count; ++i) {
        const std::string& part = any();
        if (listed.insert(part).second)
            text += prototypeName(part) + "=" + part + "\n";
    }
    // A renamed prototype whose new name was never released.
    text += prototypeName(parts.front()) + "X=" + parts.front() + "X\n";

    for (const char* section : {"MIGRATION", "Not Recommend"}) {
        text += std::string("\n[") + section + "]\n";
        listed.clear();
        for (std::size_t i = 0; i < count; ++i) {
            const std::string& from = any();
            const std::string& to = any();
            if (from != to && listed.insert(from).second)
                text += from + "=" + to + "\n";
        }
    }
    writeText(dataDirectory + "/pqrndev.lst", text);
}

}  // namespace tarn::vyxpn::gen
