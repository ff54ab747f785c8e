// SPDX-License-Identifier: MIT
#pragma once
// One `devctrl` command is one self-contained unit: a class derived from
// Command in its own file under commands/, registered with
// DEVCTRL_REGISTER_COMMAND. Nothing else needs to change to add one.

#include <CLI/CLI.hpp>
#include <functional>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "output.h"

namespace tarn::vyxpn {
class TarnDeviceMngr;
}

namespace devctrl_tool {

// Thrown by a command for a failure the user should read: printed as one
// line on standard error, exit status `status`.
class ToolError : public std::runtime_error {
  public:
    explicit ToolError(const std::string& message, int status = 1)
        : std::runtime_error(message), m_status(status) {}
    int status() const { return m_status; }

  private:
    int m_status;
};

struct Context {
    Output& out;
    // The loaded manager; created on first call, after requireData(). A
    // family whose data are broken is named on standard error and left out;
    // the others answer.
    tarn::vyxpn::TarnDeviceMngr& mngr();
    // The manager with only the families a question about these parts
    // needs, found through the part-owner cache; with a cache that cannot
    // tell, every family, and the cache is written anew. The answers are a
    // full load's; a broken family the question does not involve is not
    // named. With DEVCTRL_FULL_LOAD=1, and once a manager exists (a shell
    // session), this is mngr().
    tarn::vyxpn::TarnDeviceMngr& mngrForParts(const std::vector<std::string>& parts);
    // The same for a question about one PM or family; `ascOnly` when parts
    // are counted by ASC capacity, which other families may decide.
    tarn::vyxpn::TarnDeviceMngr& mngrForPm(const std::string& pmOrFamily, bool ascOnly);
    // The manager with exactly these families loaded (none for a question
    // about the installation's own lists); mngr() in the cases above.
    tarn::vyxpn::TarnDeviceMngr& mngrOf(const std::vector<std::string>& pms);
    // Throws ToolError (status 3) unless the data directory is a directory
    // that can be read. Every command that reads the installation calls it,
    // mngr() included.
    void requireData();
    // What the command is working on ("part ZR4-6BG100C", "family ZR1 (PM
    // zr1a00)"), named when bad installed data stop it. Set from the
    // command's arguments; a command that walks several families or parts
    // may update it as it goes.
    std::string subject;
    // -v: also show what the installation switches off on purpose.
    bool verbose = false;

  private:
    // Runs `load` (which creates the manager) with the progress line, the
    // traces and the naming of broken families every load has.
    void loadWith(const std::function<void()>& load);
    // Loads `pms` alone, or without them every family, then writing the
    // part-owner cache when `cacheStamp` is not empty.
    tarn::vyxpn::TarnDeviceMngr& loadFor(const std::optional<std::vector<std::string>>& pms,
                                         const std::string& cacheStamp);
};

// The --all and --asc-only flags of the commands that list parts or their
// fields: a value counts when at least one of its parts passes both.
struct PartFilters {
    bool withObsolete = false;
    bool ascOnly = false;
    void addTo(CLI::App& command) {
        command.add_flag("--all", withObsolete, "Count obsolete parts too");
        command.add_flag("--asc-only", ascOnly, "Count only parts that can use ASC chips");
    }
};

class Command {
  public:
    virtual ~Command() = default;
    virtual std::string name() const = 0;
    // One line for the command list.
    virtual std::string summary() const = 0;
    // Declares the command's arguments and options on its subcommand; the
    // subcommand's description and footer are its help text.
    virtual void configure(CLI::App& command) = 0;
    // Runs after parsing; returns the exit status.
    virtual int run(Context& context) = 0;
    // Whether the answer is names, rows or fields that --format table and
    // csv can lay out; a command that prints a document (a dump, a file)
    // answers only as lines (its own text) or JSON.
    virtual bool tabular() const { return true; }
    // The JSON Schema its --json answer follows (docs/schemas/NAME.json,
    // also printed by `devctrl schema NAME`); empty for none.
    virtual std::string schema() const { return name(); }
};

// Every command, registered once per type. A command object holds the values
// its options were parsed into, so each command line gets fresh objects: a
// `devctrl shell` session runs many lines, and one line's --speed must not
// leak into the next.
class CommandRegistry {
  public:
    using Factory = std::unique_ptr<Command> (*)();
    static bool add(Factory factory);
    // A fresh object of every command, in name order.
    static std::vector<std::unique_ptr<Command>> createAll();
};

}  // namespace devctrl_tool

#define DEVCTRL_CONCAT_INNER(a, b) a##b
#define DEVCTRL_CONCAT(a, b) DEVCTRL_CONCAT_INNER(a, b)
#define DEVCTRL_REGISTER_COMMAND(Type)                                                          \
    namespace {                                                                                 \
    const bool DEVCTRL_CONCAT(registered_, __LINE__) = ::devctrl_tool::CommandRegistry::add(    \
        []() -> std::unique_ptr<::devctrl_tool::Command> { return std::make_unique<Type>(); }); \
    }
