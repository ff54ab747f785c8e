#!/bin/bash
# SPDX-License-Identifier: MIT
# The tool under other allocators, each run a fresh process: glibc as it is,
# glibc backing its heap with huge pages, jemalloc and mimalloc (preloaded,
# with and without their huge-page settings). Prints wall and CPU time and
# peak resident size (median and range) per installation and allocator.
#
#   bench/allocator_compare.sh BUILD_DIR DATA_DIR... [--runs N] [-- COMMAND ARGS...]
#
# BUILD_DIR holds devctrl and bench/fresh_run; the command defaults to
# `families`. Needs libjemalloc2 and libmimalloc2.0 installed. Set
# DEVCTRL_ALLOCATORS to a subset of the names below to run fewer.
set -euo pipefail

[ $# -ge 2 ] || { sed -n '8p' "$0" | sed 's/^# *//' >&2; exit 2; }
build=$(cd "$1" && pwd)
shift
runs=3
dirs=()
command=(families)
while [ $# -gt 0 ]; do
    case $1 in
    --runs) runs=$2; shift 2 ;;
    --) shift; command=("$@"); break ;;
    *) dirs+=("$1"); shift ;;
    esac
done

lib=/usr/lib/$(gcc -print-multiarch 2>/dev/null || echo x86_64-linux-gnu)
declare -A settings=(
    [glibc]=""
    [glibc-hugetlb]="GLIBC_TUNABLES=glibc.malloc.hugetlb=1"
    [jemalloc]="LD_PRELOAD=$lib/libjemalloc.so.2"
    [jemalloc-thp]="LD_PRELOAD=$lib/libjemalloc.so.2 MALLOC_CONF=thp:always,metadata_thp:auto"
    [mimalloc]="LD_PRELOAD=$lib/libmimalloc.so.2"
    [mimalloc-large]="LD_PRELOAD=$lib/libmimalloc.so.2 MIMALLOC_LARGE_OS_PAGES=1"
)
allocators=${DEVCTRL_ALLOCATORS:-glibc glibc-hugetlb jemalloc jemalloc-thp mimalloc mimalloc-large}

answer=$(mktemp)
trap 'rm -f "$answer" "$answer.stderr"' EXIT
echo "load average at the start: $(cut -d' ' -f1-3 /proc/loadavg); devctrl ${command[*]}"
printf '%-28s %-16s %-22s %-22s %s\n' installation allocator "wall s" "cpu s" "peak RSS MB"
for dir in "${dirs[@]}"; do
    for allocator in $allocators; do
        # Word splitting of the settings is wanted: VAR=VALUE pairs for env.
        # shellcheck disable=SC2086
        figures=$(env ${settings[$allocator]} "$build/bench/fresh_run" --runs "$runs" \
            --out "$answer" -- "$build/devctrl" --data "$dir" "${command[@]}")
        read -r wall wallMin wallMax cpu cpuMin cpuMax rss rssMin rssMax <<<"$figures"
        printf '%-28s %-16s %-22s %-22s %s\n' "$(basename "$dir")" "$allocator" \
            "$wall ($wallMin-$wallMax)" "$cpu ($cpuMin-$cpuMax)" \
            "$(printf '%.1f (%.1f-%.1f)' "$rss" "$rssMin" "$rssMax")"
    done
done
echo "load average at the end: $(cut -d' ' -f1-3 /proc/loadavg)"
