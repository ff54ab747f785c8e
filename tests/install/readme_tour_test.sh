#!/bin/bash
# SPDX-License-Identifier: MIT
# Installs the build into a scratch prefix and runs the README's tour, line by
# line and as written, with the installed tool first on PATH, in an empty
# working directory: what a new user types after `cmake --install`.
# A line may answer no (exit status 1); a wrong command line (2) or data the
# tool could not read (3) fails the test, as does a line that no longer says
# what the README claims for it.
# Usage: readme_tour_test.sh SOURCE_DIR BINARY_DIR WORK_DIR
set -u
source_dir=$1 binary_dir=$2 work=$3
rm -rf "$work"
mkdir -p "$work/run"
cmake --install "$binary_dir" --prefix "$work/prefix" >/dev/null || { echo "FAIL: install"; exit 1; }
export PATH="$work/prefix/bin:$PATH"
export DEVCTRL_SETTINGS="$work/settings.ini"
unset DEVCTRL_DATA_DIR TARN_SHOW_ALL_DEVICES

tour=$(awk '/^## A short tour of the tool/ { on = 1 } on && /^```sh/ { code = 1; next }
            code && /^```/ { exit } code' "$source_dir/README.md")
[[ -n "$tour" ]] || { echo "FAIL: no tour in README.md"; exit 1; }

failures=0
fail() {
    echo "FAIL: $*"
    failures=$((failures + 1))
}

lines=0
cd "$work/run" || exit 1
while IFS= read -r line; do
    [[ -z "${line// /}" || "$line" =~ ^[[:space:]]*# ]] && continue
    lines=$((lines + 1))
    out=$(bash -c "$line" 2>&1 </dev/null)
    status=$?
    if ((status > 1)); then
        fail "exit status $status: $line"$'\n'"$out"
        continue
    fi
    # The comment's own quoted claims: `# ... "word" ...` must appear.
    comment=${line#*  #}
    [[ "$comment" == "$line" ]] && continue
    while [[ "$comment" =~ \"([^\"]+)\" ]]; do
        claim=${BASH_REMATCH[1]}
        grep -qiF -- "$claim" <<<"$out" || fail "\"$claim\" not printed by: $line"$'\n'"$out"
        comment=${comment#*\"$claim\"}
    done
done <<<"$tour"

((lines >= 30)) || fail "only $lines tour lines found"

# What the install adds for the shells and for man.
share="$work/prefix/share"
for file in man/man1/devctrl.1 bash-completion/completions/devctrl zsh/site-functions/_devctrl \
    fish/vendor_completions.d/devctrl.fish; do
    [[ -s "$share/$file" ]] || fail "not installed: share/$file"
done
exit $((failures > 0))
