#include "command.h"
#include "devctrl/mngr/device_mngr.h"

namespace devctrl_tool {
namespace {

class PartNameCommand : public Command {
  public:
    std::string name() const override { return "part-name"; }
    std::string summary() const override {
        return "Full part name of a device, package, speed grade and condition";
    }
    void configure(CLI::App& command) override {
        command.add_option("PM", m_pm, "Part-model code of the family")->required();
        command.add_option("DEVICE", m_device, "Device name")->required();
        command.add_option("PACKAGE", m_package, "Package name")->required();
        command.add_option("SPEED", m_speed, "Speed grade")->required();
        command
            .add_option("CONDITION", m_condition,
                        "Condition as 'conditions' lists it (COM, IND, AUTO)")
            ->required();
        command.footer(
            "Fields are matched without regard to case. When several parts differ only in "
            "their suffix, the one whose name sorts first is printed.");
    }
    int run(Context& context) override {
        std::string part =
            context.mngr().getPartName(m_pm, m_device, m_package, m_speed, m_condition);
        if (part.empty())
            throw ToolError("no part of " + m_pm + " has device " + m_device + ", package " +
                            m_package + ", speed " + m_speed + " and condition " + m_condition);
        context.out.value(part);
        return 0;
    }

  private:
    std::string m_pm, m_device, m_package, m_speed, m_condition;
};

}  // namespace
}  // namespace devctrl_tool

DEVCTRL_REGISTER_COMMAND(devctrl_tool::PartNameCommand)
