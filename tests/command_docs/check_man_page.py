#!/usr/bin/env python3
"""Compares the man page with the command's own help, in both directions: commands, arguments, options, their values.

Usage: check_man_page.py PHOTOLIB MAN_PAGE
"""
import pathlib
import re
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "scripts"))
from command_help import read_help

COMMON = "Options of every command"
READING = "Options of every command that reads a device"
WITHOUT_COMMAND = "Options without a command"


def read_item(line):
    """The options of an ".It Fl" line, as in "--log-file FILE"."""
    text = line.removeprefix(".It ").replace(" Ns Op / Ns Ar ", "/")  # CATEGORY[/KEY] has two parts in the page
    names = re.findall(r"Fl (\S+)", text)
    value = re.search(r" Ar (\S+)", text)
    return {f"-{name} {value[1]}" if value else f"-{name}" for name in names}


def read_page(text):
    """Options and argument lines by section or subsection, and which other section's options belong to it."""
    sections, chapter, name = {}, "", ""
    for line in text.splitlines():
        if line.startswith((".Sh ", ".Ss ")):
            name = line[4:]
            chapter = name if line.startswith(".Sh ") else chapter
            sections[name] = {"chapter": chapter, "options": set(), "usage": None, "also": []}
        elif line.startswith(".It Fl "):
            found = read_item(line)
            if found & sections[name]["options"]:
                raise SystemExit(f"{name}: described twice: {found & sections[name]['options']}")
            sections[name]["options"] |= found
        elif line.startswith(".Sx "):
            sections[name]["also"].append(line[4:].rstrip(" ,."))
        elif match := re.match(r"\.D1 Nm Cm (\S+)(?: Ar (.*))?$", line):
            sections[name]["usage"] = match[1], match[2] or ""
    return sections


def options_of(command):
    found = set()
    for option in command.options:
        value = option.value.replace("[/", "/").replace("]", "")
        found |= {f"{name} {value}" if value else name for name in option.names}
    return found


def usage_of(command):
    return command.name, " ".join(p.name + (" ..." if p.many else "") for p in command.positionals)


def compare(what, page, program):
    for missing in sorted(program - page):
        yield f"{what}: the page lacks {missing}"
    for extra in sorted(page - program):
        yield f"{what}: the page has {extra}, which the command does not"


def differences(sections, commands):
    common = sections[COMMON]["options"]
    reading = sections[READING]["options"]
    yield from compare("without a command", common | reading | sections[WITHOUT_COMMAND]["options"], options_of(commands[""]))
    described = {name for name, section in sections.items() if section["chapter"] == "COMMANDS"} - {"COMMANDS"}
    yield from compare("commands", described, set(commands) - {""})
    used = {COMMON, READING, WITHOUT_COMMAND} | described
    for name in sorted(described & set(commands)):
        section = sections[name]
        page = common | section["options"]
        if any(positional.name == "DEVICE" for positional in commands[name].positionals):
            page |= reading
        for other in section["also"]:
            page |= sections[other]["options"]
            used.add(other)
        yield from compare(name, page, options_of(commands[name]))
        if section["usage"] != usage_of(commands[name]):
            yield f"{name}: the page says {section['usage']}, the command {usage_of(commands[name])}"
    for name, section in sections.items():
        if section["options"] and name not in used:
            yield f"no command takes the options of {name}"


def main():
    if len(sys.argv) != 3:
        raise SystemExit(__doc__)
    found = list(differences(read_page(pathlib.Path(sys.argv[2]).read_text()), read_help(sys.argv[1])))
    if found:
        raise SystemExit("\n".join([f"{sys.argv[2]} differs from photolib --help:", *found]))


main()
