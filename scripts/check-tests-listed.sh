#!/usr/bin/env bash
# Fails when a *_test.cpp is compiled into no target: a test that is not built passes for ever.
# Usage: scripts/check-tests-listed.sh BUILD_FOLDER     (configured; it holds compile_commands.json)
set -euo pipefail
cd "$(dirname "$0")/.."
commands=${1:?usage: scripts/check-tests-listed.sh BUILD_FOLDER}/compile_commands.json
status=0
while IFS= read -r test; do
    if ! grep -qF "\"file\": \"$PWD/$test\"" "$commands"; then
        echo "$test is in no target" >&2
        status=1
    fi
done < <(find tests -name '*_test.cpp')
exit $status
