#!/bin/bash
# SPDX-License-Identifier: MIT
# Start-up as a user measures it: every measurement in a fresh child process
# of its own, N times, reporting wall time, CPU time (user + system) and peak
# resident size as median and range.
#
#   bench/startup_harness.sh BUILD_DIR [--runs N] [--catalogues DIR] [--sizes "10k 100k 1m"]
#
# BUILD_DIR is a build with -DDEVCTRL_BUILD_BENCH=ON (Release for figures
# worth quoting). The generated catalogues (seed 1) are written into a
# temporary directory removed at exit, unless --catalogues DIR (or
# DEVCTRL_HARNESS_CATALOGUES) names a directory to keep them in: its
# subdirectories 10k, 100k and 1m are generated when missing and reused
# otherwise. Measured:
#   - getInstance() in a tiny host program (bench/startup_host.cpp), which
#     exits without destroying the manager, as a host does at exit;
#   - the floor (bench/startup_floor.cpp): the same final tables built from
#     strings written beforehand by startup_host --write-rows (untimed);
#   - every command of the README's tour on the 100k and 1M catalogues, with
#     names taken from the catalogue at run time.
# Any child that fails, or prints nothing where an answer is due, stops the
# harness with a non-zero status.
set -euo pipefail

usage() {
    sed -n '6,7p' "$0" | sed 's/^# *//' >&2
    exit 2
}

[ $# -ge 1 ] || usage
build=$(cd "$1" && pwd)
shift
runs=3
catalogues=${DEVCTRL_HARNESS_CATALOGUES:-}
sizes="10k 100k 1m"
while [ $# -gt 0 ]; do
    case $1 in
    --runs) runs=$2; shift 2 ;;
    --catalogues) catalogues=$2; shift 2 ;;
    --sizes) sizes=$2; shift 2 ;;
    *) usage ;;
    esac
done

tool=$build/devctrl
host=$build/bench/startup_host
floor=$build/bench/startup_floor
runner=$build/bench/fresh_run
for program in "$tool" "$host" "$floor" "$runner"; do
    [ -x "$program" ] || { echo "startup_harness: $program not built" >&2; exit 1; }
done

work=$(mktemp -d "${TMPDIR:-/tmp}/devctrl-harness-XXXXXX")
trap 'rm -rf "$work"' EXIT
trap 'exit 130' INT TERM
if [ -z "$catalogues" ]; then
    catalogues=$work/catalogues
fi
mkdir -p "$catalogues"
# The tool's settings and cache stay inside the run, so that a user's own
# (a default device, a cached index) neither changes nor is changed.
export DEVCTRL_SETTINGS=$work/settings.ini
export XDG_CACHE_HOME=$work/cache

partsOf() {
    case $1 in
    10k) echo 10000 ;; 100k) echo 100000 ;; 1m) echo 1000000 ;;
    *) echo "startup_harness: unknown size $1 (10k, 100k or 1m)" >&2; exit 2 ;;
    esac
}

for size in $sizes; do
    if [ ! -d "$catalogues/$size" ]; then
        echo "generating the $size catalogue in $catalogues/$size" >&2
        "$tool" generate "$catalogues/$size" --parts "$(partsOf "$size")" --seed 1 >/dev/null
    fi
done

declare -A wallOf rssOf
echo "load average at the start: $(cut -d' ' -f1-3 /proc/loadavg)"
printf '%-58s %-22s %-22s %s\n' "measure ($runs fresh runs: median (min-max))" "wall s" "cpu s" \
    "peak RSS MB"

# measure LABEL [--status S] [--empty-ok] -- PROGRAM ARGS...
measure() {
    local label=$1
    shift
    local flags=()
    while [ "$1" != -- ]; do
        flags+=("$1")
        shift
    done
    local figures
    if ! figures=$("$runner" --runs "$runs" "${flags[@]}" --out "$work/answer" "$@"); then
        echo "startup_harness: '$label' failed" >&2
        exit 1
    fi
    read -r wall wallMin wallMax cpu cpuMin cpuMax rss rssMin rssMax <<<"$figures"
    wallOf[$label]=$wall
    rssOf[$label]=$rss
    printf '%-58s %-22s %-22s %s\n' "$label" "$wall ($wallMin-$wallMax)" \
        "$cpu ($cpuMin-$cpuMax)" "$(printf '%.1f (%.1f-%.1f)' "$rss" "$rssMin" "$rssMax")"
}

# The host and the floor run twice: with glibc's default 4 KB pages, and
# with glibc asked for huge pages, which is what the tool's own allocator
# does. A ratio only compares figures taken with the same page size.
hugePages=(env GLIBC_TUNABLES=glibc.malloc.hugetlb=1)
for size in $sizes; do
    measure "getInstance() $size" -- "$host" "$catalogues/$size"
    measure "getInstance() $size, huge pages" -- "${hugePages[@]}" "$host" "$catalogues/$size"
