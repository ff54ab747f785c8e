#!/bin/bash
# SPDX-License-Identifier: MIT
# Runs the fuzz targets, each for SECONDS, one after the other:
#   fuzz/run.sh SECONDS [TARGET...]
# Without TARGETs every fuzz_* executable of the build runs. Each target
# starts from a copy of its committed seeds (fuzz/corpus/<target>/); what the
# fuzzer adds, its log and any crash input stay in the work directory.
#
# Environment: FUZZ_BUILD_DIR (default build-fuzz/fuzz), FUZZ_WORK_DIR
# (default a new directory under /tmp, kept for inspection), FUZZ_MAX_LEN
# (default 16384: room for lines longer than every buffer the formats name),
# TMPDIR (scratch files of the targets; default /dev/shm when writable).
# Exit status 0 when every target ran its time without a finding.
set -uo pipefail

if [[ $# -lt 1 || ! $1 =~ ^[0-9]+$ ]]; then
    echo "usage: $0 SECONDS [TARGET...]" >&2
    exit 2
fi
seconds=$1
shift

here=$(cd "$(dirname "$0")" && pwd)
build=${FUZZ_BUILD_DIR:-$here/../build-fuzz/fuzz}
work=${FUZZ_WORK_DIR:-$(mktemp -d /tmp/devctrl-fuzz-run-XXXXXX)}
max_len=${FUZZ_MAX_LEN:-16384}
mkdir -p "$work"

targets=("$@")
if [[ ${#targets[@]} -eq 0 ]]; then
    for exe in "$build"/fuzz_*; do
        [[ -x $exe && -f $exe ]] && targets+=("$(basename "$exe")")
    done
fi
if [[ ${#targets[@]} -eq 0 ]]; then
    echo "no fuzz targets in $build (configure with -DDEVCTRL_FUZZ=ON and build)" >&2
    exit 2
fi

# The targets write their files under TMPDIR; a memory file system keeps the
# writers' syncs from setting the pace.
if [[ -z ${TMPDIR:-} && -d /dev/shm && -w /dev/shm ]]; then
    export TMPDIR=/dev/shm
fi
export ASAN_OPTIONS=${ASAN_OPTIONS:-detect_leaks=1:abort_on_error=1:allocator_may_return_null=1}
export UBSAN_OPTIONS=${UBSAN_OPTIONS:-print_stacktrace=1:halt_on_error=1}

failed=0
printf '%-24s %8s %12s %10s  %s\n' target seconds executions corpus result
for target in "${targets[@]}"; do
    exe=$build/$target
    dir=$work/$target
    mkdir -p "$dir/corpus" "$dir/artifacts"
    if [[ -d $here/corpus/$target ]]; then
        cp -n "$here/corpus/$target"/* "$dir/corpus/" 2>/dev/null
    fi
    "$exe" "$dir/corpus" -max_total_time="$seconds" -rss_limit_mb=2048 -timeout=10 \
        -max_len="$max_len" -print_final_stats=1 -artifact_prefix="$dir/artifacts/" \
        >"$dir/log" 2>&1
    status=$?
    runs=$(sed -n 's/^stat::number_of_executed_units: *//p' "$dir/log" | tail -1)
    corpus=$(find "$dir/corpus" -type f | wc -l)
    findings=$(find "$dir/artifacts" -type f | wc -l)
    if [[ $status -eq 0 && $findings -eq 0 ]]; then
        result=ok
    else
        result="FAILED (status $status, $findings finding(s) in $dir/artifacts; log $dir/log)"
        failed=1
    fi
    printf '%-24s %8s %12s %10s  %s\n' "$target" "$seconds" "${runs:-?}" "$corpus" "$result"
done
echo "work directory: $work"
exit $failed
