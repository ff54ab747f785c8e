// SPDX-License-Identifier: MIT
#include "command.h"
#include "devctrl/mngr/device_mngr.h"
#include "devctrl/mngr/name_translation.h"

namespace devctrl_tool {
namespace {

class TranslateCommand : public Command {
  public:
    std::string name() const override { return "translate"; }
    std::string summary() const override {
        return "Translate an old device name through the device name list";
    }
    void configure(CLI::App& command) override {
        command.add_option("NAME", m_name, "Device name to translate")->required();
        command.add_flag("--renames-only", m_renamesOnly,
                         "Report renames only, not migrations or not-recommended devices");
        command.footer(
            "Prints the result code (0 none, 1 renamed, 2 migrated, 3 not recommended), "
            "its meaning and the new name, read from pqrndev.lst in the data directory.");
    }
    bool tabular() const override { return false; }
    int run(Context& context) override {
        // Handing the old name in as the new one asks for renames only.
        std::string newName = m_renamesOnly ? m_name : "";
        // The renamed-device list alone answers: no family is needed.
        int code = context.mngrOf({}).getNewFormatDeviceName(m_name, newName);
        if (code == 0)
            newName.clear();
        QJsonObject json{{"code", code},
                         {"meaning", tarn::vyxpn::nameTranslationMeaning(code)},
                         {"new_name", qs(newName)}};
        std::string text = std::to_string(code) + " " + tarn::vyxpn::nameTranslationMeaning(code);
        if (!newName.empty())
            text += " " + newName;
        context.out.print(json, text + "\n");
        return 0;
    }

  private:
    std::string m_name;
    bool m_renamesOnly = false;
};

}  // namespace
}  // namespace devctrl_tool

DEVCTRL_REGISTER_COMMAND(devctrl_tool::TranslateCommand)
