#include <QString>
#include <algorithm>
#include <iostream>
#include <map>
#include <unordered_map>
#include <unordered_set>

#include "command.h"
#include "devctrl/mngr/comparators.h"
#include "devctrl/mngr/device_mngr.h"
#include "devctrl/sds/sds_file.h"
#include "name_lookup.h"

namespace devctrl_tool {
namespace {

using tarn::vyxpn::StringList;
using tarn::vyxpn::TarnDeviceMngr;
using tarn::vyxpn::TarnSDSFile;

// Writes `text` as a JSON string. Bytes that are not UTF-8 are replaced the
// way the other commands' JSON output replaces them.
void writeString(std::ostream& out, const std::string& text) {
    const bool ascii = std::all_of(text.begin(), text.end(),
                                   [](char c) { return static_cast<unsigned char>(c) < 0x80; });
    const std::string utf8 = ascii ? text : QString::fromStdString(text).toStdString();
    static const char* hex = "0123456789abcdef";
    out << '"';
    for (char c : utf8) {
        const auto byte = static_cast<unsigned char>(c);
        if (c == '"' || c == '\\')
            out << '\\' << c;
        else if (byte < 0x20)
            out << "\\u00" << hex[byte >> 4] << hex[byte & 0xf];
        else
            out << c;
    }
    out << '"';
}

void writeList(std::ostream& out, const StringList& list) {
    out << '[';
    for (std::size_t i = 0; i < list.size(); ++i) {
        if (i)
            out << ", ";
        writeString(out, list[i]);
    }
    out << ']';
}

// Distinct values in first-seen order; sorted for output at the end.
struct Distinct {
    StringList values;
    std::unordered_set<std::string> seen;
    void add(const std::string& value) {
        if (seen.insert(value).second)
            values.push_back(value);
    }
};

// Everything one PM offers, gathered in one walk over its part table: the
// same lists the list queries give, and each passing part with its row.
class FamilyWalk {
  public:
    FamilyWalk(TarnDeviceMngr& mngr, const TarnSDSFile& file, bool withObsolete, bool ascOnly)
        : m_file(file), m_parts(file.m_genericDevices) {
        const int device = m_parts.columnOf("Device"), package = m_parts.columnOf("Package"),
                  speed = m_parts.columnOf("Speed"), condition = m_parts.columnOf("Condition");
        // The list queries answer only when the status column exists.
        const bool listable = m_parts.columnOf("Status") >= 0;
        for (const auto& [part, row] : m_parts.m_datas) {
            if (!withObsolete && file.isObsDevice(part))
                continue;
            if (ascOnly && !mngr.enableASC(part))
                continue;
            m_passing.emplace_back(&part, &row);
            if (!listable || device < 0)
                continue;
            const std::string& deviceName = row.at(device);
            m_devices.add(deviceName);
            if (package < 0)
                continue;
            const std::string& packageName = row.at(package);
            m_packages[deviceName].add(packageName);
            if (speed < 0)
                continue;
            const std::string& speedName = row.at(speed);
            m_speeds[deviceName][packageName].add(speedName);
            if (condition < 0)
                continue;
            m_conditions[deviceName][packageName][speedName].add(row.at(condition));
        }
        std::stable_sort(m_passing.begin(), m_passing.end(), [](const auto& a, const auto& b) {
            return tarn::vyxpn::STRgreater(*a.first, *b.first);
        });
    }

    void write(std::ostream& out, const std::string& family) const {
        out << "{\n    \"family\": ";
        writeString(out, family);
        const StringList devices = sorted(m_devices.values, tarn::vyxpn::STRgreater);
        out << ",\n    \"devices\": ";
        writeList(out, devices);
        out << ",\n    \"packages\": {";
        writeNested(out, devices, m_packages, [&](const std::string&, const Distinct& d) {
            writeList(out, sorted(d.values, tarn::vyxpn::PKGSTRgreater));
        });
        out << "},\n    \"speeds\": {";
        writeNested(out, devices, m_speeds, [&](const std::string& device, const auto& byPackage) {
            writeByPackage(out, device, byPackage, [&](const Distinct& d) {
                writeList(out, sorted(d.values, tarn::vyxpn::STRgreater));
            });
        });
        out << "},\n    \"conditions\": {";
        writeNested(out, devices, m_conditions,
                    [&](const std::string& device, const auto& byPackage) {
                        writeByPackage(out, device, byPackage,
                                       [&](const auto& bySpeed) { writeBySpeed(out, bySpeed); });
                    });
        out << "},\n    \"parts\": [";
        for (std::size_t i = 0; i < m_passing.size(); ++i) {
            out << (i ? ",\n      " : "\n      ");
            writePart(out, *m_passing[i].first, *m_passing[i].second);
        }
        out << (m_passing.empty() ? "]\n  }" : "\n    ]\n  }");
    }

  private:
    using ByPackage = std::unordered_map<std::string, Distinct>;
    using BySpeed = std::unordered_map<std::string, Distinct>;

    // Stable sorts, as the manager sorts: the orderings are not strict weak
    // orderings for every input.
    template <typename Less>
    static StringList sorted(StringList list, Less less) {
        std::stable_sort(list.begin(), list.end(), less);
        return list;
    }

