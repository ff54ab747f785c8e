// SPDX-License-Identifier: MIT
#include "command.h"
#include "devctrl/mngr/device_mngr.h"
#include "devctrl/mngr/known_names.h"

namespace devctrl_tool {
namespace {

class ConditionsCommand : public Command {
  public:
    std::string name() const override { return "conditions"; }
    std::string summary() const override {
        return "List the operating conditions of a device, package and speed grade";
    }
    void configure(CLI::App& command) override {
        command.add_option("PM", m_pm, "PM code or family name")->required();
        command.add_option("DEVICE", m_device, "Device name")->required();
        command.add_option("PACKAGE", m_package, "Package name")->required();
        command.add_option("SPEED", m_speed, "Speed grade")->required();
        m_filters.addTo(command);
        command.footer("Conditions are the words COM, IND and AUTO as the part table holds them.");
    }
    int run(Context& context) override {
        auto& mngr = context.mngrForPm(m_pm, m_filters.ascOnly);
        const std::string pm = tarn::vyxpn::requireLoadedPm(mngr, m_pm);
        tarn::vyxpn::requireSelection(mngr, pm, m_device, &m_package, &m_speed);
        tarn::vyxpn::StringList conditions;
        mngr.getOperations(pm, m_device, m_package, m_speed, conditions, m_filters.withObsolete,
                           m_filters.ascOnly);
        context.out.list(conditions, "condition");
        return 0;
    }

  private:
    std::string m_pm, m_device, m_package, m_speed;
    PartFilters m_filters;
};

}  // namespace
}  // namespace devctrl_tool

DEVCTRL_REGISTER_COMMAND(devctrl_tool::ConditionsCommand)
