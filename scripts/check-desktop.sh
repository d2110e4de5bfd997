#!/usr/bin/env bash
# Checks what the desktop reads about the browser: its entry, its AppStream description, its icons, its man page.
# Usage: scripts/check-desktop.sh [SHARE]     a folder "share" of an installation; without: the sources
set -euo pipefail
cd "$(dirname "$0")/.."

fail() {
    echo "check-desktop.sh: $*" >&2
    exit 1
}

sources=apps/browser/desktop
entry=$sources/photolib-browser.desktop
description=$sources/photolib-browser.metainfo.xml
if [ $# -gt 0 ]; then
    entry=$1/applications/photolib-browser.desktop
    description=$1/metainfo/io.photolib.browser.metainfo.xml
    for icon in scalable/apps/photolib-browser.svg 128x128/apps/photolib-browser.png; do
        [ -s "$1/icons/hicolor/$icon" ] || fail "the icon $icon is not installed"
    done
    [ -s "$1/man/man1/photolib-browser.1.gz" ] || fail "the man page is not installed"
fi
problems=$(desktop-file-validate "$entry")
[ -z "$problems" ] || fail "$problems"
appstreamcli validate --no-net "$description" >/dev/null ||
    fail "$(appstreamcli validate --no-net "$description" 2>&1)"
mandoc -T lint -W warning docs/man/photolib-browser.1
