#!/usr/bin/env python3
"""Asks shells what they complete, and compares it with the command's own help, in both directions.

Usage: check_completions.py PHOTOLIB FOLDER SHELL...     SHELL: bash, zsh or fish
"""
import pathlib
import re
import subprocess
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "scripts"))
from command_help import read_help

# Each prints what its shell offers, one a line, for the last of its arguments.
BASH = r"""
source "$1/photolib.bash"
COMP_WORDS=(photolib "${@:2}")
COMP_CWORD=$(($# - 1))
_photolib
printf '%s\n' "${COMPREPLY[@]}"
"""
FISH = r"""
source $argv[1]/photolib.fish
complete -C (string join -- ' ' photolib $argv[2..])
"""
# What the file hands to zsh's own functions, as completing needs a terminal. In their place: functions that print.
ZSH = r"""
folder=$1
shift
_describe() { print -rl -- ${(P)4} }
_arguments() {
    if [[ $argv[(r)-C] == -C ]]; then
        (( $#words > 1 )) && { state=arguments line=($words[1]); return 0 }
        [[ $words[1] == -* ]] || { state=command; return 0 }
    fi
    print -rl -- "$@"
}
words=("$@")
source $folder/_photolib
"""
PROGRAMS = {"bash": ["bash", "-c", BASH, "bash"], "fish": ["fish", "-N", "-c", FISH], "zsh": ["zsh", "-f", "-c", ZSH, "zsh"]}


def offered(shell, folder, words):
    answer = subprocess.run([*PROGRAMS[shell], folder, *words], check=True, capture_output=True, text=True)
    if answer.stderr:
        raise SystemExit(f"{shell}: {answer.stderr}")
    lines = [line.split("\t")[0] for line in answer.stdout.splitlines()]
    if shell == "zsh" and words[-1].startswith("-"):
        found = [re.match(r"(?:\([^)]*\))?\*?(--?[\w-]+)[=+]?\[", line) for line in lines]
        return {match[1] for match in found if match}
    return {line.partition(":")[0] for line in lines} if shell == "zsh" else set(lines)


def compare(what, shell, found, wanted):
    for missing in sorted(wanted - found):
        yield f"{shell} lacks {what} {missing}"
    for extra in sorted(found - wanted):
        yield f"{shell} offers {what} {extra}, which the command does not know"


def differences(shell, folder, commands):
    yield from compare("the command", shell, offered(shell, folder, [""]), set(commands) - {""})
    for name, command in commands.items():
        line = [name] if name else []
        found = offered(shell, folder, [*line, "-"])
        if shell == "fish":  # which offers short options for "-", and all long ones for "--"
            found |= offered(shell, folder, [*line, "--"])
        yield from compare(f"{name or 'photolib'}:", shell, found, command.option_names())
        for option in command.options:
            if shell != "zsh" and option.choices:
                values = offered(shell, folder, [*line, option.names[-1], ""])
                yield from compare(f"{name} {option.names[-1]}", shell, values, set(option.choices))


def main():
    if len(sys.argv) < 4 or not set(sys.argv[3:]) <= set(PROGRAMS):
        raise SystemExit(__doc__)
    photolib, folder, *shells = sys.argv[1:]
    commands = read_help(photolib)
    found = [line for shell in shells for line in differences(shell, folder, commands)]
    if found:
        raise SystemExit("\n".join([*found, "scripts/make-completions.py writes the completions anew"]))


main()
