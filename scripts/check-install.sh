#!/usr/bin/env bash
# Installs a build into a scratch folder and uses what came out: the command runs, and a program compiles against the
# headers and links the library. Usage: scripts/check-install.sh BUILD_FOLDER
set -euo pipefail
cd "$(dirname "$0")/.."
build=${1:?usage: scripts/check-install.sh BUILD_FOLDER}
root=$(mktemp -d)
trap 'rm -rf "$root"' EXIT

cmake --install "$build" --prefix "$root/usr" >/dev/null
photolib=$root/usr/bin/photolib
"$photolib" --version
"$photolib" sample "$root/device" >/dev/null
"$photolib" info "$root/device" >/dev/null

library=$(find "$root/usr/lib" -name libphotolib.so)
cat >"$root/main.cpp" <<'CPP'
#include <photolib/host/iipod.h>
#include <photolib/host/log.h>
#include <photolib/host/sql_utils.h>
#include <photolib/host/vdev.h>
#include <photolib/photolib.h>

int main()
{
    albumItem album;
    photoItem photo;
    photo_manager_int *none = nullptr;
    releasePhotolib(&none);
    return album.kind == 1550 && photo.thumbnailIndex == -1 ? 0 : 1;
}

VDev *vDevOpen(VDevType, const char *) { return nullptr; }
void vDevClose(VDev *) {}
int vDevCreateDir(VDev *, const char *) { return -1; }
VFile *vFileOpen(VDev *, const char *, int) { return nullptr; }
void vFileClose(VFile *) {}
int vFileRead(VFile *, void *, int) { return -1; }
int vFileWrite(VFile *, const void *, int) { return -1; }
qint64 vFileSeek(VFile *, qint64, int) { return -1; }
qint64 vFileTell(VFile *) { return -1; }
int SqlUtils::openSqlite(const QString &, sqlite3 **) { return 1; }
int SqlUtils::prepareSqlite(sqlite3 *, const char *, int, sqlite3_stmt **, const char **) { return 1; }
void Log(const char *, int, const char *, ...) {}
CPP
# shellcheck disable=SC2046 # the flags are several words
g++ -std=c++17 -fPIC -Wall -Wextra -Werror "$root/main.cpp" -o "$root/main" -I"$root/usr/include" \
    $(pkg-config --cflags --libs Qt5Core) "$library" -Wl,-rpath,"$(dirname "$library")"
"$root/main"
echo "installed headers, library and command work"
