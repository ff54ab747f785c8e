// SPDX-License-Identifier: MIT
#include "asc_summary.h"
#include "command.h"
#include "devctrl/mngr/device_mngr.h"
#include "devctrl/util/quote.h"

namespace devctrl_tool {
namespace {

class SettingsCommand : public Command {
  public:
    std::string name() const override { return "settings"; }
    std::string summary() const override {
        return "Tool settings of a part and how many ASC chips it can use";
    }
    void configure(CLI::App& command) override {
        command.add_option("part", m_part, "Full part name")->required();
        command.footer(
            "Shows whether Synplify and Precision may be used and which is the default "
            "synthesis tool, whether the ICF, LST and bitstream steps apply, the part's ASC "
            "capacity, its on-board ASC chips and the ASC chip types that may be linked.");
    }
    int run(Context& context) override {
        auto& mngr = context.mngrForParts({m_part});
        if (!mngr.exists(m_part))
            throw ToolError("unknown part: " + tarn::vyxpn::util::escapedForMessage(m_part));
        PartAscs ascs = PartAscs::of(mngr, m_part);
        context.out.record({
            {"part", qs(m_part)},
            {"synplify", mngr.enableSynplify(m_part)},
            {"precision", mngr.enablePrecision(m_part)},
            {"default_synthesis", qs(mngr.getDefaultSynthesis(m_part))},
            {"icf", mngr.enableICF(m_part)},
            {"lst", mngr.enableLST(m_part)},
            {"bitgen", mngr.enableBitgen(m_part)},
            {"asc_max", mngr.getASCMaxNum(m_part)},
            {"asc_on_board", ascs.onBoardJson(), ascs.onBoardText()},
            {"asc_linkable", ascs.linkableJson(), ascs.linkableText()},
        });
        return 0;
    }

  private:
    std::string m_part;
};

}  // namespace
}  // namespace devctrl_tool

DEVCTRL_REGISTER_COMMAND(devctrl_tool::SettingsCommand)
