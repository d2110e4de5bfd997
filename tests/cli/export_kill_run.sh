#!/usr/bin/env bash
# Kills an export at random moments, again and again, and checks that the run that goes on ends like an undisturbed one.
# Usage: tests/cli/export_kill_run.sh PHOTOLIB [POINTS]     PHOTOLIB: the command; POINTS: how often, 50 by default
set -euo pipefail

photolib=$(realpath "$1")
points=${2:-50}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
device=$work/device
options=(--albums --edited --no-progress --limit 60)

# Names, times, sizes and contents, without the record, whose bytes depend on the way.
tree() {
    (
        cd "$1"
        find . -type f ! -name '.photolib-export.sqlite*' -printf '%P %T@ %s\n' | sort
        find . -type f ! -name '.photolib-export.sqlite*' -print0 | sort -z | xargs -0 sha256sum
    )
}

export_to() {
    if ! "$photolib" export "$device" "$1" "${options[@]}" >"$work/out" 2>&1; then
        echo "export_kill_run.sh: the export failed:" >&2
        cat "$work/out" >&2
        exit 1
    fi
}

"$photolib" sample "$device" --no-progress >/dev/null
begin=$(date +%s%N)
export_to "$work/whole"
duration=$((($(date +%s%N) - begin) / 1000)) # microseconds
tree "$work/whole" >"$work/expected"

killed=0
for ((point = 1; point <= points; ++point)); do
    place=$work/killed
    rm -rf "$place"
    # A part of the points is killed twice, the second time while it recovers.
    for ((times = 0; times <= point % 2; ++times)); do
        "$photolib" export "$device" "$place" "${options[@]}" >/dev/null 2>&1 &
        process=$!
        moment=$(((RANDOM * 32768 + RANDOM) % duration))
        sleep "$(printf '%d.%06d' $((moment / 1000000)) $((moment % 1000000)))"
        kill -KILL "$process" 2>/dev/null && killed=$((killed + 1))
        wait "$process" 2>/dev/null || true
    done
    export_to "$place"
    if ! tree "$place" | diff "$work/expected" - >"$work/difference"; then
        echo "export_kill_run.sh: the end differs after a kill at $moment of $duration microseconds:" >&2
        head -n 20 "$work/difference" >&2
        exit 1
    fi
done
echo "export_kill_run.sh: $points exports, killed $killed times, all with the same end"
[ "$killed" -gt $((points / 4)) ]
