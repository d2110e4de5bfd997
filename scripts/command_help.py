"""Reads what the command `photolib` says of itself: its commands and their options, from the real --help."""
import dataclasses
import re
import subprocess

# An option's names, its value, what may be said of it, and its description on this line or the next.
OPTION = re.compile(
    r"^  (?P<names>-[-\w]+(?:,-[-\w]+)*)"
    r"(?: (?P<value>[A-Z][A-Z0-9_/|\[\]-]*)(?P<rest>(?:[:=]\S*)?)(?=\s|$))?"
    r"(?P<remarks>(?: (?:\.\.\.|REQUIRED|(?:Excludes|Needs):(?: --[-\w]+)+|in \[[^\]]*\](?:=\S+)?))*)"
    r"(?:\s+(?P<text>\S.*))?$"
)
POSITIONAL = re.compile(r"^  (?P<name>[A-Z][A-Z0-9_/]*)(?P<many> \.\.\.)?(?: REQUIRED)?(?:\s+(?P<text>\S.*))?$")
SUBCOMMAND = re.compile(r"^  (?P<name>[a-z][-\w]*)(?:\s+(?P<text>\S.*))?$")


@dataclasses.dataclass
class Option:
    names: list
    value: str = ""
    choices: list = dataclasses.field(default_factory=list)
    many: bool = False
    excludes: list = dataclasses.field(default_factory=list)
    text: str = ""


@dataclasses.dataclass
class Positional:
    name: str
    many: bool = False
    text: str = ""


@dataclasses.dataclass
class Command:
    name: str
    text: str = ""
    options: list = dataclasses.field(default_factory=list)
    positionals: list = dataclasses.field(default_factory=list)
    subcommands: list = dataclasses.field(default_factory=list)

    def option_names(self):
        return {name for option in self.options for name in option.names}


def parse_option(match):
    rest = match["rest"] or ""
    remarks = match["remarks"]
    choices = re.match(r":\{([^}]*)\}", rest)
    excludes = re.search(r"Excludes:((?: --[-\w]+)+)", remarks)
    return Option(
        names=match["names"].split(","),
        value=match["value"] or "",
        choices=choices[1].split(",") if choices else [],
        many=" ..." in remarks,
        excludes=excludes[1].split() if excludes else [],
        text=match["text"] or "",
    )


def parse_help(name, lines):
    command = Command(name, lines[0])
    section, last = "", None
    for line in lines[1:]:
        if line and not line.startswith(" "):
            section, last = line.partition(":")[0] if line.endswith(":") else "", None
        elif not section or not line:
            continue
        elif line.startswith("   "):  # the description of a long line above
            last.text = (last.text + " " + line.strip()).strip()
        elif section == "Positionals" and (match := POSITIONAL.match(line)):
            last = Positional(match["name"], bool(match["many"]), match["text"] or "")
            command.positionals.append(last)
        elif section == "Subcommands" and (match := SUBCOMMAND.match(line)):
            last = Command(match["name"], match["text"] or "")
            command.subcommands.append(last.name)
        elif match := OPTION.match(line):
            last = parse_option(match)
            command.options.append(last)
        else:
            raise SystemExit(f"photolib {name} --help: not understood: {line!r}")
    return command


def read_help(photolib):
    """The program itself under the name "", and its commands by their names, in the order of its help."""

    def ask(*arguments):
        answer = subprocess.run([photolib, *arguments, "--help"], check=True, capture_output=True, text=True)
        return parse_help(" ".join(arguments), answer.stdout.splitlines())

    commands = {"": ask()}
    for name in commands[""].subcommands:
        commands[name] = ask(name)
    if len(commands) < 2 or any(not command.options for command in commands.values()):
        raise SystemExit("photolib --help: no commands or no options found")
    return commands


def read_categories(photolib):
    """The names of the categories of groups, which the command lists when it is given none of them."""
    answer = subprocess.run([photolib, "groups", "/", "--group", "?"], capture_output=True, text=True)
    names = re.search(r"the categories are (.*)", answer.stderr)
    if not names:
        raise SystemExit("photolib groups --group: names no categories: " + answer.stderr)
    return names[1].split(", ")
