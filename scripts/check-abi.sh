#!/usr/bin/env bash
# Fails when the binary interface between the library and its hosts is not the recorded one (tests/abi/*.abi), and shows
# first that it would notice. Usage: scripts/check-abi.sh BUILD_FOLDER [--renew]     (built with debug information)
#
# --renew records the interface as it is now. Every host must then be built again: say why in CHANGELOG.md, raise
# the library's soname unless nothing was removed, moved or resized, and commit the new *.abi files with the change.
set -euo pipefail
cd "$(dirname "$0")/.."
library=${1:?usage: scripts/check-abi.sh BUILD_FOLDER [--renew]}/photolib/libphotolib.so
if [ "${2:-}" = --renew ]; then
    exec tests/abi/check_abi.sh "$library" . tests/abi --renew
fi
tests/abi/check_abi.sh "$library" . tests/abi
tests/abi/check_abi_test.sh .
