#!/usr/bin/env bash
# Builds the pages about the public headers, and fails on every warning: an undocumented function, an unknown name. Also
# fails when a relative link in a Markdown file leads nowhere.
# Usage: scripts/check-docs.sh [OUTPUT_FOLDER]     (without one, the pages are thrown away)
set -euo pipefail
cd "$(dirname "$0")/.."
output=${1:-}
if [ -z "$output" ]; then
    output=$(mktemp -d)
    trap 'rm -rf "$output"' EXIT
fi

scripts/check-links.sh
mkdir -p "$output"
headers=$(scripts/public-headers.sh photolib devicehost)
# Without it, doxygen neither shows the functions of a header nor misses their comments.
silent=$(xargs grep -L '@file' <<<"$headers" || true)
if [ -n "$silent" ]; then
    echo "no @file comment in: ${silent//$'\n'/ }" >&2
    exit 1
fi
{
    cat docs/Doxyfile
    echo INPUT = docs/integrating.md docs/behaviour.md "${headers//$'\n'/ }"
    echo OUTPUT_DIRECTORY = "\"$output\""
} | doxygen -
echo "pages: $output/html/index.html"
