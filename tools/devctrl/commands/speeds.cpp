#include "command.h"
#include "devctrl/mngr/device_mngr.h"
#include "name_lookup.h"

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
        command.add_flag("--all", m_withObsolete, "Count obsolete parts too");
        command.add_flag("--asc-only", m_ascOnly, "Count only parts that can use ASC chips");
        command.footer(
            "A speed grade is listed when at least one of its parts passes the filters.");
    }
    int run(Context& context) override {
        auto& mngr = context.mngr();
        const std::string pm = resolvePm(mngr, m_pm);
        tarn::vyxpn::StringList known;
        mngr.getDevices(pm, known, true, false);
        requireListed("device", m_device, known);
        known.clear();
        mngr.getPackages(pm, m_device, known, true, false);
        requireListed("package", m_package, known);
        tarn::vyxpn::StringList speeds;
        mngr.getSpeeds(pm, m_device, m_package, speeds, m_withObsolete, m_ascOnly);
        context.out.list(speeds);
        return 0;
    }

  private:
    std::string m_pm, m_device, m_package;
    bool m_withObsolete = false;
    bool m_ascOnly = false;
};

}  // namespace
}  // namespace devctrl_tool

DEVCTRL_REGISTER_COMMAND(devctrl_tool::SpeedsCommand)
