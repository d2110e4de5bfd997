#!/usr/bin/env bash
# Runs clang-tidy with the checks of .clang-tidy over the sources of the library, the host, the command, the browser, the
# exporter and the test doubles. Up to 16 sources of a target are looked at as one file: most of the time goes into the
# headers, which they share. Configures build/tidy for that; usage: scripts/run-clang-tidy.sh
set -euo pipefail
cd "$(dirname "$0")/.."
build=build/tidy
merged=$build/merged
log=$(mktemp)
trap 'rm -f "$log"' EXIT
cmake --preset dev -B "$build" -DCMAKE_UNITY_BUILD=ON -DCMAKE_UNITY_BUILD_BATCH_SIZE=16 -DPHOTOLIB_TEST_PCH=OFF >/dev/null
# Paths through functions are followed for a third of the analyser's usual length.
options=(-p "$merged" --quiet --extra-arg=-Wno-unknown-warning-option # clang does not know gcc's form of -Wshadow
    --extra-arg=-Xclang --extra-arg=-analyzer-config --extra-arg=-Xclang --extra-arg=max-nodes=60000)
if ! scripts/merge-sources.py "$build" "$merged" apps devicehost exporter photolib testing |
    xargs -n 1 -P "$(nproc)" clang-tidy "${options[@]}" >"$log" 2>&1; then
    scripts/merge-sources.py --original "$merged" <"$log" |
        grep -vE '^[0-9]+ warnings? (generated|treated)|^Suppressed|^Use -header-filter'
    exit 1
fi
