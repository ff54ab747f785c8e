#!/bin/sh
# SPDX-License-Identifier: MIT
# Regenerates the dialog screenshots of the README under Xvfb:
#   docs/screenshots/regenerate.sh BUILD_DIR
# where BUILD_DIR holds a build with DEVCTRL_BUILD_GUI on (the default when
# Qt 6 Widgets is installed). Needs xvfb-run (Debian: xvfb, xauth).
set -eu
here=$(cd "$(dirname "$0")" && pwd)
root=$(cd "$here/../.." && pwd)
build=$(cd "${1:?usage: $0 BUILD_DIR}" && pwd)
select="$build/widgets/devctrl-select/devctrl-select"
# A throw-away settings store: a screenshot must not change the user's
# default device, nor depend on it.
settings=$(mktemp -d)
trap 'rm -rf "$settings"' EXIT
export DEVCTRL_SETTINGS="$settings/settings.ini"
unset QT_QPA_PLATFORM
# One fixed size and font scale, so that the images change only with the
# dialog itself.
# --accept ends the program after the shot: exit 0 for a valid choice, 1 for
# one that is refused.
shoot() {
    out=$1
    expected=$2
    shift 2
    status=0
    xvfb-run -a -s "-screen 0 1280x800x24" "$select" --data "$root/data" \
        --screenshot "$here/$out" --accept "$@" >/dev/null 2>&1 || status=$?
    if [ "$status" -ne "$expected" ]; then
        echo "devctrl-select $*: exit $status, expected $expected" >&2
        exit 1
    fi
    echo "wrote docs/screenshots/$out"
}
shoot sample.png 0 --part ZR12-2Q48C --asc ASC20
shoot validation-failure.png 1 --part ZR12-2Q48C --asc ASC10 --asc ASC10 --asc ASC20
