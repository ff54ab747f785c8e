// SPDX-License-Identifier: MIT
#include "command.h"
#include "devctrl/mngr/device_mngr.h"
#include "devctrl/util/quote.h"

namespace devctrl_tool {
namespace {

class FamilyOfCommand : public Command {
  public:
    std::string name() const override { return "family-of"; }
    std::string summary() const override { return "Print the family name of a PM"; }
    void configure(CLI::App& command) override {
        command.add_option("PM", m_pm, "Part-model code, e.g. zr1a00")->required();
    }
    int run(Context& context) override {
        context.requireData();
        std::string family = tarn::vyxpn::TarnDeviceMngr::basePmToFamily(m_pm);
        if (family.empty())
            throw ToolError("unknown PM " + tarn::vyxpn::util::quotedForMessage(m_pm) +
                            " (see 'devctrl pms')");
        context.out.value(family);
        return 0;
    }

  private:
    std::string m_pm;
};

}  // namespace
}  // namespace devctrl_tool

DEVCTRL_REGISTER_COMMAND(devctrl_tool::FamilyOfCommand)
