#!/usr/bin/env python3
"""Makes a computer backup of a device folder, or one full of traps: names, links and pipes that lead elsewhere.
Usage: make_trap_backup.py DEVICE_FOLDER BACKUP [SECRET]      (with SECRET, a file outside, it is the one with traps)"""

import hashlib
import os
import pathlib
import plistlib
import shutil
import sqlite3
import sys

DOMAIN = "CameraRollDomain"


def record(size):
    objects = ["$null", {"Size": size, "ProtectionClass": 3}]
    top = {"root": plistlib.UID(1)}
    archive = {"$archiver": "NSKeyedArchiver", "$version": 100000, "$top": top, "$objects": objects}
    return plistlib.dumps(archive, fmt=plistlib.FMT_BINARY)


def stored(backup, path):
    digest = hashlib.sha1(f"{DOMAIN}-Media/{path}".encode()).hexdigest()
    return digest, backup / digest[:2] / digest


def spring(number, place, rows, row, secret):
    """What the file in the backup, or its row, becomes."""
    climbing = os.path.relpath(secret, place.parent)
    links = [str(secret), climbing, "/etc/hostname", "/dev/zero", "/proc/self/mem", "/proc/self/fd/0", "/nowhere"]
    kind = number % (len(links) + 6)
    if kind < len(links):
        place.unlink()
        place.symlink_to(links[kind])
    elif kind == len(links):
        place.unlink()
        os.mkfifo(place)
    elif kind == len(links) + 1:
        place.unlink()
        place.mkdir()
    elif kind == len(links) + 2:
        rows[row][0] = climbing
    elif kind == len(links) + 3:
        rows[row][0] = str(secret)
    elif kind == len(links) + 4:
        rows[row][0] = "../" * 12 + str(secret).lstrip("/")
    else:
        rows[row][2] = "Media/../../outside/" + secret.name


def main():
    device, backup = pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2])
    secret = pathlib.Path(sys.argv[3]).resolve() if len(sys.argv) > 3 else None
    rows = []
    for number, file in enumerate(sorted(path for path in device.rglob("*") if path.is_file())):
        path = file.relative_to(device).as_posix()
        digest, place = stored(backup, path)
        place.parent.mkdir(parents=True, exist_ok=True)
        shutil.copy(file, place)
        rows.append([digest, DOMAIN, f"Media/{path}", 1, record(file.stat().st_size)])
        if secret is not None and "Photos.sqlite" not in path:
            spring(number, place, rows, len(rows) - 1, secret)
    with sqlite3.connect(backup / "Manifest.db") as database:
        columns = "fileID TEXT PRIMARY KEY, domain TEXT, relativePath TEXT, flags INTEGER, file BLOB"
        database.execute(f"CREATE TABLE Files ({columns})")
        database.executemany("INSERT OR REPLACE INTO Files VALUES (?, ?, ?, ?, ?)", rows)
    database.close()
    (backup / "Manifest.plist").write_bytes(plistlib.dumps({"IsEncrypted": False, "Version": "10.0"}))
    if secret is not None:
        (backup / "Info.plist").symlink_to(secret)
        os.mkfifo(backup / "Status.plist")


main()
