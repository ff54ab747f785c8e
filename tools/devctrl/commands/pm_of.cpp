// SPDX-License-Identifier: MIT
#include "command.h"
#include "devctrl/mngr/device_mngr.h"
#include "devctrl/util/quote.h"

namespace devctrl_tool {
namespace {

class PmOfCommand : public Command {
  public:
    std::string name() const override { return "pm-of"; }
    std::string summary() const override { return "Print the PM of a family"; }
    void configure(CLI::App& command) override {
        command.add_option("FAMILY", m_family, "Family name, in any letter case")->required();
    }
    int run(Context& context) override {
        context.requireData();
        std::string pm = tarn::vyxpn::TarnDeviceMngr::baseFamilyToPm(m_family);
        if (pm.empty())
            throw ToolError("unknown family " + tarn::vyxpn::util::quotedForMessage(m_family) +
                            " (see 'devctrl families')");
        context.out.value(pm);
        return 0;
    }

  private:
    std::string m_family;
};

}  // namespace
}  // namespace devctrl_tool

DEVCTRL_REGISTER_COMMAND(devctrl_tool::PmOfCommand)
