#!/usr/bin/env bash
# Runs clang-tidy with the checks of .clang-tidy over the sources of the library, the host, the command, the exporter and
# the test doubles. Usage: scripts/run-clang-tidy.sh BUILD_FOLDER
set -euo pipefail
cd "$(dirname "$0")/.."
build=${1:?usage: scripts/run-clang-tidy.sh BUILD_FOLDER}
log=$(mktemp)
trap 'rm -f "$log"' EXIT
# Only what the build compiles: a file for another compiler's sanitizer has no flags here, and headers that clang lacks.
sources() {
    python3 - "$build/compile_commands.json" <<'PYTHON'
import json, os, sys
rooms = ("apps", "devicehost", "exporter", "photolib", "testing")
names = {os.path.relpath(entry["file"]) for entry in json.load(open(sys.argv[1]))}
print(*sorted(name for name in names if name.split(os.sep)[0] in rooms), sep="\0", end="\0")
PYTHON
}
# clang does not know gcc's form of -Wshadow.
if ! sources | xargs -0 -n 4 -P "$(nproc)" clang-tidy -p "$build" --quiet --extra-arg=-Wno-unknown-warning-option >"$log" 2>&1; then
    grep -vE '^[0-9]+ warnings? (generated|treated)|^Suppressed|^Use -header-filter' "$log"
    exit 1
fi
