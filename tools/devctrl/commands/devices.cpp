// SPDX-License-Identifier: MIT
#include "command.h"
#include "devctrl/mngr/device_mngr.h"
#include "devctrl/mngr/known_names.h"

namespace devctrl_tool {
namespace {

class DevicesCommand : public Command {
  public:
    std::string name() const override { return "devices"; }
    std::string summary() const override { return "List the devices of a PM in natural order"; }
    void configure(CLI::App& command) override {
        command.add_option("PM", m_pm, "PM code or family name")->required();
        m_filters.addTo(command);
        command.footer("A device is listed when at least one of its parts passes the filters.");
    }
    int run(Context& context) override {
        auto& mngr = context.mngrForPm(m_pm, m_filters.ascOnly);
        const std::string pm = tarn::vyxpn::requireLoadedPm(mngr, m_pm);
        tarn::vyxpn::StringList devices;
        mngr.getDevices(pm, devices, m_filters.withObsolete, m_filters.ascOnly);
        context.out.list(devices, "device");
        return 0;
    }

  private:
    std::string m_pm;
    PartFilters m_filters;
};

}  // namespace
}  // namespace devctrl_tool

DEVCTRL_REGISTER_COMMAND(devctrl_tool::DevicesCommand)
