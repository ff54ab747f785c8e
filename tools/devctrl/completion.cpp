// SPDX-License-Identifier: MIT
#include "completion.h"

#include <algorithm>
#include <cstdlib>

#include "devctrl/mngr/device_mngr.h"
#include "devctrl/mngr/known_names.h"
#include "platform/ut_trace.h"
#include "tool_description.h"

namespace devctrl_tool {

namespace {

using tarn::vyxpn::StringList;
using tarn::vyxpn::TarnDeviceMngr;

bool takesValue(const CLI::Option& option) {
    return !option.get_positional() && !option.get_type_name().empty();
}

// The option of `app`, or of the top level, that `word` names ("--speed",
// "-q", "--speed=6").
const CLI::Option* optionNamed(const CLI::App& app, const CLI::App& root, const std::string& word) {
    const std::string name = word.substr(0, word.find('='));
    for (const CLI::App* scope : {&app, &root})
        for (const CLI::Option* option : scope->get_options())
            if (!option->get_positional() && option->check_name(name))
                return option;
    return nullptr;
}

std::vector<const CLI::Option*> positionalsOf(const CLI::App& app) {
    std::vector<const CLI::Option*> positionals;
    for (const CLI::Option* option : app.get_options())
        if (option->get_positional())
            positionals.push_back(option);
    return positionals;
}

std::vector<CLI::App*> visibleSubcommands(const CLI::App& app) {
    std::vector<CLI::App*> subcommands;
    for (CLI::App* sub : const_cast<CLI::App&>(app).get_subcommands({}))
        if (!sub->get_group().empty())
            subcommands.push_back(sub);
    return subcommands;
}

const CLI::App* subcommandNamed(const CLI::App& app, const std::string& name) {
    for (const CLI::App* sub : visibleSubcommands(app))
        if (sub->get_name() == name)
            return sub;
    return nullptr;
}

bool startsWith(const std::string& text, const std::string& prefix) {
    return text.compare(0, prefix.size(), prefix) == 0;
}

// The loaded manager, quietly: completion must never write on the terminal.
TarnDeviceMngr* quietManager() {
    setDiagTraceHandler([](const char*, const char*) {});
    try {
        return TarnDeviceMngr::getInstance(TarnDeviceMngr::BrokenFamilies::Skip);
    } catch (...) {
        return nullptr;
    }
}

// The names an argument called `kind` takes, given the arguments before it.
StringList namesFor(const std::string& kind, const std::vector<std::string>& before) {
    StringList names;
    if (kind == "PM" || kind == "FAMILY") {
        TarnDeviceMngr::baseGetAllPMs(names);
        StringList families;
        TarnDeviceMngr::baseGetAllFamilies(families);
        names.insert(names.end(), families.begin(), families.end());
        // A PM listed under two family names is offered once.
        StringList once;
        for (const std::string& name : names)
            if (std::find(once.begin(), once.end(), name) == once.end())
                once.push_back(name);
        return once;
    }
    const bool listed =
        kind == "DEVICE" || kind == "PACKAGE" || kind == "SPEED" || kind == "CONDITION";
    if (!listed || before.empty())
        return names;
    TarnDeviceMngr* mngr = quietManager();
    if (!mngr)
        return names;
    try {
        const std::string pm = tarn::vyxpn::requireLoadedPm(*mngr, before[0]);
        if (kind == "DEVICE")
            mngr->getDevices(pm, names, true, false);
        else if (kind == "PACKAGE" && before.size() >= 2)
            mngr->getPackages(pm, before[1], names, true, false);
        else if (kind == "SPEED" && before.size() >= 3)
            mngr->getSpeeds(pm, before[1], before[2], names, true, false);
        else if (kind == "CONDITION" && before.size() >= 4)
            mngr->getOperations(pm, before[1], before[2], before[3], names, true, false);
    } catch (...) {
        names.clear();  // a name typed wrong earlier: nothing to offer
    }
    return names;
}

std::string withDescription(const std::string& word, const std::string& description) {
    return description.empty() ? word : word + "\t" + description.substr(0, description.find('\n'));
}

}  // namespace

std::vector<std::string> completionsFor(const ToolDescription& tool,
                                        const std::vector<std::string>& words) {
    const CLI::App& root = tool.app;
    const CLI::App* current = &root;
    std::vector<std::string> positionals;
    const CLI::Option* awaitingValue = nullptr;
    const std::string typed = words.empty() ? "" : words.back();
    for (std::size_t i = 0; i + 1 < words.size(); ++i) {
        const std::string& word = words[i];
        if (awaitingValue) {
            if (awaitingValue->check_name("--data"))
                setenv("DEVCTRL_DATA_DIR", word.c_str(), 1);
            awaitingValue = nullptr;
        } else if (startsWith(word, "-")) {
            const CLI::Option* option = optionNamed(*current, root, word);
            if (option && takesValue(*option) && word.find('=') == std::string::npos)
                awaitingValue = option;
            else if (option && option->check_name("--data"))
                setenv("DEVCTRL_DATA_DIR", word.substr(word.find('=') + 1).c_str(), 1);
        } else if (positionals.empty() && subcommandNamed(*current, word)) {
            current = subcommandNamed(*current, word);
        } else {
            positionals.push_back(word);
        }
    }

    std::vector<std::string> found;
    if (awaitingValue) {
        if (awaitingValue->check_name("--data"))
            found.push_back("@dirs");
        else if (awaitingValue->get_type_name() == "FILE")
            found.push_back("@files");
        return found;
    }
    if (startsWith(typed, "-")) {
        for (const CLI::App* scope : {current, &root}) {
            for (const CLI::Option* option : scope->get_options()) {
                if (option->get_positional())
                    continue;
                for (const std::string& name : option->get_lnames())
                    if (startsWith("--" + name, typed))
                        found.push_back(withDescription("--" + name, option->get_description()));
            }
            if (scope == &root)
                break;
        }
        return found;
    }
    const auto subcommands = visibleSubcommands(*current);
    if (!subcommands.empty() && positionals.empty()) {
        for (const CLI::App* sub : subcommands)
            if (startsWith(sub->get_name(), typed))
                found.push_back(withDescription(sub->get_name(), sub->get_description()));
        return found;
    }
    const auto argumentSlots = positionalsOf(*current);
    if (argumentSlots.empty())
        return found;
    // A positional that takes several values takes the rest.
    const CLI::Option* slot = argumentSlots[std::min(positionals.size(), argumentSlots.size() - 1)];
    if (positionals.size() >= argumentSlots.size() && slot->get_items_expected_max() <= 1)
        return found;
    const std::string kind = slot->get_name();
    if (kind == "FILE" || kind == "BINARY" || kind == "DIR") {
        found.push_back(kind == "DIR" ? "@dirs" : "@files");
        return found;
    }
    for (const std::string& name : namesFor(kind, positionals))
        if (startsWith(name, typed))
            found.push_back(name);
    return found;
}

std::string completionScript(const std::string& shell) {
    if (shell == "bash")
        return R"(# bash completion for devctrl
_devctrl() {
    local IFS=$'\n'
    local -a found
    found=($("${COMP_WORDS[0]}" __complete "${COMP_WORDS[@]:1:COMP_CWORD}" 2>/dev/null))
    case "${found[0]-}" in
    @files) compopt -o default; COMPREPLY=(); return ;;
    @dirs) compopt -o dirnames; COMPREPLY=(); return ;;
    esac
    COMPREPLY=("${found[@]%%$'\t'*}")
}
complete -F _devctrl devctrl
)";
    if (shell == "zsh")
        return R"(#compdef devctrl
