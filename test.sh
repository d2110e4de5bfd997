#!/usr/bin/env bash
# Installs what is missing, builds everything and runs every test.
set -euo pipefail
cd "$(dirname "$0")"

scripts/install-packages.sh test
cmake --preset dev
cmake --build --preset dev
ctest --preset dev "$@"
