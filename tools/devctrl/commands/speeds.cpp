// SPDX-License-Identifier: MIT
#include "command.h"
#include "devctrl/mngr/device_mngr.h"
#include "devctrl/mngr/known_names.h"

namespace devctrl_tool {
namespace {

class SpeedsCommand : public Command {
  public:
    std::string name() const override { return "speeds"; }
    std::string summary() const override {
        return "List the speed grades of a device in a package in natural order";
    }
    void configure(CLI::App& command) override {
        command.add_option("PM", m_pm, "PM code or family name")->required();
        command.add_option("DEVICE", m_device, "Device name")->required();
        command.add_option("PACKAGE", m_package, "Package name")->required();
        m_filters.addTo(command);
        command.footer(
            "A speed grade is listed when at least one of its parts passes the filters.");
    }
    int run(Context& context) override {
        auto& mngr = context.mngrForPm(m_pm, m_filters.ascOnly);
        const std::string pm = tarn::vyxpn::requireLoadedPm(mngr, m_pm);
        tarn::vyxpn::requireSelection(mngr, pm, m_device, &m_package);
        tarn::vyxpn::StringList speeds;
        mngr.getSpeeds(pm, m_device, m_package, speeds, m_filters.withObsolete, m_filters.ascOnly);
        context.out.list(speeds, "speed");
        return 0;
    }

  private:
    std::string m_pm, m_device, m_package;
    PartFilters m_filters;
};

}  // namespace
}  // namespace devctrl_tool

DEVCTRL_REGISTER_COMMAND(devctrl_tool::SpeedsCommand)
