// SPDX-License-Identifier: MIT
#include "devctrl/mngr/data_check.h"

#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <optional>
#include <set>
#include <tuple>

#include "devctrl/mngr/device_mngr.h"
#include "devctrl/sds/sds_file.h"
#include "devctrl/util/string_utils.h"
#include "platform/base_settings.h"
#include "platform/keyed_record_lines.h"
#include "platform/pm_database.h"
#include "platform/pm_devkey.h"
#include "platform/ut_trace.h"

namespace fs = std::filesystem;

namespace tarn::vyxpn {

std::string formatProblem(const DataProblem& problem) {
    return problem.file + (problem.line ? ":" + std::to_string(problem.line) : std::string()) +
           ": " + problem.message;
}

namespace {

bool startsWith(const std::string& text, const char* prefix) {
    return text.compare(0, std::strlen(prefix), prefix) == 0;
}

// Takes every trace while it lives, whatever the per-file limit says, and
// turns each into a problem of the family being read.
class TraceCollector {
  public:
    TraceCollector(std::vector<DataProblem>& problems, std::string dataDir)
        : m_problems(problems), m_dataDir(std::move(dataDir)) {
        m_previousHandler = setDiagTraceHandler(
            [this](const char* message, const char* extra) { take(message, extra); });
        m_previousLimit = setTracesPerFile(0);
    }
    ~TraceCollector() {
        setDiagTraceHandler(std::move(m_previousHandler));
        setTracesPerFile(m_previousLimit);
    }
    TraceCollector(const TraceCollector&) = delete;
    TraceCollector& operator=(const TraceCollector&) = delete;

    std::string pm;
    // Set when the library said that the family's part data file failed.
    bool partDataFailed = false;

  private:
    void take(const char* message, const char* extra) {
        std::string text = message ? message : "";
        if (extra)
            text += std::string(" ") + extra;
        // The library's one-line load failures carry no reason; the check
        // reports the reason itself.
        if (startsWith(text, "Failed to load device.acd of ") ||
            startsWith(text, "TarnDeviceMngr failed to load "))
            return;
        if (startsWith(text, "Failed to load pdb file of ")) {
            partDataFailed = true;
            return;
        }
        m_problems.push_back(located(text));
    }

    // "FILE:LINE: message" and "FILE: message" name their file; anything
    // else is about the installation.
    DataProblem located(const std::string& text) const {
        const std::size_t colon = text.find(": ");
        if (colon != std::string::npos) {
            std::string file = text.substr(0, colon);
            std::size_t line = 0;
            const std::size_t lastColon = file.rfind(':');
            if (lastColon != std::string::npos && lastColon + 1 < file.size() &&
                file.find_first_not_of("0123456789", lastColon + 1) == std::string::npos) {
                line = std::stoul(file.substr(lastColon + 1));
                file.resize(lastColon);
            }
            std::error_code ignored;
            if (!file.empty() && (file[0] == '/' || fs::exists(file, ignored)))
                return {file, line, text.substr(colon + 2), pm};
        }
        return {m_dataDir, 0, text, pm};
    }

