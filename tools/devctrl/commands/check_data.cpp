// SPDX-License-Identifier: MIT
#include <cstdlib>

#include "command.h"
#include "devctrl/mngr/data_check.h"

namespace devctrl_tool {
namespace {

class CheckDataCommand : public Command {
  public:
    std::string name() const override { return "check-data"; }
    std::string summary() const override {
        return "Check an installation: every problem of every family, as FILE:LINE: message";
    }
    void configure(CLI::App& command) override {
        command.add_option("DIR", m_dir,
                           "Data directory to check (default: the one --data "
                           "or DEVCTRL_DATA_DIR names, or the sample)");
        command.footer(
            "Reads every family the way start-up does and prints each problem on one line: "
            "malformed lines, damaged part data files, families that cannot load and why, "
            "parts named with '?', family names used twice, and every value that would stop "
            "start-up (a negative PKGIndex, a listed part without condition). A family "
            "switched off on purpose (PM_ENABLE false) is not a problem. Exit status 0 "
            "when there is none, 1 when there is any, 3 when the directory cannot be read. "
            "With --json: {\"problems\": [{\"file\", \"line\", \"message\", \"pm\"}, ...]}.");
    }
    int run(Context& context) override {
        if (!m_dir.empty())
            setenv("DEVCTRL_DATA_DIR", m_dir.c_str(), 1);
        context.requireData();
        const std::vector<tarn::vyxpn::DataProblem> problems = tarn::vyxpn::checkInstallation();
        QJsonArray json;
        std::string text;
        std::vector<std::vector<std::string>> rows;
        for (const auto& problem : problems) {
            rows.push_back(
                {problem.file, std::to_string(problem.line), problem.message, problem.pm});
            json.append(QJsonObject{{"file", qs(problem.file)},
                                    {"line", static_cast<qint64>(problem.line)},
                                    {"message", qs(problem.message)},
                                    {"pm", qs(problem.pm)}});
            text += tarn::vyxpn::formatProblem(problem) + "\n";
        }
        context.out.rows({"file", "line", "message", "pm"}, rows, QJsonObject{{"problems", json}},
                         text);
        return problems.empty() ? 0 : 1;
    }

  private:
    std::string m_dir;
};

}  // namespace
}  // namespace devctrl_tool

DEVCTRL_REGISTER_COMMAND(devctrl_tool::CheckDataCommand)
