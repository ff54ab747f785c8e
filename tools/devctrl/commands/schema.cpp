// SPDX-License-Identifier: MIT
#include <iostream>

#include "command.h"
#include "devctrl/mngr/near_names.h"
#include "embedded_schemas.h"

namespace devctrl_tool {
namespace {

class SchemaCommand : public Command {
  public:
    std::string name() const override { return "schema"; }
    std::string summary() const override {
        return "Print the JSON Schema of a command's --json answer";
    }
    void configure(CLI::App& command) override {
        command.add_option("COMMAND", m_command,
                           "Command name, or 'error' for the error document (default: list the "
                           "names)");
        command.footer(
            "The schemas are the files under docs/schemas of the source tree, built into the "
            "tool. Every key is snake_case, numbers are numbers and yes/no answers are "
            "booleans. With --json (or --format json), a failure is {\"error\": {\"message\", "
            "\"exit_status\"}} on standard error.");
    }
    // The schema is a JSON document whatever the format.
    bool tabular() const override { return false; }
    std::string schema() const override { return ""; }
    int run(Context& context) override {
        if (m_command.empty()) {
            std::vector<std::string> names;
            for (const EmbeddedSchema& entry : embeddedSchemas())
                names.push_back(entry.name);
            context.out.list(names, "schema");
            return 0;
        }
        tarn::vyxpn::NearNames near(m_command);
        for (const EmbeddedSchema& entry : embeddedSchemas()) {
            if (m_command == entry.name) {
                std::cout << entry.text;
                return 0;
            }
            near.consider(entry.name);
        }
        throw ToolError(tarn::vyxpn::unknownNameMessage("schema", m_command, near.best()) +
                        " (see 'devctrl schema')");
    }

  private:
    std::string m_command;
};

}  // namespace
}  // namespace devctrl_tool

DEVCTRL_REGISTER_COMMAND(devctrl_tool::SchemaCommand)
