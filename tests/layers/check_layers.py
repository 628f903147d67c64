#!/usr/bin/env python3
"""Checks who includes whom under src/, and a few rules that keep the folders apart.

Usage: check_layers.py ROOT. Prints one line "file:line: fault" for each fault; status 1 if any.
A new folder gets its line in MAY_INCLUDE, and CONTRIBUTING.md says what the folders know.
"""

import pathlib
import re
import sys

# Folder -> folders that its files may include besides their own.
MAY_INCLUDE = {
    "base": [],
    "platform": ["base"],
    "chess": ["base"],
    "problems": ["base", "platform", "chess"],
    "diagram": ["base", "chess"],
    "registers": ["base", "platform", "chess"],
    "tables": ["base", "platform", "chess"],
    "engine": ["base", "platform", "chess", "problems", "registers", "tables"],
    "cli": ["base", "platform", "chess", "problems", "diagram", "registers", "tables", "engine"],
    "app": ["base", "platform", "chess", "problems", "diagram", "registers", "tables", "engine"],
}

# Written into the build folder from these templates.
GENERATED = {"base/version.h": "base/version.h.in"}

INCLUDE = re.compile(r'^\s*#\s*include\s*(["<])([^">]+)[">]')
CONDITION = re.compile(r"^\s*#\s*(?:if|ifdef|ifndef|elif)\b(.*)")
ASSERT_SWITCH = re.compile(r"^\s*(?:!?\s*defined\s*\(?)?\s*NDEBUG\b")
OF_THE_SYSTEM = re.compile(r"^(sys|linux|netinet|arpa)/|^(unistd|fcntl|signal|pthread|dirent|termios|"
                           r"poll|dlfcn|sched|windows)\.h$|^csignal$")

# The one folder that knows the toolkit; nothing else may know this folder.
SHELL = "app/shell/"
OF_THE_TOOLKIT = re.compile(r"^Q[A-Z]|^Qt|^q[a-z]+\.h$")


def shell_fault(path, kind, name):
    """The fault of an #include outside the shell that reaches for it or for its toolkit, or None."""
    if path.startswith(SHELL):
        return None
    if kind == "<" and OF_THE_TOOLKIT.search(name):
        return f"<{name}> belongs to the toolkit: only {SHELL} may include it"
    if kind == '"' and name.startswith(SHELL):
        return f'"{name}" stands above everything: only {SHELL} may include it'
    return None


def include_fault(source, path, kind, name):
    """The fault of one #include, or None."""
    folder = path.split("/")[0]
    fault = shell_fault(path, kind, name)
    if fault:
        return fault
    if kind == "<":
        if folder != "platform" and OF_THE_SYSTEM.search(name):
            return f"<{name}> belongs to the operating system: only platform/ may call it"
        return None
    target = name.split("/")[0]
    if ".." in name.split("/") or target not in MAY_INCLUDE:
        return f'"{name}" is not written from src/'
    if not (source / GENERATED.get(name, name)).is_file():
        return f'"{name}" does not exist under src/'
    if target != folder and target not in MAY_INCLUDE[folder]:
        return f'{folder}/ may not include "{name}"'
    return None


def line_fault(source, path, line):
    """The fault of one line, or None."""
    folder = path.split("/")[0]
    include = INCLUDE.match(line)
    if include:
        return include_fault(source, path, include[1], include[2])
    condition = CONDITION.match(line)
    if condition and folder != "platform" and not ASSERT_SWITCH.match(condition[1]):
        return "conditional compilation belongs to platform/"
    return None


def file_faults(source, path):
    """Yields (line number, fault) of one file."""
    folder = path.relative_to(source).parts[0]
    if folder not in MAY_INCLUDE:
        yield 1, f"folder {folder}/ has no line in the table of {pathlib.Path(__file__).name}"
        return
    lines = path.read_text(encoding="utf-8").splitlines()
    if path.suffix == ".h" and "#pragma once" not in lines:
        yield 1, "a header begins with #pragma once"
    for number, line in enumerate(lines, 1):
        fault = line_fault(source, path.relative_to(source).as_posix(), line)
        if fault:
            yield number, fault


def main(root):
    source = pathlib.Path(root) / "src"
    files = sorted(path for path in source.rglob("*") if path.suffix in (".h", ".cpp"))
    faults = [f"{path.relative_to(root)}:{number}: {fault}"
              for path in files for number, fault in file_faults(source, path)]
    print("\n".join(faults) if faults else f"{len(files)} files, no fault")
    return 1 if faults or not files else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1]))