    // Writes "KEY": value for each key of `keys` present in `map`, keys in
    // the order given.
    template <typename Map, typename WriteValue>
    static void writeKeyed(std::ostream& out, const StringList& keys, const Map& map,
                           WriteValue writeValue) {
        bool first = true;
        for (const std::string& key : keys) {
            auto entry = map.find(key);
            if (entry == map.end())
                continue;
            out << (first ? "" : ", ");
            first = false;
            writeString(out, key);
            out << ": ";
            writeValue(key, entry->second);
        }
    }
    template <typename Map, typename WriteValue>
    static void writeNested(std::ostream& out, const StringList& devices, const Map& map,
                            WriteValue writeValue) {
        writeKeyed(out, devices, map, writeValue);
    }
    template <typename Map, typename WriteValue>
    void writeByPackage(std::ostream& out, const std::string& device, const Map& byPackage,
                        WriteValue writeValue) const {
        const StringList packages =
            sorted(m_packages.at(device).values, tarn::vyxpn::PKGSTRgreater);
        out << '{';
        writeKeyed(out, packages, byPackage,
                   [&](const std::string&, const auto& value) { writeValue(value); });
        out << '}';
    }
    static void writeBySpeed(std::ostream& out, const BySpeed& bySpeed) {
        StringList speeds;
        for (const auto& entry : bySpeed)
            speeds.push_back(entry.first);
        tarn::vyxpn::sortNatural(speeds);
        out << '{';
        writeKeyed(out, speeds, bySpeed, [&](const std::string&, const Distinct& d) {
            writeList(out, sorted(d.values, tarn::vyxpn::STRgreater));
        });
        out << '}';
    }

    // The fixed columns become fields; every other column is a custom item.
    void writePart(std::ostream& out, const std::string& part,
                   const std::vector<std::string>& row) const {
        static const std::map<std::string, const char*> fields{
            {"Device", "device"},       {"Package", "package"}, {"Speed", "speed"},
            {"Condition", "condition"}, {"Suffix", "suffix"},   {"ShortPackage", "shortPackage"}};
        out << "{\"name\": ";
        writeString(out, part);
        const auto& columns = m_parts.m_items;
        for (std::size_t i = 0; i < columns.size() && i < row.size(); ++i) {
            auto field = fields.find(columns[i]);
            if (field == fields.end())
                continue;
            out << ", \"" << field->second << "\": ";
            writeString(out, row[i]);
        }
        out << ", \"obsolete\": " << (m_file.isObsDevice(part) ? "true" : "false");
        out << ", \"items\": {";
        bool first = true;
        for (std::size_t i = 0; i < columns.size() && i < row.size(); ++i) {
            if (fields.count(columns[i]))
                continue;
            out << (first ? "" : ", ");
            first = false;
            writeString(out, columns[i]);
            out << ": ";
            writeString(out, row[i]);
        }
        out << "}}";
    }

    const TarnSDSFile& m_file;
    const tarn::vyxpn::TarnSDSFileSection& m_parts;
    std::vector<std::pair<const std::string*, const std::vector<std::string>*>> m_passing;
    Distinct m_devices;
    std::unordered_map<std::string, Distinct> m_packages;
    std::unordered_map<std::string, ByPackage> m_speeds;
    std::unordered_map<std::string, std::unordered_map<std::string, BySpeed>> m_conditions;
};

class ExportCommand : public Command {
  public:
    std::string name() const override { return "export"; }
    std::string summary() const override {
        return "Print the whole catalogue, or one PM, as one JSON document";
    }
    void configure(CLI::App& command) override {
        command.add_option("PM", m_pm, "PM code or family name (default: every loaded PM)");
        command.add_flag("--all", m_withObsolete, "Include obsolete parts");
        command.add_flag("--asc-only", m_ascOnly, "Only parts that can use ASC chips");
        command.footer(
            "Always JSON: the families, and per PM its family, devices, packages per device, "
            "speeds per device and package, conditions per device, package and speed, and its "
            "parts with their fields and custom items, all in natural order. The filters act "
            "as they do for the other commands.");
    }
    int run(Context& context) override {
        auto& mngr = context.mngr();
        std::vector<std::string> pms;
        if (!m_pm.empty()) {
            pms.push_back(resolvePm(mngr, m_pm));
        } else {
            for (const auto& entry : mngr.getFamilyFiles())
                if (entry.second)
                    pms.push_back(entry.first);
        }

        // Families first, as getAllFamilies lists them: those with a passing part.
        StringList families;
        for (const std::string& pm : pms) {
            const std::string family = TarnDeviceMngr::basePmToFamily(pm);
            if (!family.empty() && hasPassingPart(mngr, *mngr.getFamilyFile(pm)))
                families.push_back(family);
        }
        tarn::vyxpn::sortNatural(families);

        std::ostream& out = std::cout;
        out << "{\n  \"families\": ";
        writeList(out, families);
        out << ",\n  \"pms\": {";
        bool first = true;
        for (const std::string& pm : pms) {
            FamilyWalk walk(mngr, *mngr.getFamilyFile(pm), m_withObsolete, m_ascOnly);
            out << (first ? "\n  " : ",\n  ");
            first = false;
            writeString(out, pm);
            out << ": ";
            walk.write(out, TarnDeviceMngr::basePmToFamily(pm));
        }
        out << (first ? "}\n}\n" : "\n  }\n}\n");
        out.flush();
        return 0;
    }

  private:
    bool hasPassingPart(TarnDeviceMngr& mngr, const TarnSDSFile& file) const {
        for (const auto& entry : file.m_genericDevices.m_datas) {
            if (!m_withObsolete && file.isObsDevice(entry.first))
                continue;
            if (m_ascOnly && !mngr.enableASC(entry.first))
                continue;
            return true;
        }
        return false;
    }

    std::string m_pm;
    bool m_withObsolete = false;
    bool m_ascOnly = false;
};

}  // namespace
}  // namespace devctrl_tool

DEVCTRL_REGISTER_COMMAND(devctrl_tool::ExportCommand)
