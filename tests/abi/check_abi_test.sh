#!/usr/bin/env bash
# Shows that check_abi.sh can fail: in copies of the sources, one part of the interface is changed at a time, and a library
# of the three files that define the interface is built and compared. Usage: check_abi_test.sh SOURCE_ROOT
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
root=$(cd "$1" && pwd)
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

# Copies the sources, applies a sed script to headers, and compares what comes out with the recorded interface.
# The output is in $scratch/NAME/output.
compare_changed() { # NAME HEADERS SED_SCRIPT
    local copy=$scratch/$1
    mkdir -p "$copy"
    cp -r "$root/photolib" "$copy"
    cd "$copy/photolib"
    # shellcheck disable=SC2086 # one header or several
    sed -i "$3" $2
    cd ..
    # shellcheck disable=SC2046 # the flags are several words
    printf '%s\n' exports album_item photo_item |
        xargs -P "$(nproc)" -I '{}' g++ -std=c++17 -g -O1 -c -fPIC -fvisibility=hidden -fvisibility-inlines-hidden \
            -I. $(pkg-config --cflags Qt5Core) 'photolib/{}.cpp' -o '{}.o'
    # shellcheck disable=SC2046
    g++ -shared exports.o album_item.o photo_item.o -o library.so -Wl,-soname,libphotolib.so.0 \
        -Wl,--version-script=photolib/exports.map $(pkg-config --libs Qt5Core)
    "$here/check_abi.sh" library.so . "$here" >output
}

must_pass() { # NAME HEADERS SED_SCRIPT
    if ! (compare_changed "$@"); then
        echo "taken for a change of the interface: $1"
        cat "$scratch/$1/output"
        exit 1
    fi
}

must_fail() { # NAME HEADERS SED_SCRIPT WHAT_THE_REPORT_SAYS
    if (compare_changed "$1" "$2" "$3"); then
        echo "not noticed: $1"
        exit 1
    fi
    if ! grep -qE "$4" "$scratch/$1/output"; then
        echo "failed for another reason: $1"
        cat "$scratch/$1/output"
        exit 1
    fi
    rm -rf "${scratch:?}/$1"
}

must_pass "nothing but a comment and a private member" photo_manager.h \
    's/^    QString databaseUuid;/    int unused = 0; \/\/ new\n&/'
must_fail "a field added in the middle of a record" album_item.h \
    's/^    QString title;/    qint64 added;\n&/' 'qint64 albumItem::added|added.*albumItem|type size changed'
must_fail "two fields of a record in each other's place" photo_item.h \
    '/^    qint32 height;/d; s/^    qint32 width;.*/&\n    qint32 height;/' "offset changed"
must_fail "a field added to a record without exported functions" photo_group.h \
    's/^    qint32 favorite = 0;.*/&\n    qint32 added = 0;/' 'type size|data member insertion'
must_fail "two operations in each other's place" photolib.h \
    '/virtual bool isCancelled() = 0;/d; s/^    virtual void cancel() = 0;/    virtual bool isCancelled() = 0;\n&/' \
    'vtable|voffset|offset'
must_fail "an operation with another argument" "photolib.h photo_manager.h" \
    's/getGroupKeys(int category)/getGroupKeys(qint64 category)/' 'getGroupKeys'
must_fail "a function of the host's device in another place" host/iipod.h \
    's/^    virtual void reserved6() {}/    virtual void added() {}\n&/' 'vtable|voffset|offset'
must_fail "a kind of device with another number" host/vdev.h 's/VDevDevice = 2/VDevDevice = 1/' 'VDevDevice'
must_fail "a host function with another argument" host/vdev.h \
    's/vDevClose(VDev \*device)/vDevClose(VDev *device, int how = 0)/' 'vDevClose'
echo "all eight differences were noticed"
