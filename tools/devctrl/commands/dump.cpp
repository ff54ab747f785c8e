// SPDX-License-Identifier: MIT
#include <sstream>

#include "command.h"
#include "devctrl/mngr/device_mngr.h"
#include "devctrl/mngr/known_names.h"
#include "devctrl/sds/sds_file.h"

namespace devctrl_tool {
namespace {

using tarn::vyxpn::TarnSDSFile;
using tarn::vyxpn::TarnSDSFileSection;

// A table as its columns and its rows, each row led by its key.
QJsonObject tableJson(const std::string& name, const TarnSDSFileSection& section) {
    QJsonArray rows;
    for (const auto& [key, values] : section.m_datas)
        rows.append(QJsonObject{{"key", qs(key)}, {"values", toJsonArray(values)}});
    return QJsonObject{
        {"name", qs(name)}, {"columns", toJsonArray(section.m_items)}, {"rows", rows}};
}

// Every table the text dump shows, with the same content, as data.
QJsonObject familyJson(const TarnSDSFile& family) {
    QJsonObject aliases;
    for (const auto& [package, names] : family.m_pkgAlias)
        aliases.insert(qs(package), toJsonArray(names));
    const QJsonArray tables{tableJson("pm", family.m_pmSection),
                            tableJson("device", family.m_deviceSection),
                            tableJson("package", family.m_packageSection),
                            tableJson("part", family.m_partSection),
                            tableJson("generated_parts", family.m_genericDevices),
                            tableJson("device_info", family.m_deviceInfo)};
    return QJsonObject{{"pm", qs(family.m_pm)},
                       {"family", qs(tarn::vyxpn::TarnDeviceMngr::basePmToFamily(family.m_pm))},
                       {"package_aliases", aliases},
                       {"resource_items", toJsonArray(family.m_resourceItems)},
                       {"part_exceptions", toJsonArray(family.m_partExceptions)},
                       {"tables", tables}};
}

class DumpCommand : public Command {
  public:
    std::string name() const override { return "dump"; }
    std::string summary() const override { return "Print every table of a family, for diagnosis"; }
    void configure(CLI::App& command) override {
        command.add_option("PM", m_pm, "PM code or family name")->required();
        command.footer(
            "With --json: the family's package aliases, resource items, part exceptions and "
            "tables (pm, device, package, part, generated_parts, device_info), each with its "
            "columns and its rows keyed as in the text.");
    }
    bool tabular() const override { return false; }
    int run(Context& context) override {
        auto& mngr = context.mngr();
        const std::string pm = tarn::vyxpn::requireLoadedPm(mngr, m_pm);
        if (context.out.json()) {
            context.out.print(familyJson(*mngr.getFamilyFile(pm)), "");
            return 0;
        }
        std::ostringstream dump;
        mngr.printMe(pm, dump);
        context.out.print(QJsonValue(), dump.str());
        return 0;
    }

  private:
    std::string m_pm;
};

}  // namespace
}  // namespace devctrl_tool

DEVCTRL_REGISTER_COMMAND(devctrl_tool::DumpCommand)