# zsh completion for devctrl
_devctrl() {
    local -a found described
    local line
    found=("${(@f)$(${words[1]} __complete "${(@)words[2,CURRENT]}" 2>/dev/null)}")
    case $found[1] in
    @files) _files; return ;;
    @dirs) _files -/; return ;;
    esac
    for line in $found; do
        [[ -z $line ]] && continue
        if [[ $line == *$'\t'* ]]; then
            described+=("${${line%%$'\t'*}//:/\\:}:${line#*$'\t'}")
        else
            described+=("${line//:/\\:}")
        fi
    done
    _describe -t values devctrl described
}
if [[ $zsh_eval_context[-1] == loadautofunc ]]; then
    _devctrl "$@"
else
    compdef _devctrl devctrl
fi
)";
    if (shell == "fish")
        return R"(# fish completion for devctrl
function __devctrl_complete
    set -l words (commandline -opc)
    set -l typed (commandline -ct)
    set -l found ($words[1] __complete $words[2..-1] "$typed" 2>/dev/null)
    switch "$found[1]"
        case @files
            __fish_complete_path "$typed"
        case @dirs
            __fish_complete_directories "$typed"
        case '*'
            printf '%s\n' $found
    end
end
complete -c devctrl -f -a '(__devctrl_complete)'
)";
    return "";
}

}  // namespace devctrl_tool
