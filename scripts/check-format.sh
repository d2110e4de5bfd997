#!/usr/bin/env bash
# Fails when a source file is not formatted as .clang-format says; with --fix, formats it.
set -euo pipefail
cd "$(dirname "$0")/.."
mode=(--dry-run -Werror)
[ "${1:-}" = --fix ] && mode=(-i)
find apps bench devicehost examples exporter fuzz photolib testing tests \( -name '*.cpp' -o -name '*.h' \) -print0 |
    xargs -0 clang-format "${mode[@]}"
