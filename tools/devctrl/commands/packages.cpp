// SPDX-License-Identifier: MIT
#include "command.h"
#include "devctrl/mngr/device_mngr.h"
#include "devctrl/mngr/known_names.h"

namespace devctrl_tool {
namespace {

class PackagesCommand : public Command {
  public:
    std::string name() const override { return "packages"; }
    std::string summary() const override {
        return "List the packages of a device in natural order";
    }
    void configure(CLI::App& command) override {
        command.add_option("PM", m_pm, "PM code or family name")->required();
        command.add_option("DEVICE", m_device, "Device name")->required();
        m_filters.addTo(command);
        command.footer(
            "A package is listed when at least one part of the device in it passes the "
            "filters. Packages sort by their last number (pin count) first.");
    }
    int run(Context& context) override {
        auto& mngr = context.mngrForPm(m_pm, m_filters.ascOnly);
        const std::string pm = tarn::vyxpn::requireLoadedPm(mngr, m_pm);
        tarn::vyxpn::requireSelection(mngr, pm, m_device);
        tarn::vyxpn::StringList packages;
        mngr.getPackages(pm, m_device, packages, m_filters.withObsolete, m_filters.ascOnly);
        context.out.list(packages, "package");
        return 0;
    }

  private:
    std::string m_pm, m_device;
    PartFilters m_filters;
};

}  // namespace
}  // namespace devctrl_tool

DEVCTRL_REGISTER_COMMAND(devctrl_tool::PackagesCommand)
