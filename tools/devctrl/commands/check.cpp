// SPDX-License-Identifier: MIT
#include "command.h"
#include "devctrl/mngr/device_mngr.h"

namespace devctrl_tool {
namespace {

class CheckCommand : public Command {
  public:
    std::string name() const override { return "check"; }
    std::string summary() const override {
        return "Check a part name against the renamed and superseded names";
    }
    void configure(CLI::App& command) override {
        command.add_option("name", m_name, "Part name as the user gave it")->required();
        command.footer(
            "Results: valid (the name stands as it is), unknown, replaced (renamed or migrated: "
            "use the name shown), not recommended (valid, but the name shown is advised). "
            "An engineering-sample name ending in ES resolves to its production part. Exit "
            "status 1 for an unknown name, otherwise 0.");
    }
    int run(Context& context) override {
        std::string newName;
        using tarn::vyxpn::TarnDeviceMngr;
        const int result = context.mngr().checkDevice(m_name, newName);
        std::string verdict;
        std::string use;
        switch (result) {
            case TarnDeviceMngr::DeviceCheckValid:
                verdict = "valid";
                use = m_name;
                break;
            case TarnDeviceMngr::DeviceCheckUseNewName:
                verdict = "replaced";
                use = newName;
                break;
            case TarnDeviceMngr::DeviceCheckReplacementRecommended:
                verdict = "not recommended";
                use = newName;
                break;
            default:
                verdict = "unknown";
                break;
        }
        std::vector<Field> fields{{"name", qs(m_name)}, {"result", qs(verdict)}, {"code", result}};
        if (!use.empty())
            fields.push_back({"use", qs(use)});
        context.out.record(fields);
        return result == TarnDeviceMngr::DeviceCheckUnknown ? 1 : 0;
    }

  private:
    std::string m_name;
};

}  // namespace
}  // namespace devctrl_tool

DEVCTRL_REGISTER_COMMAND(devctrl_tool::CheckCommand)
