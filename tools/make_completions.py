#!/usr/bin/env python3
"""Writes the shells' completions of tarnwick-cli from the program's own help.

Usage: make_completions.py PATH/TO/tarnwick-cli [FOLDER]. Writes tarnwick-cli.bash, _tarnwick-cli (zsh) and
tarnwick-cli.fish into packaging/completions, or into FOLDER. tests/packaging compares the committed files
with what this makes, so after a change of the command line run it and commit the result.
"""

import pathlib
import re
import subprocess
import sys
from typing import NamedTuple

FOLDER = pathlib.Path(__file__).resolve().parent.parent / "packaging" / "completions"
NOTE = "# Made by tools/make_completions.py from the program's help."
# What a reader of the help knows and this does not: the values that are worth offering.
VALUES = {"--heuristics": ["auto", "none"], "--memory": ["20%"], "--to": ["cp", "epd", "pgn"],
          "--style": ["print", "window", "hatched", "plain"]}


def endings_in(text):
    """Endings of files that a text names like "(.cp, .epd)"."""
    named = re.search(r"\((\.[^)]*)\)", text)
    return re.findall(r"\.(\w+)", named[1]) if named else []


class Option(NamedTuple):
    names: list  # "-o", "--output"
    value: str  # as help prints it, like FILE; empty for a flag
    text: str

    def words(self):
        """The values that can be offered, for options that are neither flags nor names of files."""
        listed = self.value.split("|") if "|" in self.value else []
        return listed or next((VALUES[name] for name in self.names if name in VALUES), [])

    def endings(self):
        """Of the files that the option takes; empty for any."""
        return endings_in(self.text)

    def short(self):
        """The first sentence or so: shells show one line."""
        return re.split(r"[.:;] |, without ", re.sub(r" \([^)]*\)", "", self.text))[0]


class Command(NamedTuple):
    name: str
    text: str
    options: list
    files: list  # endings of the files that stand without an option; empty: any; None: there are none
    words: list = []  # its own commands, as `tables` has them; their options are among its options


def help_of(program, *words):
    return subprocess.run([program, "help", *words], capture_output=True, text=True, check=True).stdout


def entries(text, heading):
    """The (left, right) pairs under a heading; a right side may stand on the next line."""
    block = re.search(rf"^{heading}:\n((?:  .*\n)*)", text, re.M)
    pairs = []
    for line in block[1].splitlines() if block else []:
        if line.startswith(" " * 20):
            pairs[-1] = (pairs[-1][0], line.strip())
            continue
        left, _, right = line.strip().partition("  ")
        long_name = re.match(r"(--[\w-]+) ([A-Z][a-z].*)", left)  # no room for the second blank
        if long_name and not right:
            left, right = long_name.groups()
        pairs.append((left, right.strip()))
    return pairs


def option_of(left, right):
    names, *rest = left.split(" ")
    has_value = rest and not rest[0].endswith(":") and rest[0] != "REQUIRED"
    if not names.startswith("-") or not right:
        sys.exit(f"make_completions.py cannot read this line of the help: {left!r}")
    return Option(names.split(","), rest[0] if has_value else "", right)


def read_command(program, name, text):
    page = help_of(program, name)
    inner = [word for word, _ in entries(page, "Subcommands")]
    if inner:
        options = {}
        for word in inner:
            for pair in entries(help_of(program, name, word), "Options"):
                options.setdefault(pair[0], option_of(*pair))
        return Command(name, text, list(options.values()), None, inner)
    named = [endings_in(what) for _, what in entries(page, "Positionals") if "file" in what]
    files = (sum(named, []) if all(named) else []) if named else None
    return Command(name, text, [option_of(*pair) for pair in entries(page, "Options")], files)


def read_program(program):
    """(options of the program itself, its commands)."""
    page = help_of(program)
    commands = [read_command(program, *pair) for pair in entries(page, "Subcommands")]
    return [option_of(*pair) for pair in entries(page, "Options")], commands


def all_names(options):
    return " ".join(name for option in options for name in option.names)


# bash


def bash_filedir(endings):
    return f"_filedir '@({'|'.join(endings)})'" if endings else "_filedir"


def bash_value(option):
    """What completes the option's value; empty: nothing can."""
    if option.value == "FILE":
        return bash_filedir(option.endings())
    if option.value in ("FOLDER", "DIR"):
        return "_filedir -d"
    words = " ".join(option.words())
    return f"COMPREPLY=($(compgen -W '{words}' -- \"$cur\"))" if words else ""


def bash_values(commands):
    """The branches that complete values, one for each way."""
    options_of = {}
    for command in commands:
        for option in command.options:
            if option.value:
                names = [f"{command.name}:{name}" for name in option.names]
                options_of.setdefault(bash_value(option), []).extend(names)
    lines = []
    for action, names in options_of.items():
        lines.append("        " + " | \\\n        ".join(names) + ")")
        lines += [f"            {line}" for line in (action, "return", ";;") if line]
    return "\n".join(lines)


