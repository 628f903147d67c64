#!/usr/bin/env python3
"""Writes problems/longest_wins.cp: of each table of three and four men the longest win.

Usage: make_longest_wins.py PATH/TO/tarnwick-cli FOLDER, the folder holding the complete tables
(tarnwick-cli tables generate --men 4 --with-dependencies --data FOLDER).

Out of the positions with the longest mate the first one with the fewest keys is taken. What the engine does
not find by itself in ten seconds asks for its table by "Requires".
"""

import json
import pathlib
import subprocess
import sys

TARGET = pathlib.Path(__file__).resolve().parent.parent / "problems" / "longest_wins.cp"
NAMES = {"Q": "queen", "R": "rook", "B": "bishop", "N": "knight", "P": "pawn"}
TRIED = 40  # positions of each type at most


def rows(*arguments):
    """The lines of JSON that the program prints."""
    done = subprocess.run(arguments, capture_output=True, text=True, check=False)
    return [json.loads(line) for line in done.stdout.splitlines() if line.startswith("{")]


def solved(cli, position, *options):
    answer = rows(cli, "solve", "--json", "--threads", "1", "--fen", position["fen"],
                  "--mate", str(position["mate"]), *options)
    return answer[0] if answer else {"status": "open", "keys": []}


def side(letters):
    """As in "king, queen and pawn"."""
    names = ["king"] + [NAMES[letter.upper()] for letter in letters]
    return " and ".join([", ".join(names[:-1]), names[-1]]) if len(names) > 1 else names[0]


def problem(cli, data, kind):
    positions = rows(cli, "tables", "longest", kind, "--count", str(TRIED), "--json", "--data", data)
    positions = [p for p in positions if p["mate"] == positions[0]["mate"]]
    if not positions:
        return None
    for position in positions:
        position["keys"] = solved(cli, position, "--all", "--data", data)["keys"]
        if not position["keys"]:
            sys.exit(f"{position['fen']}: solve --data finds no key; are the tables complete?")
    return min(positions, key=lambda p: len(p["keys"]))


def main():
    cli, data = sys.argv[1:3]
    kinds = [row["type"] for row in rows(cli, "tables", "list", "--json", "--data", data)]
    found = [(kind, problem(cli, data, kind)) for kind in kinds if len(kind) <= 2]
    found = [(kind, position) for kind, position in found if position]
    lines = ["UTF-8", "", ""]
    for number, (kind, position) in enumerate(found, 1):
        white = side([letter for letter in kind if letter.isupper()])
        black = side([letter for letter in kind if letter.islower()])
        alone = solved(cli, position, "--time", "10")["status"] == "mate"
        moves = f"{position['mate']} move" + ("s" if position["mate"] > 1 else "")
        lines += [f"{number} #{position['mate']}" + ("" if alone else f" Requires {kind}"), "{",
                  f"\tDescription: {white} against {black}: the longest win, {moves}",
                  f"\tFEN: {position['fen'].split()[0]}",
                  "\tAnswer:  " + ", ".join(position["keys"]), "}", ""]
        print(kind, position["mate"], len(position["keys"]), "" if alone else "Requires", flush=True)
    TARGET.write_text("\n".join(lines), encoding="utf-8")


main()
