// SPDX-License-Identifier: MIT
#include <iostream>

#include "command.h"
#include "devctrl/device/device_obj.h"
#include "devctrl/mngr/device_mngr.h"
#include "devctrl/util/quote.h"

namespace devctrl_tool {
namespace {

class ReportCommand : public Command {
  public:
    std::string name() const override { return "report"; }
    std::string summary() const override {
        return "Device data report of a part: its resources, then the ASC chip resources";
    }
    void configure(CLI::App& command) override {
        command.add_option("part", m_part, "Full part name")->required();
        command.add_option("--asc", m_ascs, "Link an external ASC chip (repeat for more)");
        command.footer(
            "The resource rows of the part's device and package come first, then the sums "
            "of the ASC chip resources, on-board chips and linked chips together. A part "
            "without on-board ASC stock data reports its device rows only. A linked chip that "
            "the part cannot link is refused with validate's message (exit status 1).");
    }
    int run(Context& context) override {
        auto& mngr = context.mngrForParts({m_part});
        if (!mngr.exists(m_part))
            throw ToolError("unknown part: " + tarn::vyxpn::util::escapedForMessage(m_part));
        tarn::vyxpn::TarnDeviceObj device(m_part);
        device.m_ascList = m_ascs;
        // A chip the part cannot link has no place in its report.
        std::string refused;
        if (!mngr.checkLinkedASCs(device, refused))
            throw ToolError(refused);
        tarn::vyxpn::KeyValueReport rows;
        bool withAsc = mngr.calcDeviceData(device, rows);
        if (rows.empty() && !withAsc)
            throw ToolError("no device data for part " +
                            tarn::vyxpn::util::escapedForMessage(m_part));
        if (!withAsc)
            std::cerr << "devctrl: no ASC stock data for "
                      << tarn::vyxpn::util::escapedForMessage(m_part)
                      << "; the report holds its device rows only\n";
        // Keys repeat (one row per resource and chip), so JSON gets a list.
        std::vector<std::vector<std::string>> table;
        QJsonArray json;
        for (const auto& [item, value] : rows) {
            table.push_back({item, value});
            json.append(QJsonObject{{"item", qs(item)}, {"value", qs(value)}});
        }
        context.out.rows({"item", "value"}, table, json, alignedText(table));
        return 0;
    }

  private:
    std::string m_part;
    std::vector<std::string> m_ascs;
};

}  // namespace
}  // namespace devctrl_tool

DEVCTRL_REGISTER_COMMAND(devctrl_tool::ReportCommand)
