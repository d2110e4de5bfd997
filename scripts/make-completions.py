#!/usr/bin/env python3
"""Writes the completions of bash, zsh and fish from the command's own help.

Usage: scripts/make-completions.py PHOTOLIB [FOLDER]

PHOTOLIB is the built command, FOLDER where the files go: apps/cli/completions when it is not given.
"""
import pathlib
import sys

from command_help import read_categories, read_help

FILES = {"FILE"}
FOLDERS = {"DEVICE", "DIR", "DEST", "FOLDER"}
MADE = "Made by scripts/make-completions.py from the command's own help."


def words(values):
    return " ".join(values)


def short(text):
    """A description as a list of completions has room for."""
    return text if len(text) <= 100 else text.partition(";")[0].partition(":")[0]


def choices_of(option, categories):
    return option.choices or (categories if option.value.startswith("CATEGORY") else [])


# ------------------------------------------------------------------------------------------------------------- bash

BASH = r"""# Completions of photolib for bash. @MADE@

# The options of a command; those before any command where it is empty.
_photolib_options() {
    case $1 in
@OPTIONS@
    esac
}

# What follows an option, or stands at a place: "files", "folders", "nothing", or the words themselves.
# Nothing is printed for an option without a value.
_photolib_value() {
    case $1 in
@VALUES@
    esac
}

_photolib() {
    local current=${COMP_WORDS[COMP_CWORD]} command='' previous='' word kind
    local -i index place=0
    COMPREPLY=()
    # bash takes "--era=ios15" for three words.
    for ((index = 1; index < COMP_CWORD; ++index)); do
        word=${COMP_WORDS[index]}
        if [[ $word == '=' && $previous == -* ]]; then
            continue
        elif [[ $previous == -* && -n $(_photolib_value "$command $previous") ]]; then
            previous=''
            continue
        fi
        previous=$word
        if [[ $word != -* ]]; then
            if [[ -z $command ]]; then command=$word; else place+=1; fi
        fi
    done
    [[ $current == '=' ]] && current=''

    kind=''
    [[ $previous == -* ]] && kind=$(_photolib_value "$command $previous")
    if [[ -z $kind && $current == -* ]]; then
        kind=$(_photolib_options "$command")
    elif [[ -z $kind && -z $command ]]; then
        kind='@COMMANDS@'
    elif [[ -z $kind ]]; then
        kind=$(_photolib_value "$command $place")
    fi
    case $kind in
    files) mapfile -t COMPREPLY < <(compgen -f -- "$current") ;;
    folders) mapfile -t COMPREPLY < <(compgen -d -- "$current") ;;
    nothing) return ;;
    *) mapfile -t COMPREPLY < <(compgen -W "$kind" -- "$current") ;;
    esac
    # Only possible while bash completes.
    [[ $kind == files || $kind == folders ]] && compopt -o filenames 2>/dev/null
    return 0
}

complete -F _photolib photolib
"""


def bash_kind(value, choices):
    if choices:
        return words(choices)
    return "files" if value in FILES else "folders" if value in FOLDERS else "nothing"


def make_bash(commands, categories):
    options, values = [], []
    for name, command in commands.items():
        names = [spelling for option in command.options for spelling in option.names]
        options.append(f"    '{name}') echo '{words(names)}' ;;")
        for option in command.options:
            if option.value:
                keys = " | ".join(f"'{name} {spelling}'" for spelling in option.names)
                values.append(f"    {keys}) echo '{bash_kind(option.value, choices_of(option, categories))}' ;;")
        for place, positional in enumerate(command.positionals):
            pattern = f"'{name} '*" if positional.many else f"'{name} {place}'"
            values.append(f"    {pattern}) echo {bash_kind(positional.name, [])} ;;")
    text = BASH.replace("@MADE@", MADE).replace("@COMMANDS@", words(list(commands)[1:]))
    return text.replace("@OPTIONS@", "\n".join(options)).replace("@VALUES@", "\n".join(values))


# -------------------------------------------------------------------------------------------------------------- zsh

ZSH = r"""#compdef photolib
# Completions of photolib for zsh. @MADE@

_photolib() {
    local curcontext=$curcontext state line ret=1
    local -a commands
    local -A opt_args
    _arguments -s -C \
@GLOBAL@
        '1: :->command' \
        '*:: :->arguments' && ret=0

    case $state in
    command)
        commands=(
@COMMANDS@
        )
        _describe -t commands 'photolib command' commands && ret=0
        ;;
    arguments)
        curcontext=${curcontext%:*:*}:photolib-$line[1]:
        case $line[1] in
@CASES@
        esac
        ;;
    esac
    return ret
}

_photolib "$@"
"""


