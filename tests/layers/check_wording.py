#!/usr/bin/env python3
"""Finds words that point outside the project.

Comments, tests and documents speak for themselves: they give the reason of a rule, which a reader can
judge, instead of a place where the rule was read, which the reader may not have.

Usage: check_wording.py ROOT. Looks through the files that git tracks or would track; without git, through
all but build/. Prints "file:line: text" for each hit; status 1 if any.
"""

import os
import pathlib
import re
import subprocess
import sys

# Written in pieces, so that this file does not find itself.
SPEC = "spec"
LONG_SPEC = SPEC + "ification"
FIRST = "orig" + "inal"
POINTERS = re.compile("|".join([
    rf"\b{SPEC}\.md\b",
    rf"\bshared/{SPEC}",
    r"\bPar" + r"ts? [1-8]\.[0-9]",
    rf"\bthe {LONG_SPEC}",
    rf"\bas {SPEC}ified",
    rf"\b(?:per|by|in) (?:the )?{SPEC}\b",
    r"\bas requ" + r"ired by\b",
    r"\bsee sec" + r"tion\b",
    rf"\b{FIRST} (?:program|author|implementation|code|version)",
    r"\bre-?impl" + r"ement",
]), re.IGNORECASE)

# Fixed texts that the user sees.
ALLOWED = re.compile(rf"figure {LONG_SPEC} is invalid", re.IGNORECASE)


def walked_files(root):
    for folder, names, files in os.walk(root):
        names[:] = [name for name in names if name not in (".git", "build", "__pycache__")]
        yield from (pathlib.Path(folder) / name for name in files)


def project_files(root):
    listed = subprocess.run(
        ["git", "-C", str(root), "ls-files", "-z", "--cached", "--others", "--exclude-standard"],
        capture_output=True, check=False)
    if listed.returncode != 0:
        return sorted(walked_files(root))
    names = [os.fsdecode(name) for name in listed.stdout.split(b"\0") if name]
    return [root / name for name in sorted(set(names)) if (root / name).is_file()]


def hits(path):
    """Yields (line number, line); a file with NUL bytes is no text and has none."""
    content = path.read_bytes()
    if b"\0" in content:
        return
    for number, line in enumerate(content.decode("utf-8", errors="replace").splitlines(), 1):
        if POINTERS.search(ALLOWED.sub("", line)):
            yield number, line.strip()


def main(root):
    root = pathlib.Path(root)
    files = project_files(root)
    found = [f"{path.relative_to(root)}:{number}: {line}"
             for path in files for number, line in hits(path)]
    found += [f"{path.relative_to(root)}: the file's name" for path in files
              if POINTERS.search(str(path.relative_to(root)))]
    print("\n".join(found) if found else f"{len(files)} files, no hit")
    return 1 if found or not files else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1]))
