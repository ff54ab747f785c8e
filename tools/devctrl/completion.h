// SPDX-License-Identifier: MIT
#pragma once
// Shell completion, answered by the tool itself: the shell scripts only pass
// the words typed so far to `devctrl __complete` and show what comes back,
// so commands, options and the installation's names are always current.

#include <string>
#include <vector>

namespace devctrl_tool {

struct ToolDescription;

// What may stand in place of the last of `words` (the words after
// "devctrl", the last one being typed, possibly empty): one candidate per
// entry, as "word" or "word\tdescription", only those that start with the
// typed text. A first entry "@files" or "@dirs" asks the shell to complete
// file or directory names instead. PMs, family names, devices, packages,
// speed grades and conditions come from the installation that --data, or
// the environment, names.
std::vector<std::string> completionsFor(const ToolDescription& tool,
                                        const std::vector<std::string>& words);

// The completion script for `shell` (bash, zsh or fish); empty for another.
std::string completionScript(const std::string& shell);

}  // namespace devctrl_tool
