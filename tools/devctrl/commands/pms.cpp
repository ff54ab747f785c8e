// SPDX-License-Identifier: MIT
#include "command.h"
#include "devctrl/mngr/device_mngr.h"

namespace devctrl_tool {
namespace {

class PmsCommand : public Command {
  public:
    std::string name() const override { return "pms"; }
    std::string summary() const override {
        return "List the part-model codes (PMs) of the installed families";
    }
    void configure(CLI::App& command) override {
        command.add_flag("--loaded", m_loadedOnly,
                         "Only the PMs whose family data loaded, in byte-wise order");
        command.footer(
            "Without --loaded: one PM per installed family name, in the families' natural "
            "order, as the part-model database reports them (a PM with two family names is "
            "listed twice).");
    }
    int run(Context& context) override {
        context.requireData();
        tarn::vyxpn::StringList pms;
        if (m_loadedOnly) {
            for (const auto& entry : context.mngr().getFamilyFiles())
                pms.push_back(entry.first);
        } else {
            tarn::vyxpn::TarnDeviceMngr::baseGetAllPMs(pms);
        }
        context.out.list(pms, "pm");
        return 0;
    }

  private:
    bool m_loadedOnly = false;
};

}  // namespace
}  // namespace devctrl_tool

DEVCTRL_REGISTER_COMMAND(devctrl_tool::PmsCommand)
