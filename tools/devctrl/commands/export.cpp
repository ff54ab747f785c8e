// SPDX-License-Identifier: MIT
#include <iostream>

#include "command.h"
#include "devctrl/mngr/device_mngr.h"
#include "devctrl/mngr/family_export.h"
#include "family_json.h"
#include "json_stream.h"

namespace devctrl_tool {
namespace {

using tarn::vyxpn::TarnDeviceMngr;

class ExportCommand : public Command {
  public:
    std::string name() const override { return "export"; }
    std::string summary() const override {
        return "Print the whole catalogue, or one PM, as one JSON document";
    }
    void configure(CLI::App& command) override {
        command.add_option("PM", m_pm, "PM code or family name (default: every loaded PM)");
        m_filters.addTo(command);
        command.footer(
            "Always JSON: the families, and per PM its family, devices, packages per device, "
            "speeds per device and package, conditions per device, package and speed, and its "
            "parts with their fields and custom items, all in natural order. The filters act "
            "as they do for the other commands.");
    }
    bool tabular() const override { return false; }
    int run(Context& context) override {
        auto& mngr = context.mngr();
        const tarn::vyxpn::ExportScope scope = tarn::vyxpn::exportScope(
            mngr, m_pm.empty() ? nullptr : &m_pm, m_filters.withObsolete, m_filters.ascOnly);

        std::ostream& out = std::cout;
        out << "{\n  \"families\": ";
        writeJsonList(out, scope.families);
        out << ",\n  \"pms\": {";
        bool first = true;
        for (const std::string& pm : scope.pms) {
            context.subject = "PM " + pm;
            const tarn::vyxpn::FamilyExport data = tarn::vyxpn::exportFamily(
                *mngr.getFamilyFile(pm), m_filters.withObsolete, m_filters.ascOnly);
            out << (first ? "\n    " : ",\n    ");
            first = false;
            writeJsonString(out, pm);
            out << ": ";
            writeFamilyJson(out, TarnDeviceMngr::basePmToFamily(pm), data);
        }
        out << (first ? "}\n}\n" : "\n  }\n}\n");
        out.flush();
        return 0;
    }

  private:
    std::string m_pm;
    PartFilters m_filters;
};

}  // namespace
}  // namespace devctrl_tool

DEVCTRL_REGISTER_COMMAND(devctrl_tool::ExportCommand)