def bash_file(options, commands):
    names = " ".join(command.name for command in commands)
    words = "".join(f"        {command.name}) options='{all_names(command.options)}' ;;\n"
                    for command in commands)
    files = "".join(f"        {command.name}) {bash_filedir(command.files)} ;;\n"
                    for command in commands if command.files is not None)
    files += "".join(
        f"        {command.name}) COMPREPLY=($(compgen -W '{' '.join(command.words)}' -- \"$cur\")) ;;\n"
        for command in commands if command.words)
    return f"""# bash completion for tarnwick-cli
{NOTE}

_tarnwick_cli() {{
    local cur prev words cword split
    _init_completion -s -n : || return
    local command="" options="" word
    for word in "${{words[@]:1:cword-1}}"; do
        if [[ $word != -* ]]; then
            command=$word
            break
        fi
    done
    case $command:$prev in
{bash_values(commands)}
    esac
    case $command in
        "") options='{all_names(options)} {names}' ;;
{words}    esac
    if [[ $cur == -* || -z $command ]]; then
        COMPREPLY=($(compgen -W "$options" -- "$cur"))
        return
    fi
    case $command in
{files}        help) COMPREPLY=($(compgen -W '{names}' -- "$cur")) ;;
    esac
}}

complete -F _tarnwick_cli tarnwick-cli
"""


# zsh


def zsh_quoted(text):
    return "'" + re.sub(r"([\[\]:\\])", r"\\\1", text).replace("'", "'\\''") + "'"


def zsh_files(endings):
    return f"_files -g \"*.({'|'.join(endings)})(-.)\"" if endings else "_files"


def zsh_option(option):
    text = zsh_quoted(option.short())[1:-1]
    action = ""
    if option.value == "FILE":
        action = f":file:{zsh_files(option.endings())}"
    elif option.value in ("FOLDER", "DIR"):
        action = ":folder:_files -/"
    elif option.value:
        words = " ".join(option.words())
        action = f":{option.value.lower()}:" + (f"({words})" if words else " ")
    if len(option.names) == 1:
        return f"'{option.names[0]}[{text}]{action}'"
    return f"'({' '.join(option.names)})'{{{','.join(option.names)}}}'[{text}]{action}'"


def zsh_command(command, names):
    lines = [zsh_option(option) for option in command.options]
    if command.files is not None:
        lines.append(f"'*:file:{zsh_files(command.files)}'")
    elif command.name == "help":
        lines.append(f"'1:command:({names})'")
    elif command.words:
        lines.append(f"'1:command:({' '.join(command.words)})'")
    return f"        {command.name})\n            _arguments " + " \\\n                ".join(lines) + \
        "\n            ;;\n"


def zsh_file(options, commands):
    names = " ".join(command.name for command in commands)
    described = "\n".join(f"        {zsh_quoted(command.name)[:-1]}:{zsh_quoted(command.text)[1:]}"
                          for command in commands)
    return f"""#compdef tarnwick-cli
{NOTE}

_tarnwick_cli() {{
    local -a commands=(
{described}
    )
    local state line
    _arguments -C \\
        {(' ' + chr(92) + chr(10) + '        ').join(zsh_option(option) for option in options)} \\
        '1: :->command' '*:: :->words'
    if [[ $state == command ]]; then
        _describe command commands
        return
    fi
    case $line[1] in
{''.join(zsh_command(command, names) for command in commands)}    esac
}}

_tarnwick_cli "$@"
"""


# fish


def fish_quoted(text):
    return "'" + text.replace("\\", "\\\\").replace("'", "\\'") + "'"


def fish_option(condition, option):
    words = [f"complete -c tarnwick-cli -n {fish_quoted(condition)}"]
    words += ["-l " + name[2:] if name.startswith("--") else "-s " + name[1:] for name in option.names]
    if option.value == "FILE":
        endings = option.endings()
        words.append(f"-x -a '(__fish_complete_suffix .{endings[0]})'" if endings else "-r -F")
    elif option.value in ("FOLDER", "DIR"):
        words.append("-x -a '(__fish_complete_directories)'")
    elif option.value:
        words.append("-x" + (f" -a {fish_quoted(' '.join(option.words()))}" if option.words() else ""))
    return " ".join(words) + f" -d {fish_quoted(option.short())}\n"


def fish_command(command, names):
    condition = f"__fish_seen_subcommand_from {command.name}"
    start = f"complete -c tarnwick-cli -n {fish_quoted(condition)} -x -a "
    text = "".join(fish_option(condition, option) for option in command.options)
    if command.files is not None:
        calls = "; ".join(f"__fish_complete_suffix .{ending}" for ending in command.files)
        text += start + fish_quoted(f"({calls or '__fish_complete_path'})") + "\n"
    elif command.name == "help":
        text += start + fish_quoted(names) + "\n"
    elif command.words:
        text += start + fish_quoted(" ".join(command.words)) + "\n"
    return text


def fish_file(options, commands):
    first = "__fish_use_subcommand"
    names = " ".join(command.name for command in commands)
    text = f"# fish completion for tarnwick-cli\n{NOTE}\n\ncomplete -c tarnwick-cli -f\n"
    text += "".join(fish_option(first, option) for option in options)
    text += "".join(f"complete -c tarnwick-cli -n {first} -x -a {command.name} -d "
                    f"{fish_quoted(command.text)}\n" for command in commands)
    return text + "".join(fish_command(command, names) for command in commands)


def main(program, folder=FOLDER):
    options, commands = read_program(program)
    for name, make in (("tarnwick-cli.bash", bash_file), ("_tarnwick-cli", zsh_file),
                       ("tarnwick-cli.fish", fish_file)):
        (pathlib.Path(folder) / name).write_text(make(options, commands), encoding="utf-8")


if __name__ == "__main__":
    if len(sys.argv) not in (2, 3):
        sys.exit(__doc__)
    main(*sys.argv[1:])
