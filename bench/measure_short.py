#!/usr/bin/env python3
"""All keys of every problem of short.cp, each in a process of its own, beside the measured peers.

usage: bench/measure_short.py [PROGRAM] [--data DIR] [--only N]

Prints, for each length, the geometric mean from process start to end (wall clock, and processor time,
which a busy machine disturbs less) and Popeye's on the same problems, scaled by nothing: the first line of
peers.tsv says how to compare machines. Exit status 1 if a key set differs from the file's answer.
"""
import argparse
import json
import math
import os
import re
import resource
import subprocess
import sys
import time

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))


def problems(path):
    text = open(path, encoding="utf-8").read()
    for found in re.finditer(r"(\d+) #(\d+)[^\n]*\n\{(.*?)\n\}", text, re.S):
        body = found.group(3)
        keys = re.search(r"Answer:\s*(.*)", body).group(1)
        yield (found.group(1), int(found.group(2)), re.search(r"FEN: (\S+)", body).group(1),
               sorted(key.strip() for key in keys.split(",")))


def popeye_times(path):
    times = {}
    for line in open(path, encoding="utf-8"):
        cells = line.rstrip("\n").split("\t")
        if len(cells) == 8 and cells[3] == "popeye-all-keys" and cells[0].startswith("short."):
            times[cells[0][6:]] = float(cells[6])
    return times


def mean(values):
    return math.exp(sum(map(math.log, values)) / len(values))


def solve(program, fen, moves):
    before = resource.getrusage(resource.RUSAGE_CHILDREN)
    start = time.perf_counter()
    done = subprocess.run([program, "solve", "--all", "--json", "--threads", "1", "--fen", fen,
                           "--mate", str(moves)],
                          capture_output=True, text=True)
    wall = time.perf_counter() - start
    after = resource.getrusage(resource.RUSAGE_CHILDREN)
    cpu = after.ru_utime + after.ru_stime - before.ru_utime - before.ru_stime
    return json.loads(done.stdout), wall, max(cpu, 1e-4)


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n")[0])
    parser.add_argument("program", nargs="?",
                        default=os.path.join(ROOT, "build/release/src/cli/tarnwick-cli"))
    parser.add_argument("--data", default=os.path.join(ROOT, "..", "shared", "data"))
    parser.add_argument("--only", type=int, help="problems of this length alone")
    arguments = parser.parse_args()
    peers = popeye_times(os.path.join(arguments.data, "peers.tsv"))
    rows, wrong = {}, 0
    for number, moves, fen, keys in problems(os.path.join(arguments.data, "short.cp")):
        if arguments.only in (None, moves):
            answer, wall, cpu = solve(arguments.program, fen, moves)
            if sorted(answer["keys"]) != keys:
                wrong += 1
                print(f"problem {number}: found {answer['keys']}, expected {keys}")
            rows.setdefault(moves, []).append((wall, cpu, peers.get(number), answer["nodes"]))
    print(" n  problems   wall s    cpu s   popeye s   popeye/wall   popeye/cpu        nodes")
    for moves, row in sorted(rows.items()):
        wall, cpu = mean([r[0] for r in row]), mean([r[1] for r in row])
        peer = mean([r[2] for r in row if r[2]])
        print(f"{moves:2} {len(row):9} {wall:8.4f} {cpu:8.4f} {peer:10.4f} {peer / wall:13.1f}"
              f" {peer / cpu:12.1f} {sum(r[3] for r in row):12,}")
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main())
