// SPDX-License-Identifier: MIT
#include "command.h"
#include "devctrl/mngr/device_mngr.h"
#include "name_lookup.h"

namespace devctrl_tool {
namespace {

class PartCommand : public Command {
  public:
    std::string name() const override { return "part"; }
    std::string summary() const override {
        return "Split a full part name into PM, family, device, package, speed and condition";
    }
    void configure(CLI::App& command) override {
        command.add_option("PART", m_part, "Full part name, exactly as listed")->required();
        command.footer("A name known to two families belongs to the PM whose code sorts first.");
    }
    int run(Context& context) override {
        using tarn::vyxpn::TarnDeviceMngr;
        auto& mngr = context.mngr();
        requireKnownPart(mngr, m_part);
        std::string pm, device, package, speed, condition;
        mngr.getNameByPart(m_part, pm, device, package, speed, condition);
        context.out.pairs({{"part", m_part},
                           {"pm", pm},
                           {"family", TarnDeviceMngr::basePmToFamily(pm)},
                           {"device", device},
                           {"package", package},
                           {"speed", speed},
                           {"condition", condition}});
        return 0;
    }

  private:
    std::string m_part;
};

}  // namespace
}  // namespace devctrl_tool

DEVCTRL_REGISTER_COMMAND(devctrl_tool::PartCommand)
