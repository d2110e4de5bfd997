#!/usr/bin/env bash
# Installs the Debian packages that the project needs, where they are missing.
# Usage: scripts/install-packages.sh GROUP...     groups: build, package, test, check, fuzz, bench
set -euo pipefail

build=(g++ cmake ninja-build pkg-config ca-certificates
    qtbase5-dev libsqlite3-dev libssl-dev libplist-dev libimobiledevice-dev libusbmuxd-dev libcli11-dev rapidjson-dev
    libgif-dev libheif-dev qttools5-dev qttools5-dev-tools)
package=("${build[@]}" dpkg-dev file)
test=("${build[@]}" libgtest-dev libgmock-dev sqlite3 binutils python3 openssl util-linux
    libimobiledevice-utils fonts-dejavu-core qt5-image-formats-plugins)
check=("${test[@]}" clang-format clang-tidy shellcheck git strace abigail-tools doxygen
    "${package[@]}" fakeroot fish mandoc zsh libbenchmark-dev valgrind
    appstream desktop-file-utils xvfb xauth fonts-noto-cjk)
# clang's own version of Debian; the runtime library holds the fuzzer, llvm the tool that names the lines of a crash.
fuzz=("${test[@]}" clang libclang-rt-14-dev llvm)
# Other programs for the same work, to compare with.
bench=("${build[@]}" libbenchmark-dev ffmpeg git heaptrack python3 sqlite3 ifuse fuse openssl)

wanted=()
for group in "$@"; do
    case $group in
    build) wanted+=("${build[@]}") ;;
    package) wanted+=("${package[@]}") ;;
    test) wanted+=("${test[@]}") ;;
    check) wanted+=("${check[@]}") ;;
    fuzz) wanted+=("${fuzz[@]}") ;;
    bench) wanted+=("${bench[@]}") ;;
    *)
        echo "install-packages.sh: unknown group '$group' (build, package, test, check, fuzz or bench)" >&2
        exit 2
        ;;
    esac
done

missing=()
for package in "${wanted[@]}"; do
    dpkg-query --show --showformat='${db:Status-Status}\n' "$package" 2>/dev/null | grep -qx installed ||
        missing+=("$package")
done
[ ${#missing[@]} -eq 0 ] && exit 0

if ! command -v apt-get >/dev/null; then
    echo "install-packages.sh: this needs Debian's apt-get. Install by hand: ${missing[*]}" >&2
    exit 1
fi
as_root=()
if [ "$(id -u)" -ne 0 ]; then
    if ! command -v sudo >/dev/null; then
        echo "install-packages.sh: run this as root, or install sudo. Missing: ${missing[*]}" >&2
        exit 1
    fi
    as_root=(sudo)
fi

echo "Installing: ${missing[*]}"
export DEBIAN_FRONTEND=noninteractive
"${as_root[@]}" apt-get update -qq
"${as_root[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
