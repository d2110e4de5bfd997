#!/usr/bin/env bash
# Compares the binary interface of the library with the recorded one, and that of a host, in both directions.
# Usage: check_abi.sh LIBRARY SOURCE_ROOT BASELINE_FOLDER [--renew]
#   LIBRARY          libphotolib.so with debug information
#   SOURCE_ROOT      holds photolib/ with the headers that the library was built from
#   BASELINE_FOLDER  holds photolib.abi (what the library gives) and host.abi (what a host gives); --renew writes them
set -euo pipefail
here=$(dirname "$0")
library=$1 source_root=$2 baselines=$3 renew=${4:-}
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

# Only what the public headers declare counts; types of other headers are the library's own affair.
mkdir "$scratch/headers"
"$here/../../scripts/public-headers.sh" "$source_root/photolib" >"$scratch/list"
xargs cp --target-directory="$scratch/headers" <"$scratch/list"

record() { # BINARY ABI_FILE
    if ! readelf --section-headers --wide "$1" | grep -q '\.debug_info'; then
        echo "check_abi.sh: $1 has no debug information, so there is nothing to compare" >&2
        exit 2
    fi
    abidw --headers-dir "$scratch/headers" --drop-private-types --exported-interfaces-only --drop-undefined-syms \
        --no-corpus-path --no-comp-dir-path --no-show-locs --no-elf-needed --out-file "$2" "$1"
    sed -i -E "s#path='[^']*/(photolib|tests)/#path='\1/#" "$2" # the same wherever it was built
}

record "$library" "$scratch/photolib.abi"
# shellcheck disable=SC2046 # the flags are several words
g++ -std=c++17 -g -shared -fPIC -fvisibility=hidden -fvisibility-inlines-hidden -I"$source_root" \
    $(pkg-config --cflags Qt5Core) "$here/host_probe.cpp" -o "$scratch/host.so"
record "$scratch/host.so" "$scratch/host.abi"

# abidiff takes a virtual function in the place of another one for harmless. Prints each with its place.
slots() { # ABI_FILE
    grep -A1 "vtable-offset='[0-9]" "$1" | grep -oE "(vtable-offset|mangled-name)='[^']+'" | paste - -
}

status=0
for side in photolib host; do
    if [ "$renew" = --renew ]; then
        cp "$scratch/$side.abi" "$baselines/$side.abi"
    elif ! abidiff "$baselines/$side.abi" "$scratch/$side.abi" ||
        ! diff <(slots "$baselines/$side.abi") <(slots "$scratch/$side.abi"); then
        echo "the binary interface differs from $baselines/$side.abi"
        status=1
    fi
done
exit $status
