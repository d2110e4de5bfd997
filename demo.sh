#!/usr/bin/env bash
# Installs what is missing, builds, and shows the photo library of a device.
# Usage: ./demo.sh [DEVICE]     DEVICE: a device's media folder; without one a made-up device is created and shown
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
if [ $# -gt 1 ] || [ "${1:-}" = -h ] || [ "${1:-}" = --help ]; then
    echo "Usage: ./demo.sh [DEVICE]"
    echo "DEVICE is the media folder of a device (the one that holds DCIM and PhotoData)."
    echo "Without it a made-up device is created in build/demo-device."
    [ $# -le 1 ] && exit 0
    exit 2
fi

"$here/scripts/install-packages.sh" build
(
    cd "$here"
    cmake --preset release >/dev/null
    cmake --build --preset release
)
photolib=$here/build/release/apps/cli/photolib

if [ $# -eq 1 ]; then
    device=$1
else
    device=$here/build/demo-device
    if [ ! -e "$device/PhotoData/Photos.sqlite" ]; then
        rm -rf "$device"
        "$photolib" sample "$device"
    fi
fi

show() {
    echo
    echo "\$ photolib $1 $device ${*:2}"
    "$photolib" "$1" "$device" "${@:2}"
}
show info
show albums
show groups --group people --group memories --group favorites
show photos --limit 15
echo
echo "More: $photolib --help"
browser=$here/build/release/apps/browser/photolib-browser
if [ -n "${WAYLAND_DISPLAY:-}${DISPLAY:-}" ]; then
    echo "To see it in a window: $browser $device"
else
    echo "With a screen, this shows it in a window: $browser $device"
fi
