// SPDX-License-Identifier: MIT
// Which installation the tool reads, and how much of it loaded: the first
// thing to ask when two machines give different answers.
#include <QJsonObject>

#include "command.h"
#include "devctrl/mngr/device_mngr.h"
#include "devctrl/sds/sds_file.h"
#include "devctrl/util/version.h"
#include "platform/base_settings.h"

namespace devctrl_tool {
namespace {

class InfoCommand : public Command {
  public:
    std::string name() const override { return "info"; }
    std::string summary() const override {
        return "Print the version, the data directory and settings file in use, and what loaded";
    }
    void configure(CLI::App& command) override {
        command.add_flag("--data-dir", m_dataDirOnly,
                         "Print only the data directory (for scripts: "
                         "\"$(devctrl info --data-dir)/zr5b00\")");
        command.footer(
            "The data directory is --data, else DEVCTRL_DATA_DIR, else the sample installation "
            "beside the library. Families counts the loaded families, PMs the installed "
            "part-model codes, parts the rows of the loaded part tables (obsolete ones "
            "included).");
    }
    int run(Context& context) override {
        const std::string dataDir = BaseSystem::getDataPath().absolutePath().toStdString();
        if (m_dataDirOnly) {
            context.out.value(dataDir);
            return 0;
        }
        auto& mngr = context.mngr();
        tarn::vyxpn::StringList pms;
        tarn::vyxpn::TarnDeviceMngr::baseGetAllPMs(pms);
        long long parts = 0;
        for (const auto& [pm, family] : mngr.getFamilyFiles())
            if (family)
                parts += static_cast<long long>(family->m_genericDevices.m_datas.size());
        const auto families = static_cast<long long>(mngr.getFamilyFiles().size());
        const std::string settings = BaseSettings::fileName().toStdString();
        if (context.out.json()) {
            QJsonObject info{{"version", tarn::vyxpn::libraryVersion()},
                             {"data_dir", qs(dataDir)},
                             {"settings_file", qs(settings)},
                             {"families", families},
                             {"pms", static_cast<qint64>(pms.size())},
                             {"parts", parts}};
            context.out.print(info, "");
            return 0;
        }
        context.out.pairs({{"version", tarn::vyxpn::libraryVersion()},
                           {"data directory", dataDir},
                           {"settings file", settings},
                           {"families loaded", std::to_string(families)},
                           {"PMs installed", std::to_string(pms.size())},
                           {"parts loaded", std::to_string(parts)}});
        return 0;
    }

  private:
    bool m_dataDirOnly = false;
};

}  // namespace
}  // namespace devctrl_tool

DEVCTRL_REGISTER_COMMAND(devctrl_tool::InfoCommand)
