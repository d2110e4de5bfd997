#!/usr/bin/env bash
# Runs the fuzz targets with clang's sanitizers. What they find is collected in build/fuzz-work and goes into the
# project by --keep.
# Usage: scripts/fuzz.sh TARGET [SECONDS]     one target, 600 seconds if not said otherwise
#        scripts/fuzz.sh --all SECONDS        every target; SECONDS are for all of them together
#        scripts/fuzz.sh --keep TARGET        replaces fuzz/corpus/TARGET by the smallest inputs that reach as much code
#        scripts/fuzz.sh --coverage TARGET    how much of each file the kept inputs, and those found since, reach
# A crash ends the run; the input is in build/fuzz-work, TARGET-crash-... . Mend the cause, give the input a name that
# says what it broke, and put it into fuzz/regressions/TARGET, where every run of the tests replays it.
set -euo pipefail
cd "$(dirname "$0")/.."
build=build/fuzz
work=$PWD/build/fuzz-work

usage() {
    sed -n '4,7s/^# //p' "scripts/$(basename "$0")" >&2
    exit 2
}

# The longest input of a target, in bytes. Databases have room for some more pages than the ones it begins with.
longest() {
    case $1 in
    database) echo 131072 ;;
    backup | wal) echo 65536 ;;
    *) echo 8192 ;;
    esac
}

targets() {
    sed -n 's/^photolib_fuzz(\([a-z_]*\).*/\1/p' fuzz/CMakeLists.txt
}

is_target() {
    targets | grep -qx -- "$1" || {
        echo "fuzz.sh: no target '$1'; there are: $(targets | xargs)" >&2
        exit 2
    }
}

build_targets() {
    scripts/install-packages.sh fuzz
    cmake --preset fuzz >/dev/null
    cmake --build --preset fuzz
    "$build/fuzz/fuzz_seeds" "$work/seeds"
}

# run TARGET FLAGS...: with a folder of its own for the device and its copies, in memory where that is possible.
run() {
    local target=$1 status=0 flags=()
    shift
    [ -e "fuzz/dictionaries/$target.dict" ] && flags+=("-dict=fuzz/dictionaries/$target.dict")
    local place
    place=$(mktemp -d -p "$([ -w /dev/shm ] && echo /dev/shm || echo "${TMPDIR:-/tmp}")" fuzz-XXXXXX)
    # Memory that hostile sizes ask for is refused above a limit, so that the answer to a refusal is tried, too.
    TMPDIR=$place UBSAN_OPTIONS=print_stacktrace=1 \
        ASAN_OPTIONS=detect_leaks=1:allocator_may_return_null=1:max_allocation_size_mb=128 \
        "$build/fuzz/fuzz_$target" "-max_len=$(longest "$target")" -timeout=10 -rss_limit_mb=2048 \
        -malloc_limit_mb=4096 "-artifact_prefix=$work/$target-" "${flags[@]}" "$@" || status=$?
    rm -rf "$place"
    return $status
}

fuzz() {
    local target=$1 seconds=$2 log=$work/$1.log status=0
    mkdir -p "$work/corpus/$target"
    run "$target" "-max_total_time=$seconds" -print_final_stats=1 "$work/corpus/$target" "fuzz/corpus/$target" \
        "fuzz/regressions/$target" "$work/seeds/$target" >"$log" 2>&1 || status=$?
    if [ $status -ne 0 ]; then
        grep -avE '^#[0-9]+' "$log" | tail -n 60 >&2
        echo "fuzz.sh: $target failed; $log has it all" >&2
        return $status
    fi
    echo "$target: $(grep -aE '^#[0-9]+.DONE' "$log" | tr '\t' ' ')"
}

keep() {
    local target=$1
    local merged=$work/merged/$target
    rm -rf "$merged"
    mkdir -p "$merged" "$work/corpus/$target"
    run "$target" -set_cover_merge=1 -use_counters=0 "$merged" "fuzz/corpus/$target" "$work/corpus/$target" \
        "$work/seeds/$target" 2>&1 | tail -n 2
    rm -rf "fuzz/corpus/$target"
    mv "$merged" "fuzz/corpus/$target"
    du -sh "fuzz/corpus/$target"
}

# Functions, not branches: the sanitizers add branches of their own, which only a broken program takes. Functions that
# the target does not need are not linked and not counted.
coverage() {
    local target=$1 found
    found=$(find "fuzz/corpus/$target" "fuzz/regressions/$target" "$work/corpus/$target" -maxdepth 0 2>/dev/null || true)
    # shellcheck disable=SC2086 # folders without blanks
    run "$target" -runs=0 -print_coverage=1 $found 2>&1 | awk -v root="$PWD/" '
        /^(UN)?COVERED_FUNC/ && index($NF, root) == 1 {
            sub(/:[0-9]+$/, "", $NF)
            file = substr($NF, length(root) + 1)
            if (file !~ /^(photolib|devicehost|exporter)\/.*cpp$/)
                next
            reached[file] += /^COVERED/
            all[file]++
        }
        END {
            for (file in all) {
                printf "%4d of %4d functions  %s\n", reached[file], all[file], file | "sort -k5"
                reachedInAll += reached[file]
                inAll += all[file]
            }
            close("sort -k5")
            printf "%4d of %4d functions  in all\n", reachedInAll, inAll
        }'
}

[ $# -ge 1 ] || usage
case $1 in
--all)
    [ $# -eq 2 ] || usage
    build_targets
    each=$(($2 / $(targets | wc -l)))
    for target in $(targets); do
        fuzz "$target" $((each > 0 ? each : 1))
    done
    ;;
--keep | --coverage)
    [ $# -eq 2 ] || usage
    is_target "$2"
    build_targets
    "${1#--}" "$2"
    ;;
-*) usage ;;
*)
    [ $# -le 2 ] || usage
    is_target "$1"
    build_targets
    fuzz "$1" "${2:-600}"
    ;;
esac
