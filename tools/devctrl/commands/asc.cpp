// SPDX-License-Identifier: MIT
#include "asc_summary.h"
#include "command.h"
#include "devctrl/mngr/device_mngr.h"
#include "devctrl/util/quote.h"

namespace devctrl_tool {
namespace {

class AscCommand : public Command {
  public:
    std::string name() const override { return "asc"; }
    std::string summary() const override {
        return "ASC companion chips: the catalogue, a chip's values, a part's chips";
    }
    void configure(CLI::App& command) override {
        command.require_subcommand(1, 1);
        m_chips = command.add_subcommand("chips", "List the ASC chip types, the default marked");
        m_value = command.add_subcommand("value", "One attribute of an ASC chip type");
        m_value->add_option("chip", m_chip, "ASC chip type")->required();
        m_value->add_option("item", m_item, "Attribute name, e.g. ADC")->required();
        m_partCommand = command.add_subcommand(
            "part", "The ASC chips a part has on board and the types it may link");
        m_partCommand->add_option("part", m_part, "Full part name")->required();
        command.footer(
            "The catalogue is shared by every family; it is read from the loaded family "
            "whose PM sorts first.");
    }
    int run(Context& context) override {
        if (m_chips->parsed())
            return listChips(context);
        if (m_value->parsed())
            return showValue(context);
        return showPart(context);
    }

  private:
    int listChips(Context& context) {
        auto& mngr = context.mngr();
        std::vector<std::string> chips;
        mngr.getGloablSupportedASCs(chips);
        std::string defaultChip = mngr.getDefaultASC();
        QJsonArray json;
        std::string text;
        std::vector<std::vector<std::string>> rows;
        for (const auto& chip : chips) {
            json.append(QJsonObject{{"name", qs(chip)}, {"default", chip == defaultChip}});
            text += chip + (chip == defaultChip ? "  (default)" : "") + "\n";
            rows.push_back({chip, chip == defaultChip ? "yes" : "no"});
        }
        context.out.rows({"name", "default"}, rows, json, text);
        return 0;
    }

    int showValue(Context& context) {
        std::string value;
        if (!context.mngr().getGlobalASCValue(m_chip, m_item, value))
            throw ToolError("no value of " + tarn::vyxpn::util::quotedForMessage(m_item) +
                            " for ASC chip " + tarn::vyxpn::util::quotedForMessage(m_chip));
        context.out.value(value);
        return 0;
    }

    int showPart(Context& context) {
        auto& mngr = context.mngr();
        if (!mngr.exists(m_part))
            throw ToolError("unknown part: " + tarn::vyxpn::util::escapedForMessage(m_part));
        PartAscs ascs = PartAscs::of(mngr, m_part);
        context.out.record({{"part", qs(m_part)},
                            {"on_board", ascs.onBoardJson(), ascs.onBoardText()},
                            {"linkable", ascs.linkableJson(), ascs.linkableText()}});
        return 0;
    }

    CLI::App* m_chips = nullptr;
    CLI::App* m_value = nullptr;
    CLI::App* m_partCommand = nullptr;
    std::string m_chip;
    std::string m_item;
    std::string m_part;
};

}  // namespace
}  // namespace devctrl_tool

DEVCTRL_REGISTER_COMMAND(devctrl_tool::AscCommand)