def zsh_quote(text):
    return "'" + text.replace("'", "'\\''") + "'"


def zsh_action(value, choices):
    if choices:
        return "(" + words(choices) + ")"
    return "_files" if value in FILES else "_files -/" if value in FOLDERS else " "


def zsh_option(option, categories):
    lines = []
    for spelling in option.names:
        excluded = list(option.excludes)
        if not option.many:
            excluded += option.names
        spec = f"({words(excluded)})" if excluded else ""
        spec += "*" if option.many else ""
        spec += spelling + ("=" if option.value and spelling.startswith("--") else "+" if option.value else "")
        spec += "[" + short(option.text).replace("]", "\\]").replace("[", "\\[") + "]"
        if option.value:
            spec += f":{option.value}:" + zsh_action(option.value, choices_of(option, categories))
        lines.append(zsh_quote(spec))
    return lines


def zsh_command(command, categories, indent):
    specs = [spec for option in command.options for spec in zsh_option(option, categories)]
    for place, positional in enumerate(command.positionals, 1):
        start = "*" if positional.many else str(place)
        specs.append(zsh_quote(f"{start}:{positional.name}:{zsh_action(positional.name, [])}"))
    return (" \\\n" + " " * indent).join(specs)


def make_zsh(commands, categories):
    program, *rest = commands.values()
    listed = "\n".join(" " * 12 + zsh_quote(f"{c.name}:{c.text}") for c in rest)
    cases = []
    for command in rest:
        cases.append(f"        {command.name})\n            _arguments -s \\\n" + " " * 16
                     + zsh_command(command, categories, 16) + " && ret=0\n            ;;")
    text = ZSH.replace("@MADE@", MADE).replace("@COMMANDS@", listed)
    text = text.replace("@GLOBAL@", " " * 8 + zsh_command(program, categories, 8) + " \\")
    return text.replace("@CASES@", "\n".join(cases))


# ------------------------------------------------------------------------------------------------------------- fish

FISH = r"""# Completions of photolib for fish. @MADE@

function __photolib_command --description 'The command on the line, or nothing'
    set -l words (commandline -opc)
    set -e words[1]
    while set -q words[1]
        switch $words[1]
            case @WITH_VALUE@
                set -e words[1]
            case '-*'
            case '*'
                echo $words[1]
                return
        end
        set -e words[1]
    end
end

function __photolib_is --description 'Whether the command on the line is this one; none of them without an argument'
    set -l command (__photolib_command)
    test "$command" = "$argv[1]"
end

complete -c photolib -f
"""


def fish_quote(text):
    return "'" + text.replace("\\", "\\\\").replace("'", "\\'") + "'"


def fish_value(value, choices):
    if choices:
        return " -x -a " + fish_quote(words(choices))
    if value in FILES:
        return " -r -F"
    return " -x -a '(__fish_complete_directories)'" if value in FOLDERS else " -x"


def make_fish(commands, categories):
    program = commands[""]
    with_value = [name for option in program.options if option.value for name in option.names]
    lines = [FISH.replace("@MADE@", MADE).replace("@WITH_VALUE@", words(with_value)).rstrip("\n")]
    for name, command in commands.items():
        condition = f"__photolib_is {name}".rstrip()
        start = f"complete -c photolib -n '{condition}'"
        lines.append("")
        for subcommand in command.subcommands:
            lines.append(f"{start} -a {subcommand} -d {fish_quote(commands[subcommand].text)}")
        for option in command.options:
            spelled = "".join(f" -l {n[2:]}" if n.startswith("--") else f" -s {n[1:]}" for n in option.names)
            value = fish_value(option.value, choices_of(option, categories)) if option.value else ""
            lines.append(f"{start}{spelled}{value} -d {fish_quote(short(option.text))}")
        if any(positional.name in FOLDERS for positional in command.positionals):
            lines.append(f"{start} -a '(__fish_complete_directories)'")
    return "\n".join(lines) + "\n"


def main():
    if len(sys.argv) not in (2, 3):
        raise SystemExit(__doc__)
    photolib = sys.argv[1]
    default = pathlib.Path(__file__).resolve().parent.parent / "apps/cli/completions"
    folder = pathlib.Path(sys.argv[2]) if len(sys.argv) == 3 else default
    commands, categories = read_help(photolib), read_categories(photolib)
    (folder / "photolib.bash").write_text(make_bash(commands, categories))
    (folder / "_photolib").write_text(make_zsh(commands, categories))
    (folder / "photolib.fish").write_text(make_fish(commands, categories))


main()
