#!/bin/sh
# SPDX-License-Identifier: MIT
# Fails when a lower layer includes a header of a layer above it. The library
# is built bottom-up: platform/, then devctrl/util, then the family layer
# (devctrl/sds), then the manager and device object (devctrl/mngr,
# devctrl/device). A lower layer that reaches up ties the layers into a knot
# that no longer builds or tests in parts.
#
# Usage: check_layers.sh [SOURCE_ROOT]   (default: the directory above this script)
root=${1:-$(dirname "$0")/..}
status=0

# check DIR PATTERN WHAT: every include line in DIR matching PATTERN is a violation.
check() {
    dir=$1 pattern=$2 what=$3
    [ -d "$root/$dir" ] || return 0
    found=$(grep -rnE "^[[:space:]]*#[[:space:]]*include[[:space:]]*[<\"]([^\">]*/)?($pattern)" \
        --include='*.h' --include='*.cpp' "$root/$dir")
    if [ -n "$found" ]; then
        echo "$dir must not include $what:"
        echo "$found" | sed "s#^$root/##"
        status=1
    fi
}

check platform 'devctrl/' 'anything from devctrl/'
check devctrl/util '(devctrl/)?(sds|mngr|device)/' 'the family layer, the manager or the device object'
check devctrl/sds '(devctrl/)?(mngr|device)/' 'the manager or the device object'

[ $status -eq 0 ] && echo "layers: every include points down"
exit $status
