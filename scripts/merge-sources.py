#!/usr/bin/env python3
"""Joins the sources that a unity build compiles as one into one file each, for tools that look at main files only.

Usage: scripts/merge-sources.py BUILD TARGET ROOM...     BUILD: a folder that was configured with CMAKE_UNITY_BUILD
       scripts/merge-sources.py --original TARGET        puts the sources' own names and lines into messages, as a filter

Writes the joined sources of the rooms (folders of the project) into TARGET, under the folder of the first one, with the
.clang-tidy that holds there, and TARGET/compile_commands.json. Prints their names.
"""
import json
import pathlib
import re
import shlex
import shutil
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
MARK = "//# "


def sources_of(file):
    if file.parent.name != "Unity":
        return [file]
    return [pathlib.Path(name) for name in re.findall(r'#include "(.*)"', file.read_text())]


def write_merged(merged, sources):
    merged.parent.mkdir(parents=True, exist_ok=True)
    with merged.open("w") as out:
        for source in sources:
            out.write(f"{MARK}{source.relative_to(ROOT)}\n{source.read_text()}\n")


def copy_settings(sources, target):
    for folder in sources[0].parents:
        if ROOT in folder.parents and (folder / ".clang-tidy").exists():
            shutil.copy(folder / ".clang-tidy", target / folder.relative_to(ROOT))


def merge(build, target, rooms):
    shutil.rmtree(target, ignore_errors=True)
    commands = []
    for number, entry in enumerate(json.loads((build / "compile_commands.json").read_text())):
        sources = [source for source in sources_of(pathlib.Path(entry["file"]))
                   if ROOT in source.parents and source.relative_to(ROOT).parts[0] in rooms]
        if not sources:
            continue
        merged = target / sources[0].parent.relative_to(ROOT) / f"{sources[0].stem}_{number}.cpp"
        write_merged(merged, sources)
        copy_settings(sources, target)
        arguments = shlex.split(entry["command"])
        arguments[arguments.index(entry["file"])] = str(merged)
        commands.append({"directory": entry["directory"], "file": str(merged), "arguments": arguments})
        print(merged)
    (target / "compile_commands.json").write_text(json.dumps(commands))


def original(match):
    lines = pathlib.Path(match.group(1)).read_text().splitlines()[:int(match.group(2))]
    mark = max((at for at, line in enumerate(lines) if line.startswith(MARK)), default=0)
    return f"{lines[mark][len(MARK):]}:{len(lines) - mark - 1}"


def main():
    if sys.argv[1] == "--original":
        target = re.escape(str(pathlib.Path(sys.argv[2]).resolve()))
        for line in sys.stdin:
            print(re.sub(rf"({target}/\S+\.cpp):(\d+)", original, line), end="")
    else:
        merge(*(pathlib.Path(argument).resolve() for argument in sys.argv[1:3]), sys.argv[3:])


main()
