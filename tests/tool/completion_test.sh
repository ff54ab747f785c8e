#!/bin/bash
# SPDX-License-Identifier: MIT
# The generated completion scripts in the shells themselves: bash through its
# completion variables, fish through `complete -C`, zsh by parsing the script.
# Usage: completion_test.sh TOOL_DOCS_DIR TOOL DATA_DIR
set -u
docs=$1 tool=$2 data=$3
PATH=$(dirname "$tool"):$PATH
export DEVCTRL_DATA_DIR=$data
failures=0
expect() {  # NAME EXPECTED ACTUAL
    if [[ "$2" != "$3" ]]; then
        printf 'FAIL %s\n  expected: %q\n  actual:   %q\n' "$1" "$2" "$3"
        failures=$((failures + 1))
    fi
}

# bash: the words as the shell splits them, the last one being typed.
source "$docs/bash/devctrl"
bash_complete() {
    COMP_WORDS=("$@")
    COMP_CWORD=$(($# - 1))
    COMPREPLY=()
    _devctrl
    if ((${#COMPREPLY[@]})); then printf '%s ' "${COMPREPLY[@]}"; fi
}
expect "bash: commands" "part part-name parts " "$(bash_complete devctrl par)"
expect "bash: options of a command" "--speed " "$(bash_complete devctrl parts zr1 --sp)"
expect "bash: global options after the command" "--data " "$(bash_complete devctrl pms --da)"
expect "bash: PMs and family names" "zr1a00 ZR1 " "$(bash_complete devctrl devices '' | tr ' ' '\n' | grep -E '^(zr1a00|ZR1)$' | tr '\n' ' ')"
expect "bash: devices of a family named in any case" "ZR12 ZR17 ZR100 ZR120 ZR150 " "$(bash_complete devctrl packages Zr1 ZR1)"
expect "bash: packages of a device" "QF48 BG100 CS121 BG256 FT256 " "$(bash_complete devctrl speeds zr1 ZR12 '')"
expect "bash: nested commands" "chips " "$(bash_complete devctrl asc ch)"
expect "bash: a wrong family offers nothing" "" "$(bash_complete devctrl packages nofamily '')"
elsewhere=$(mktemp -d)
trap 'rm -rf "$elsewhere"' EXIT
expect "bash: --data on the line is the installation asked" "" "$(bash_complete devctrl --data "$elsewhere" devices '')"

# fish, when installed: the same questions through its own completion engine.
if command -v fish >/dev/null; then
    fish_complete() {
        fish --no-config -c "source '$docs/fish/devctrl.fish'; complete -C '$1'" | cut -f1 | tr '\n' ' '
    }
    expect "fish: commands" "part part-name parts " "$(fish_complete 'devctrl par' | tr ' ' '\n' | sort | tr '\n' ' ')"
    expect "fish: packages of a device" "BG100 BG256 CS121 FT256 QF48 " "$(fish_complete 'devctrl speeds zr1 ZR12 ' | tr ' ' '\n' | sort | tr '\n' ' ')"
else
    echo "fish is not installed: its completion is not checked"
fi

# zsh, when installed: the script parses.
if command -v zsh >/dev/null; then
    zsh -n "$docs/zsh/_devctrl" || { echo "FAIL zsh: the script does not parse"; failures=$((failures + 1)); }
fi

exit $((failures > 0))
