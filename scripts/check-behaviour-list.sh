#!/usr/bin/env bash
# Fails when docs/behaviour.md names a test that does not exist.
set -euo pipefail
cd "$(dirname "$0")/.."
status=0
# shellcheck disable=SC2016 # backticks of Markdown
while IFS=. read -r suite name; do
    if ! grep -rqE "^TEST(_F|_P)?\($suite, *$name\b" --include='*_test.cpp' tests; then
        echo "docs/behaviour.md names $suite.$name, which is no test" >&2
        status=1
    fi
done < <(grep -oE '`[A-Za-z]+\.[A-Za-z0-9]+`' docs/behaviour.md | tr -d '`')
exit $status
