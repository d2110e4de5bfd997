#!/usr/bin/env bash
# Compares what opening a library of 1,000 photos costs, in counts that are the same on every machine of one kind, with
# recorded limits: instructions (callgrind) and allocations. Fails when one is more than its limit.
# Usage: scripts/check-performance.sh [BUILD]      BUILD: of the preset "bench" (default build/bench)
set -euo pipefail
cd "$(dirname "$0")/.."
build=${1:-build/bench}

# Measured on Debian 12 (gcc 12, SQLite 3.40, Qt 5.15), and a tenth more. A lower figure deserves a lower limit.
instructions_a_photo_limit=60400
allocations_a_photo_limit=18

[ -f "$build/CMakeCache.txt" ] || cmake --preset bench -B "$build" >/dev/null
cmake --build "$build" --target bench_make_library bench_open >/dev/null

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
for photos in 0 1000; do
    "$build/bench/bench_make_library" "$work/$photos" "$photos"
done

instructions() {
    # Qt seeds its hashes at random; fixed here, as counts depend on it.
    QT_HASH_SEED=0 valgrind --tool=callgrind --callgrind-out-file="$work/callgrind" \
        "$build/bench/bench_open" "$work/$1" 2>"$work/callgrind.log" >/dev/null
    sed -n 's/.*Collected : \([0-9]*\)$/\1/p' "$work/callgrind.log"
}

allocations() {
    QT_HASH_SEED=0 valgrind --tool=memcheck --leak-check=no "$build/bench/bench_open" "$work/$1" 2>&1 >/dev/null |
        sed -n 's/.*total heap usage: \([0-9,]*\) allocs.*/\1/p' | tr -d ,
}

status=0
check() { # name, with 1000 photos, without, limit
    local each=$((($2 - $3) / 1000))
    echo "check-performance.sh: $each $1 a photo, at most $4 allowed"
    if [ "$each" -gt "$4" ]; then
        echo "check-performance.sh: opening a library takes more $1 than recorded; find out why" \
            "(valgrind --tool=callgrind $build/bench/bench_open), or raise the limit with the reason" >&2
        status=1
    fi
}
check instructions "$(instructions 1000)" "$(instructions 0)" "$instructions_a_photo_limit"
check allocations "$(allocations 1000)" "$(allocations 0)" "$allocations_a_photo_limit"
exit $status