    std::vector<DataProblem>& m_problems;
    std::string m_dataDir;
    DiagTraceHandler m_previousHandler;
    std::size_t m_previousLimit = 0;
};

DataProblem problemOf(const DataError& error, const KeyedRecordLines& lines) {
    const std::vector<std::string> fields = util::split(error.row(), ", ");
    std::size_t line = 0;
    if (!error.key().empty())
        line = error.row().empty() ? lines.keyLine(error.key())
                                   : lines.recordLine(error.key(), fields);
    return {error.file(), line, error.detail(), error.pm()};
}

// Why a family that is not switched off on purpose did not load.
DataProblem whyNotLoaded(const TarnSDSFile& family) {
    const std::string path = family.deviceTablePath();
    std::error_code ignored;
    if (!fs::is_regular_file(path, ignored))
        return {path, 0, "missing or not a regular file: the family cannot load", family.m_pm};
    if (::access(path.c_str(), R_OK) != 0)
        return {path, 0, std::string("cannot be read: ") + std::strerror(errno), family.m_pm};
    const PM_DEVKEY keys(path.c_str(), 0);
    PM_DEVKEY_KEYITER enabled(&keys, "PM_ENABLE", ':', 0, 0);
    if (!enabled.record())
        return {path, 0, "no PM_ENABLE: the family is switched off", family.m_pm};
    return {path, 0, "no PKG_ALIAS record: the family cannot load", family.m_pm};
}

// Every negative PKGIndex that making a part name of a device and package
// would meet.
void checkPackageIndexes(const TarnSDSFile& family, const KeyedRecordLines& lines,
                         std::vector<DataProblem>& problems) {
    StringList devices, packages;
    TarnDeviceMngr::baseGetDevices(family.m_pm, devices);
    for (const std::string& device : devices) {
        TarnDeviceMngr::baseGetPackages(family.m_pm, device, packages);
        for (const std::string& package : packages) {
            if (!family.m_pkgAlias.count(package))
                continue;
            const ItemSource source = family.locateDevPkgItem("PKGIndex", device, package);
            if (!source.cell || source.cell->empty())
                continue;
            const int index = util::parseString<int>(*source.cell);
            if (index < 0)
                problems.push_back(problemOf(
                    family.itemError(source.origin, device, package,
                                     "PKGIndex " + std::to_string(index) + " is negative"),
                    lines));
        }
    }
}

// Every listed part without a condition, up to the record that ends the
// listing (as building reads them).
void checkListedConditions(const TarnSDSFile& family, const KeyedRecordLines& lines,
                           std::vector<DataProblem>& problems) {
    if (util::toLower(family.m_partGenerateMethod) != "opn")
        return;
    for (const auto& [part, row] : family.m_partSection.m_datas) {
        if (row.size() < 6)
            break;
        if (row[3].empty())
            problems.push_back(
                problemOf(family.dataError("PART_DATAS", part, "no condition"), lines));
    }
}

void checkFamily(const PM_RECORD& record, TraceCollector& traces,
                 std::vector<DataProblem>& problems) {
    traces.pm = record.pm;
    traces.partDataFailed = false;
    TarnSDSFile family(record.pm, nullptr);
    bool loaded = false;
    std::optional<DataError> raised;
    try {
        loaded = family.init();
    } catch (const DataError& error) {
        raised = error;
    } catch (const std::out_of_range& error) {
        raised = DataError(record.pm, family.deviceTablePath(), "", "", error.what());
    }
    if (traces.partDataFailed)
        problems.push_back({record.directory + "/" + record.pm + ".pwd", 0,
                            "part data file could not be loaded", record.pm});
    if (!loaded && !raised) {
        if (!family.switchedOff())
            problems.push_back(whyNotLoaded(family));
        return;
    }

    // Building changes the listed part rows it reads: the rules look at the
    // tables as read.
    family.loadDeviceAcd();
    const KeyedRecordLines lines(family.deviceTablePath());
    const std::size_t before = problems.size();
    checkPackageIndexes(family, lines, problems);
    checkListedConditions(family, lines, problems);
    if (raised) {
        const DataProblem first = problemOf(*raised, lines);
        bool known = false;
        for (std::size_t i = before; i < problems.size(); ++i)
            known = known || (problems[i].file == first.file && problems[i].line == first.line &&
                              problems[i].message == first.message);
        if (!known)
            problems.push_back(first);
    }
}

}  // namespace

std::vector<DataProblem> checkInstallation() {
    std::vector<DataProblem> problems;
    const std::string dataDir = BaseSystem::getDataPath().absolutePath().toStdString();
    {
        TraceCollector traces(problems, dataDir);
        delete PM_DATABASE::_database;
        PM_DATABASE::_database = nullptr;
        const PM_DATABASE* database = PM_DATABASE::buildMe();
        for (const PM_RECORD& record : database->pms())
            checkFamily(record, traces, problems);
    }
    // Reading a file twice (to load, then to check) says the same twice.
    std::set<std::tuple<std::string, std::size_t, std::string>> seen;
    std::vector<DataProblem> distinct;
    for (DataProblem& problem : problems)
        if (seen.emplace(problem.file, problem.line, problem.message).second)
            distinct.push_back(std::move(problem));
    return distinct;
}

}  // namespace tarn::vyxpn
