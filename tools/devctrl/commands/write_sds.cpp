#include <sys/stat.h>

#include "command.h"
#include "devctrl/mngr/device_mngr.h"
#include "devctrl/util/quote.h"
#include "name_lookup.h"

namespace devctrl_tool {
namespace {

// Identity of the file at a path, to tell whether it was replaced.
bool fileIdentity(const std::string& path, ino_t& inode) {
    struct stat status;
    if (stat(path.c_str(), &status) != 0)
        return false;
    inode = status.st_ino;
    return true;
}

class WriteSdsCommand : public Command {
  public:
    std::string name() const override { return "write-sds"; }
    std::string summary() const override {
        return "Write a family's device-support description file";
    }
    void configure(CLI::App& command) override {
        command.add_option("PM", m_pm, "PM code or family name")->required();
        command.add_option("FILE", m_file, "File to (re)write")->required();
        command.footer(
            "The file lists the family's generated parts with their columns and its resource "
            "rows. It is written completely or not at all.");
    }
    int run(Context& context) override {
        auto& mngr = context.mngr();
        const std::string pm = resolvePm(mngr, m_pm);
        ino_t before = 0;
        bool existed = fileIdentity(m_file, before);
        mngr.writeSDS(pm, m_file);
        // The library says nothing; a successful write always puts a new file
        // in place, so an unchanged (or still missing) file means failure.
        ino_t after = 0;
        if (!fileIdentity(m_file, after) || (existed && after == before))
            throw ToolError("could not write " + tarn::vyxpn::util::escapedForMessage(m_file));
        return 0;
    }

  private:
    std::string m_pm;
    std::string m_file;
};

}  // namespace
}  // namespace devctrl_tool

DEVCTRL_REGISTER_COMMAND(devctrl_tool::WriteSdsCommand)
