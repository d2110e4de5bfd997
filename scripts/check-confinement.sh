#!/usr/bin/env bash
# Runs the command on device folders and a computer backup full of traps, and lists every file that it opens outside of
# their folder, the destination, its folder for temporary files, and what it opens for a harmless device. The list must
# be empty.
# Usage: scripts/check-confinement.sh BUILD          (a build folder with apps/cli/photolib)
set -euo pipefail
cd "$(dirname "$0")/.."
photolib=$(realpath "${1:?usage: scripts/check-confinement.sh BUILD}")/apps/cli/photolib

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
outside=$work/outside
mkdir "$outside"
printf 'secret\n' >"$outside/secret.jpg"
mkdir "$outside/folder"
cp "$outside/secret.jpg" "$outside/folder/IMG_0001.JPG"

"$photolib" sample "$work/plain" >/dev/null
cp -r "$work/plain" "$work/links"
cp -r "$work/plain" "$work/names"
cp -r "$work/plain" "$work/log"
cp -r "$work/plain" "$work/database"

# What the device's files are replaced by: links that lead out in every way, pipes, devices, folders.
traps=("$outside/secret.jpg" ../../../outside/secret.jpg ../../../../../../../../../../etc/hostname /dev/zero
    /proc/self/root/etc/hostname "/proc/self/cwd/secret.jpg" /proc/self/fd/0 /proc/self/mem /nowhere/at/all)
number=0
while IFS= read -r file; do
    case $((number % 12)) in
    9) rm "$file" && mkfifo "$file" ;;
    10) rm "$file" && mkdir "$file" ;;
    11) rm "$file" && { mknod "$file" c 1 5 2>/dev/null || mkfifo "$file"; } ;;
    *) ln -sf "${traps[$((number % 12))]}" "$file" ;;
    esac
    number=$((number + 1))
done < <(find "$work/links" -type f ! -name 'Photos.sqlite*')
ln -s secret-chain-2 "$work/links/secret-chain-1"
ln -s "$outside/folder" "$work/links/secret-chain-2"
mv "$work/links/DCIM" "$work/links/DCIM-kept"
ln -s secret-chain-1 "$work/links/DCIM"

# Names in the database that lead out of the device and out of the destination.
sqlite3 "$work/names/PhotoData/Photos.sqlite" "
    CREATE TEMP TABLE trap(n INTEGER PRIMARY KEY, directory, name);
    INSERT INTO trap(directory, name) VALUES
        ('../outside', 'secret.jpg'), ('DCIM/../../outside', 'secret.jpg'), ('$outside', 'secret.jpg'),
        ('DCIM/100APPLE', '../../../outside/secret.jpg'), ('/proc/self/root$outside', 'secret.jpg'),
        ('DCIM/100APPLE' || char(0) || '/../..', 'secret.jpg'), ('..', '..'), ('/', '/'), ('.', 'CON'),
        (printf('%.*c', 5000, 'x'), 'secret.jpg'), ('DCIM', printf('%.*c', 300, 'y') || '.JPG'),
        ('DCIM/' || char(10) || '..', char(8238) || 'gpj.exe');
    UPDATE ZASSET SET
        ZDIRECTORY = (SELECT directory FROM trap WHERE n = 1 + ZASSET.Z_PK % 12),
        ZFILENAME = (SELECT name FROM trap WHERE n = 1 + ZASSET.Z_PK % 12);" >/dev/null

rm -f "$work"/log/PhotoData/Photos.sqlite-*
ln -s "$outside/secret.jpg" "$work/log/PhotoData/Photos.sqlite-wal"
mkfifo "$work/log/PhotoData/Photos.sqlite-shm"
rm "$work/database/PhotoData/Photos.sqlite"
ln -s ../../plain/PhotoData/Photos.sqlite "$work/database/PhotoData/Photos.sqlite"

# A backup: its files are found by a list of names, which may name anything.
python3 -B scripts/make_trap_backup.py "$work/plain" "$work/plain-backup"
python3 -B scripts/make_trap_backup.py "$work/plain" "$work/backup" "$outside/secret.jpg"

# opened DEVICE COMMAND...: the files that were really opened, made, renamed or removed outside of what is allowed.
opened() {
    local device=$1
    shift
    rm -rf "$work/out" "$work/tmp"
    mkdir "$work/out" "$work/tmp"
    local status=0
    (cd "$outside" && TMPDIR=$work/tmp timeout --signal=KILL 60 \
        strace -f -y -s 8192 -o "$work/trace" -e 'trace=%file' "$photolib" "$@" </dev/null >/dev/null 2>&1) || status=$?
    if [ "$status" -ge 124 ]; then
        echo "check-confinement.sh: $* on $device ended with status $status" >&2
        return 1
    fi
    # The path behind the new descriptor is the one that counts: links are resolved in it.
    {
        sed -n 's/.* open\(at2\{0,1\}\)\{0,1\}(.* = [0-9]*<\(.*\)>\( .*\)\{0,1\}$/\2/p' "$work/trace"
        sed -n 's/.* \(mkdir\|unlink\|rename\|link\|symlink\|mknod\|truncate\|chmod\|rmdir\)(.*"\(\/[^"]*\)".* = 0$/\2/p' \
            "$work/trace"
    } | sed 's|/proc/[0-9]*/|/proc/PID/|; s| (deleted)$||' | sort -u |
        grep -v -e "^$device\(/\|\$\)" -e "^$work/out\(/\|\$\)" -e "^$work/tmp\(/\|\$\)" || true
}

# run DEVICE: all that the commands open there.
run() {
    local device=$work/$1 id
    opened "$device" info "$device" || return 1
    opened "$device" dump "$device" || return 1
    for id in 1 2 3 4 5 6; do
        opened "$device" thumbnail "$device" "$id" -o "$work/out/picture" || return 1
    done
    opened "$device" export "$device" "$work/out/export" --albums --edited || return 1
}

{ run plain && run plain-backup; } | sort -u >"$work/usual"
[ -s "$work/usual" ] || {
    echo "check-confinement.sh: strace told of no file at all" >&2
    exit 1
}
failed=0
for device in links names log database backup; do
    if ! run "$device" >"$work/list"; then
        failed=1
    fi
    # A usual one again, or a folder above what is allowed, which is looked at but not into.
    unusual=$(sort -u "$work/list" | grep -vxF -f "$work/usual" || true)
    if [ -n "$unusual" ]; then
        printf 'opened outside of the device "%s":\n%s\n' "$device" "$unusual" >&2
        failed=1
    fi
    copied=$(find "$work/out" "$work/tmp" -type f -exec grep -l '^secret$' {} + || true)
    if [ -n "$copied" ]; then
        echo "check-confinement.sh: a file from outside was copied: $copied" >&2
        failed=1
    fi
done
[ "$(find "$outside" | wc -l)" -eq 4 ] || {
    echo "check-confinement.sh: something was made outside" >&2
    failed=1
}
[ "$failed" -eq 0 ] && echo "Nothing was opened outside of what is allowed."
exit "$failed"
