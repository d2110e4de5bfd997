#!/usr/bin/env bash
# Shows that check_symbols.sh can fail: for a symbol that is missing and for one too many, on both lists and in the
# headers. Usage: check_symbols_test.sh LIBRARY HEADER_FOLDER
set -euo pipefail
here=$(dirname "$0")
library=$1 headers=$2
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

must_fail() { # WHAT HEADER_FOLDER EXPORTED_LIST HOST_LIST
    if "$here/check_symbols.sh" "$library" "$2" "$3" "$4" >/dev/null; then
        echo "not noticed: $1"
        exit 1
    fi
}
exported=$here/exported_symbols.txt
host=$here/host_symbols.txt
"$here/check_symbols.sh" "$library" "$headers" "$exported" "$host"
{ cat "$exported" && echo 'notExported()'; } >"$scratch/more"
must_fail "an intended symbol that is not exported" "$headers" "$scratch/more" "$host"
grep -v '^releasePhotolib' "$exported" >"$scratch/fewer"
must_fail "an exported symbol that is not intended" "$headers" "$scratch/fewer" "$host"
{ cat "$host" && echo 'vFileDelete(VFile*)'; } >"$scratch/more"
must_fail "a host symbol that is not used" "$headers" "$exported" "$scratch/more"
grep -v '^vDevOpen' "$host" >"$scratch/fewer"
must_fail "a host symbol that is not listed" "$headers" "$exported" "$scratch/fewer"

copy_headers() {
    rm -rf "$scratch/headers"
    mkdir -p "$scratch/headers/host"
    cp "$headers"/*.h "$scratch/headers"
    cp "$headers"/host/*.h "$scratch/headers/host"
}
copy_headers
echo 'PHOTOLIB_EXPORT void forgotten();' >>"$scratch/headers/photolib.h"
must_fail "a declared function that is not exported" "$scratch/headers" "$exported" "$host"
copy_headers
sed -i 's/^PHOTOLIB_EXPORT void releasePhotolib/void releasePhotolib/' "$scratch/headers/photolib.h"
must_fail "an exported function that no header declares" "$scratch/headers" "$exported" "$host"
copy_headers
sed -i 's/^PHOTOLIB_HOST VDev \*vDevOpen/VDev *vDevOpen/' "$scratch/headers/host/vdev.h"
must_fail "a host function that no header declares" "$scratch/headers" "$exported" "$host"
echo "all seven differences were noticed"
