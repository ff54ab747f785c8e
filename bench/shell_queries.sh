#!/bin/bash
# SPDX-License-Identifier: MIT
# Writes COUNT lines for `devctrl shell`: part, exists and `item NAME Status`
# in turn, over parts drawn at random, with repeats (the same for the same SEED), from
# every family of the installation DATA. One load lists every part.
# Usage: shell_queries.sh DATA [COUNT] [SEED] > queries.txt
set -euo pipefail
data=$1 count=${2:-10000} seed=${3:-1}
devctrl=${DEVCTRL:-devctrl}
"$devctrl" -q --data "$data" families | sed 's/^/parts /' |
    "$devctrl" -q --data "$data" shell |
    shuf -r -n "$count" --random-source=<(yes "$seed") |
    awk '{ q = NR % 3; print (q == 1 ? "part " $0 : q == 2 ? "exists " $0 : "item " $0 " Status") }'
