#!/usr/bin/env bash
# Builds the Debian packages and uses them as people will: installs them, runs the command, builds the examples against
# the installed library with CMake and with pkg-config, runs them on a made-up device, and removes the packages again.
# Usage: scripts/check-packages.sh BUILD_FOLDER     (a Release build without tests, made when it is not there)
#
# dpkg installs into a scratch root with a database of its own, not into this machine: that needs no privileges that a
# container may lack (mount, chroot into a second system), leaves nothing behind when it breaks off, and sees files
# that a removal forgets, as nothing else is there. It cannot see whether the dependencies are right, as the scratch
# root has none of them: apt resolves them against this machine's packages instead, without installing.
set -euo pipefail
cd "$(dirname "$0")/.."
build=${1:?usage: scripts/check-packages.sh BUILD_FOLDER}
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
root=$scratch/root
device=$scratch/device

fail() {
    echo "check-packages.sh: $*" >&2
    exit 1
}

run_dpkg() {
    local as_root=()
    [ "$(id -u)" -eq 0 ] || as_root=(fakeroot)
    # Folders of this machine's root, where ldconfig is, may be missing in the PATH of people.
    PATH=$PATH:/usr/sbin:/sbin "${as_root[@]}" dpkg --root="$root" --force-not-root --force-depends \
        --log=/dev/null "$@" >"$scratch/dpkg.log" 2>&1 || fail "dpkg $*: $(cat "$scratch/dpkg.log")"
}

content_of_root() {
    find "$root" -path "$root/var/lib/dpkg" -prune -o -print | sort
}

make_packages() {
    cmake -G Ninja -S . -B "$build" -DCMAKE_BUILD_TYPE=Release -DPHOTOLIB_TESTS=OFF -DCMAKE_INSTALL_PREFIX=/usr >/dev/null
    cmake --build "$build"
    cpack --config "$build/CPackConfig.cmake" -G DEB -B "$scratch/packages" >/dev/null
    packages=("$scratch"/packages/*.deb)
    names=()
    for package in "${packages[@]}"; do
        names+=("$(dpkg-deb --field "$package" Package)")
    done
    mapfile -t names < <(printf '%s\n' "${names[@]}" | LC_ALL=C sort) # names of files sort differently by locale
    [ "${names[*]}" = "libphotolib-dev libphotolib0 photolib photolib-browser" ] || fail "packages came out as ${names[*]}"
}

check_dependencies() {
    apt-get install --simulate --no-install-recommends "${packages[@]}" >"$scratch/apt.log" 2>&1 ||
        fail "the dependencies cannot be met: $(cat "$scratch/apt.log")"
}

install_packages() {
    mkdir -p "$root"/var/lib/dpkg/{info,updates,triggers}
    touch "$root/var/lib/dpkg/status"
    content_of_root >"$scratch/before"
    run_dpkg --install "${packages[@]}"
    library=$(find "$root/usr/lib" -name libphotolib.so)
    [ -e "$library" ] || fail "libphotolib.so is missing or leads nowhere"
    for name in "${names[@]}"; do
        [ -s "$root/usr/share/doc/$name/copyright" ] || fail "$name has no copyright file"
    done
}

# The command is not linked with a path to its library: the system's loader knows it after a real installation.
photolib() {
    LD_LIBRARY_PATH=$(dirname "$library") "$root/usr/bin/photolib" "$@"
}

check_command() {
    photolib --version
    photolib sample "$device" >/dev/null
    photolib info "$device" >/dev/null
    group_count=$(photolib groups "$device" --json | grep -c '"assetIds"')
}

# A window of its own needs no screen here; that it stays open is enough.
check_browser() {
    local status=0
    LD_LIBRARY_PATH=$(dirname "$library") "$root/usr/bin/photolib-browser" --version
    LD_LIBRARY_PATH=$(dirname "$library") QT_QPA_PLATFORM=offscreen HOME=$scratch XDG_RUNTIME_DIR=$scratch \
        timeout 5 "$root/usr/bin/photolib-browser" "$device" 2>"$scratch/browser.log" || status=$?
    [ "$status" -eq 124 ] || fail "the browser ended with $status: $(cat "$scratch/browser.log")"
    scripts/check-desktop.sh "$root/usr/share"
}

# The examples are those of the package, so nothing of this checkout can help them.
build_with_cmake() {
    local name
    for name in minimal-host plugin-host; do
        cmake -G Ninja -S "$root/usr/share/doc/libphotolib-dev/examples/$name" -B "$scratch/$name" \
            -DCMAKE_PREFIX_PATH="$root/usr" -DCMAKE_CXX_FLAGS="-Wall -Wextra -Werror" >/dev/null
        grep -q "^photolib_DIR:PATH=$root/" "$scratch/$name/CMakeCache.txt" || fail "$name found another photolib"
        cmake --build "$scratch/$name" >"$scratch/cmake.log" || fail "$name: $(cat "$scratch/cmake.log")"
    done
}

build_with_pkg_config() { # PROGRAM PACKAGES SOURCE...
    local flags
    flags=$(PKG_CONFIG_PATH=$(dirname "$library")/pkgconfig pkg-config --cflags --libs "$2")
    # shellcheck disable=SC2086 # the flags and packages are several words
    (cd "$root/usr/share/doc/libphotolib-dev/examples" &&
        g++ -Wall -Wextra -Werror -o "$scratch/$1" "${@:3}" $flags -Wl,-rpath,"$(dirname "$library")")
}

# All examples print the same, whoever the host is.
check_example() { # PROGRAM ARGUMENT...
    local name=${1#"$scratch"/}
    "$@" "$device" >"$scratch/out" 2>"$scratch/err" || fail "$name: $(cat "$scratch/out" "$scratch/err")"
    grep -qx 'new album "Made by an example": 1 photo, .*' "$scratch/out" || fail "$name: $(cat "$scratch/out")"
    [ "$(grep -c '^category ' "$scratch/out")" -eq "$group_count" ] || fail "$name does not list $group_count groups"
    [ -e "$scratch/first" ] || cp "$scratch/out" "$scratch/first"
    diff "$scratch/first" "$scratch/out" || fail "$name prints something else"

    # A folder without a library is a failure that it says.
    if "$@" "$scratch/empty" >/dev/null 2>"$scratch/err" || [ ! -s "$scratch/err" ]; then
        fail "$name is content with an empty folder"
    fi
    echo "$name works"
}

check_examples() {
    build_with_cmake
    local devicehost='photolib photolib-devicehost' with=minimal-host plugin=plugin-host
    build_with_pkg_config pc-with-devicehost "$devicehost" $with/with_devicehost.cpp $with/show_library.cpp
    build_with_pkg_config pc-with-own-host "photolib sqlite3" $with/{with_own_host,own_host,show_library}.cpp
    build_with_pkg_config pc-plugin-host photolib-devicehost $plugin/{plugin_host,loaded_library}.cpp -ldl
    mkdir "$scratch/empty"
    check_example "$scratch/minimal-host/with-devicehost"
    check_example "$scratch/minimal-host/with-own-host"
    check_example "$scratch/plugin-host/plugin-host" "$library"
    check_example "$scratch/pc-with-devicehost"
    check_example "$scratch/pc-with-own-host"
    check_example "$scratch/pc-plugin-host" "$library"
}

check_removal() {
    run_dpkg --purge "${names[@]}"
    content_of_root | diff "$scratch/before" - || fail "the removed packages leave these behind"
}

make_packages
check_dependencies
install_packages
check_command
check_browser
check_examples
check_removal
echo "the packages install, work and leave nothing behind"
