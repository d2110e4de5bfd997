#!/usr/bin/env bash
# Compares the symbols of the library with the intended ones and with the public headers, in both directions: those that
# it exports, and those that its host must provide.
# Usage: check_symbols.sh LIBRARY HEADER_FOLDER EXPORTED_LIST HOST_LIST
set -euo pipefail
export LC_ALL=C
library=$1 headers=$2 exported=$3 host=$4
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

status=0
compare() { # WHAT FILE_A FILE_B
    local difference
    if ! difference=$(diff "$2" "$3"); then
        echo "$1 differ (< intended or declared, > in $library):"
        echo "$difference"
        status=1
    fi
}
without_comments() { grep -v '^#' "$1" | sort -u; }
classes_and_functions() { sed -E 's/^(typeinfo( name)?|vtable) for //; s/[(:].*//' | sort -u; }
declared() { # MACRO
    grep -hE "^((class|struct) )?$1 " "$headers"/*.h "$headers"/host/*.h |
        sed -E "s/^(class|struct) $1 ([A-Za-z_]+).*/\2/; s/^$1 [^(]*[ *]([A-Za-z_]+)\(.*/\1/" | sort -u
}

nm -DC --defined-only "$library" | cut -d' ' -f3- | sort -u >"$scratch/defined"
# The names under which hosts define what the library takes from them.
nm -DC --undefined-only "$library" | sed 's/^ *[Uwv] //' | grep -E '^(v(Dev|File)[A-Z]|SqlUtils::|Log\()' |
    sort -u >"$scratch/taken"

compare "exported symbols" <(without_comments "$exported") "$scratch/defined"
compare "symbols that a host provides" <(without_comments "$host") "$scratch/taken"
compare "names that the headers export" <(declared PHOTOLIB_EXPORT) <(classes_and_functions <"$scratch/defined")
# A host provides more than the library uses now, so this way only.
undeclared=$(comm -13 <(declared PHOTOLIB_HOST) <(classes_and_functions <"$scratch/taken"))
if [ -n "$undeclared" ]; then
    echo "taken from the host, but in no header: $undeclared"
    status=1
fi
exit $status
