#!/bin/bash
# SPDX-License-Identifier: MIT
# The generated manual page renders without warnings and documents every
# command the tool accepts, its exit statuses and environment.
# Usage: man_page_test.sh MAN_PAGE TOOL
set -u
page=$1 tool=$2
warnings=$(man --warnings -l "$page" 2>&1 >/dev/null)
if [[ -n "$warnings" ]]; then
    echo "FAIL: rendering warns: $warnings"
    exit 1
fi
text=$(MANWIDTH=200 man -l "$page" 2>/dev/null)
failures=0
for heading in NAME SYNOPSIS OPTIONS COMMANDS "EXIT STATUS" ENVIRONMENT FILES EXAMPLES; do
    grep -q "^$heading" <<<"$text" || { echo "FAIL: no $heading section"; failures=$((failures + 1)); }
done
for command in $("$tool" __complete '' | cut -f1); do
    grep -qE "^ +devctrl $command( |$)" <<<"$text" || { echo "FAIL: command $command is not documented"; failures=$((failures + 1)); }
done
for variable in DEVCTRL_DATA_DIR DEVCTRL_SETTINGS; do
    grep -q "$variable" <<<"$text" || { echo "FAIL: $variable is not documented"; failures=$((failures + 1)); }
done
exit $((failures > 0))
