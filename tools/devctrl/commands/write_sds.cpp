// SPDX-License-Identifier: MIT
#include <optional>

#include "command.h"
#include "devctrl/mngr/device_mngr.h"
#include "devctrl/mngr/known_names.h"
#include "devctrl/sds/sds_file.h"
#include "devctrl/util/quote.h"
#include "output_file.h"

namespace devctrl_tool {
namespace {

class WriteSdsCommand : public Command {
  public:
    std::string name() const override { return "write-sds"; }
    std::string summary() const override {
        return "Write a family's device-support description file";
    }
    void configure(CLI::App& command) override {
        command.add_option("PM", m_pm, "PM code or family name")->required();
        command.add_option("FILE", m_file, "File to (re)write; - for standard output")->required();
        command.footer(
            "The file lists the family's generated parts with their columns and its resource "
            "rows. A regular file is written completely or not at all; a FIFO or terminal is "
            "written into, never replaced. With --json: {\"pm\", \"family\", \"file\", "
            "\"written\"}, and for - the file's text as \"content\".");
    }
    bool tabular() const override { return false; }
    int run(Context& context) override {
        auto& mngr = context.mngr();
        const std::string pm = tarn::vyxpn::requireLoadedPm(mngr, m_pm);
        if (isStandardOutput(m_file)) {
            const tarn::vyxpn::TarnSDSFile* family = mngr.getFamilyFile(pm);
            if (!family)
                throw ToolError("PM " + tarn::vyxpn::util::escapedForMessage(pm) +
                                " is not loaded; nothing written to standard output");
            // With JSON the file's text travels inside the document.
            if (context.out.json())
                context.out.print(summary(pm, family->sdsText()), "");
            else
                writeOutputFile(m_file, family->sdsText());
            return 0;
        }
        const tarn::vyxpn::SdsWriteResult written = mngr.writeSupportFile(pm, m_file);
        if (!written)
            throw ToolError(written.reason);
        context.out.print(summary(pm, std::nullopt), "");
        return 0;
    }

  private:
    QJsonObject summary(const std::string& pm, const std::optional<std::string>& content) const {
        QJsonObject json{{"pm", qs(pm)},
                         {"family", qs(tarn::vyxpn::TarnDeviceMngr::basePmToFamily(pm))},
                         {"file", qs(m_file)},
                         {"written", true}};
        if (content)
            json.insert("content", qs(*content));
        return json;
    }

    std::string m_pm;
    std::string m_file;
};

}  // namespace
}  // namespace devctrl_tool

DEVCTRL_REGISTER_COMMAND(devctrl_tool::WriteSdsCommand)
