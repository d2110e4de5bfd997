#!/usr/bin/env bash
# Draws the main states of the browser on a made-up phone: light and dark, at one and two pixels, in German and Chinese.
# Usage: scripts/make-screenshots.sh BUILD_FOLDER [TARGET]     TARGET: where the pictures go, docs/pictures unless given
#
# Without TARGET only the two pictures of the README are kept.
set -euo pipefail
cd "$(dirname "$0")/.."
build=${1:?usage: scripts/make-screenshots.sh BUILD_FOLDER [TARGET]}
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

cmake --build "$build" --target make_browser_pictures >/dev/null
program=$build/tests/browser/pictures/make_browser_pictures

draw() { # NAME LANGUAGE SCALE [OPTION]
    LANGUAGE=$2 QT_SCALE_FACTOR=$3 "$program" "$scratch/$1" "${@:4}"
}

draw light en 1
if [ $# -gt 1 ]; then
    draw light-2x en 2
    draw dark en 1 --dark
    draw dark-2x en 2 --dark
    draw german de 1
    draw chinese zh_CN 1
    mkdir -p "$2"
    cp -r "$scratch"/. "$2"
else
    mkdir -p docs/pictures
    cp "$scratch/light/selection.png" docs/pictures/library.png
    cp "$scratch/light/viewer.png" docs/pictures/viewer.png
fi
