#!/usr/bin/env bash
# Runs clang-tidy with the checks of .clang-tidy over the sources of the library, the host, the command and the test
# doubles. Usage: scripts/run-clang-tidy.sh BUILD_FOLDER
set -euo pipefail
cd "$(dirname "$0")/.."
build=${1:?usage: scripts/run-clang-tidy.sh BUILD_FOLDER}
log=$(mktemp)
trap 'rm -f "$log"' EXIT
# clang does not know gcc's form of -Wshadow.
if ! find apps devicehost photolib testing -name '*.cpp' -print0 |
    xargs -0 -n 4 -P "$(nproc)" clang-tidy -p "$build" --quiet --extra-arg=-Wno-unknown-warning-option >"$log" 2>&1; then
    grep -vE '^[0-9]+ warnings? (generated|treated)|^Suppressed|^Use -header-filter' "$log"
    exit 1
fi