done
for size in $sizes; do
    "$host" "$catalogues/$size" --write-rows "$work/rows-$size" >/dev/null 2>"$work/rows.stderr" ||
        { cat "$work/rows.stderr" >&2; echo "startup_harness: cannot write the rows" >&2; exit 1; }
    measure "floor $size" -- "$floor" "$work/rows-$size"
    measure "floor $size, huge pages" -- "${hugePages[@]}" "$floor" "$work/rows-$size"
    rm -f "$work/rows-$size"
done

# The first line of a command's answer on the catalogue in $data.
first() {
    local line
    line=$("$tool" --data "$data" "$@" | head -n 1) || true
    [ -n "$line" ] || { echo "startup_harness: 'devctrl $*' gave no answer" >&2; exit 1; }
    printf '%s\n' "$line"
}

tour() {
    local size=$1
    data=$catalogues/$size
    # Names that exist in this catalogue: the first PM that has parts, its
    # first device, package, speed and condition, and its first part; a part
    # that may take an ASC chip, and a chip it may link; a renamed name.
    local pm="" part="" asc="" chip candidate
    for candidate in $("$tool" --data "$data" pms 2>/dev/null); do
        part=$("$tool" --data "$data" parts "$candidate" 2>/dev/null | head -n 1) || true
        [ -n "$part" ] && { pm=$candidate; break; }
    done
    [ -n "$part" ] || { echo "startup_harness: no part in $data" >&2; exit 1; }
    for candidate in $("$tool" --data "$data" pms 2>/dev/null); do
        asc=$("$tool" --data "$data" parts "$candidate" --asc-only 2>/dev/null | head -n 1) || true
        [ -n "$asc" ] && break
    done
    [ -n "$asc" ] || { echo "startup_harness: no ASC-capable part in $data" >&2; exit 1; }
    chip=$("$tool" --data "$data" asc part "$asc" | awk '$1 == "linkable" {print $2; exit}')
    [ -n "$chip" ] || { echo "startup_harness: no chip links to $asc" >&2; exit 1; }
    local family device package speed condition renamed pwd lst=$data/pqrndev.lst
    family=$(first family-of "$pm")
    device=$(first devices "$pm")
    package=$(first packages "$pm" "$device")
    speed=$(first speeds "$pm" "$device" "$package")
    condition=$(first conditions "$pm" "$device" "$package" "$speed")
    renamed=$(awk -F= '/^\[Name Transfer\]/ {on = 1; next} /^\[/ {on = 0}
                       on && NF == 2 {print $1; exit}' "$lst")
    [ -n "$renamed" ] || { echo "startup_harness: no renamed part in $lst" >&2; exit 1; }
    local partData=("$data/$pm"/*.pwd)
    pwd=${partData[0]}
    "$tool" pwd-dump "$pwd" >"$work/part-data.txt"
    printf 'part %s\nexists %s\n' "$part" "$part" >"$work/shell.txt"
    echo "-- the tool's tour on $size: PM $pm, part $part, ASC part $asc with $chip," \
        "renamed $renamed" >&2
    # Read once untimed: the page cache, and whatever the tool keeps in its
    # cache directory, are as a user's second command finds them.
    "$tool" --data "$data" exists "$part" 2>/dev/null

    local d=(--data "$data")
    local lower=${part,,}
    measure "$size --version" -- "$tool" "${d[@]}" --version
    measure "$size info" -- "$tool" "${d[@]}" info
    measure "$size families" -- "$tool" "${d[@]}" families
    measure "$size pms" -- "$tool" "${d[@]}" pms
    measure "$size pm-of FAMILY" -- "$tool" "${d[@]}" pm-of "$family"
    measure "$size family-of PM" -- "$tool" "${d[@]}" family-of "$pm"
    measure "$size key PM DEVICES" -- "$tool" "${d[@]}" key "$pm" DEVICES
    measure "$size default-device" --empty-ok -- "$tool" "${d[@]}" default-device
    measure "$size devices PM" -- "$tool" "${d[@]}" devices "$pm"
    measure "$size packages PM DEVICE" -- "$tool" "${d[@]}" packages "$pm" "$device"
    measure "$size speeds PM DEVICE PACKAGE" -- "$tool" "${d[@]}" speeds "$pm" "$device" "$package"
    measure "$size conditions PM DEVICE PACKAGE SPEED" -- \
        "$tool" "${d[@]}" conditions "$pm" "$device" "$package" "$speed"
    measure "$size parts PM 'DEVICE-*' --speed S --condition C" -- \
        "$tool" "${d[@]}" parts "$pm" "$device-*" --speed "$speed" --condition "$condition"
    measure "$size parts PM --all --asc-only" -- "$tool" "${d[@]}" parts "$pm" --all --asc-only
    measure "$size parts PM --where Status=P" -- "$tool" "${d[@]}" parts "$pm" --where Status=P
    measure "$size --format table parts PM --where --columns" -- \
        "$tool" "${d[@]}" --format table parts "$pm" --where Status=P --columns 'LUT,IO,Pin Count'
    measure "$size part PART --all-items" -- "$tool" "${d[@]}" part "$part" --all-items
    measure "$size part PART" -- "$tool" "${d[@]}" part "$part"
    measure "$size part part (unknown, did you mean)" --status 1 --empty-ok -- \
        "$tool" "${d[@]}" part "$lower"
    measure "$size item PART Status" -- "$tool" "${d[@]}" item "$part" Status
    measure "$size exists PART" --empty-ok -- "$tool" "${d[@]}" exists "$part"
    measure "$size export PM" -- "$tool" "${d[@]}" export "$pm"
    measure "$size export" -- "$tool" "${d[@]}" export
    measure "$size part-name PM DEVICE PACKAGE SPEED CONDITION" -- \
        "$tool" "${d[@]}" part-name "$pm" "$device" "$package" "$speed" "$condition"
    measure "$size inner-name PART" -- "$tool" "${d[@]}" inner-name "$part"
    measure "$size translate RENAMED" -- "$tool" "${d[@]}" translate "$renamed"
    measure "$size settings ASCPART" -- "$tool" "${d[@]}" settings "$asc"
    measure "$size asc chips" -- "$tool" "${d[@]}" asc chips
    measure "$size asc part ASCPART" -- "$tool" "${d[@]}" asc part "$asc"
    measure "$size report ASCPART --asc CHIP" -- "$tool" "${d[@]}" report "$asc" --asc "$chip"
    measure "$size validate ASCPART --asc CHIP" -- "$tool" "${d[@]}" validate "$asc" --asc "$chip"
    measure "$size check RENAMED" -- "$tool" "${d[@]}" check "$renamed"
    measure "$size write-sds PM FILE" --empty-ok -- \
        "$tool" "${d[@]}" write-sds "$pm" "$work/family.sds"
    [ -s "$work/family.sds" ] || { echo "startup_harness: write-sds wrote nothing" >&2; exit 1; }
    measure "$size dump PM" -- "$tool" "${d[@]}" dump "$pm"
    measure "$size check-data" --empty-ok -- "$tool" "${d[@]}" check-data
    measure "$size pwd-dump FILE" -- "$tool" "${d[@]}" pwd-dump "$pwd"
    measure "$size pwd-compile TEXT FILE" --empty-ok -- \
        "$tool" "${d[@]}" pwd-compile "$work/part-data.txt" "$work/part-data.pwd"
    measure "$size ini sections LST" -- "$tool" "${d[@]}" ini sections "$lst"
    measure "$size ini get LST 'Name Transfer' RENAMED" -- \
        "$tool" "${d[@]}" ini get "$lst" "Name Transfer" "$renamed"
    measure "$size shell FILE (2 lines)" -- "$tool" "${d[@]}" --json shell "$work/shell.txt"
    measure "$size --json families" -- "$tool" "${d[@]}" --json families
    measure "$size --format csv devices PM" -- "$tool" "${d[@]}" --format csv devices "$pm"
    measure "$size schema parts" -- "$tool" "${d[@]}" schema parts
    measure "$size parts --help" -- "$tool" "${d[@]}" parts --help
    measure "$size man" -- "$tool" "${d[@]}" man
}

for size in $sizes; do
    [ "$size" = 10k ] || tour "$size"
done

# ratio A B: A / B of two figures measured above, or "-" when either is missing.
ratio() {
    local a=${2:-} b=${3:-}
    if [ -z "$a" ] || [ -z "$b" ]; then
        printf '%-58s -\n' "$1"
    else
        awk -v label="$1" -v a="$a" -v b="$b" 'BEGIN {printf "%-58s %.2fx\n", label, a / b}'
    fi
}

echo
echo "ratios (medians)"
for size in $sizes; do
    ratio "getInstance() / floor, $size, wall" "${wallOf[getInstance() $size]:-}" \
        "${wallOf[floor $size]:-}"
    ratio "getInstance() / floor, $size, huge pages, wall" \
        "${wallOf[getInstance() $size, huge pages]:-}" "${wallOf[floor $size, huge pages]:-}"
    ratio "getInstance() / floor, $size, peak RSS" "${rssOf[getInstance() $size]:-}" \
        "${rssOf[floor $size]:-}"
    [ "$size" = 10k ] && continue
    # The tool takes huge pages: against the floor that does too.
    ratio "families / floor, $size, huge pages, wall" "${wallOf[$size families]:-}" \
        "${wallOf[floor $size, huge pages]:-}"
    ratio "export / floor, $size, huge pages, wall" "${wallOf[$size export]:-}" \
        "${wallOf[floor $size, huge pages]:-}"
    ratio "families / floor, $size, huge pages, peak RSS" "${rssOf[$size families]:-}" \
        "${rssOf[floor $size, huge pages]:-}"
    ratio "exists / families, $size, peak RSS" "${rssOf[$size exists PART]:-}" \
        "${rssOf[$size families]:-}"
done
ratio "growth 1m / 100k, getInstance() wall" "${wallOf[getInstance() 1m]:-}" \
    "${wallOf[getInstance() 100k]:-}"
ratio "growth 1m / 100k, families wall" "${wallOf[1m families]:-}" "${wallOf[100k families]:-}"
ratio "growth 1m / 100k, floor wall" "${wallOf[floor 1m]:-}" "${wallOf[floor 100k]:-}"
echo "load average at the end: $(cut -d' ' -f1-3 /proc/loadavg)"
