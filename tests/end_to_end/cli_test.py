#!/usr/bin/env python3
"""Runs the program as a user or a script does: words in, two streams and a status out.

Usage: TARNWICK_CLI=/path/to/tarnwick-cli cli_test.py [unittest arguments]
"""

import json
import os
import pathlib
import pty
import re
import select
import shutil
import signal
import struct
import subprocess
import tempfile
import time
import unittest
import zlib
from xml.etree import ElementTree

CLI = os.environ.get("TARNWICK_CLI", "tarnwick-cli")
DATA = pathlib.Path(os.environ.get("TARNWICK_SHARED_DATA_DIR", os.environ.get("TARNWICK_DATA", "")))
SAMPLE = pathlib.Path(__file__).parents[2] / "problems" / "sample_problems.cp"
WINDOW = os.environ.get("TARNWICK_WINDOW") or None
PGN_READER = shutil.which("pgn-extract", path=os.environ.get("PATH", "") + ":/usr/games")

MATE_2 = "7k/8/5K2/8/8/8/8/6R1"  # only key Kf7
MATE_2_SWAPPED = "6r1/8/8/8/8/5k2/8/7K"
START = "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR"  # with a long stipulation: never ends
ENDLESS = "7k/8/p1p1p1p1/PpPpPpPp/1P1P1P1P/8/8/K1B5"
FOUR_KEYS = "7k/8/5KQ1/8/8/8/8/RR6"  # mates in one
FIELDS = ["id", "fen", "mate", "status", "keys", "all", "exact", "nodes", "ms", "message", "safe_mode",
          "register", "table_hits", "passes", "pass_found"]
PASS_FIELDS = ["name", "heuristics", "nodes", "ms", "keys", "result", "complete"]


def shared_position(name):
    """The placement of a problem of moremovers.epd; None: the file is missing."""
    path = DATA / "moremovers.epd"
    if not path.is_file():
        return None
    return re.search(rf'^(\S+) .* id "{re.escape(name)}";', path.read_text(), re.M)[1]


MATE_8 = shared_position("6-8.19")
needs_mate_8 = unittest.skipIf(MATE_8 is None, "moremovers.epd is missing")


def problem(number, stipulation, position=f"FEN: {MATE_2}", answer=""):
    """A problem of a .cp file."""
    return f"{number} {stipulation}\n{{\n\t{position}\n{answer}}}\n"


class CliCase(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def write(self, name, text):
        path = self.folder / name
        path.write_bytes(text if isinstance(text, bytes) else text.encode())
        return str(path)

    def run_cli(self, *words, stdin=""):
        """(status, standard output, standard error); the streams must be text."""
        done = subprocess.run([CLI, *map(str, words)], input=stdin, capture_output=True, text=True,
                              encoding="utf-8", timeout=300, check=False)
        return done.returncode, done.stdout, done.stderr

    def expect(self, status, *words, stdin=""):
        """Runs, checks the status, returns (standard output, standard error)."""
        found, out, err = self.run_cli(*words, stdin=stdin)
        self.assertEqual(found, status, f"{words}\n{out}\n{err}")
        return out, err

    def solve_json(self, status, *words, stdin=""):
        """The objects of solve --json."""
        out, _ = self.expect(status, "solve", "--json", *words, stdin=stdin)
        return [json.loads(line) for line in out.splitlines()]

    def start(self, *words, **options):
        process = subprocess.Popen([CLI, *map(str, words)], stdout=subprocess.PIPE,
                                   stderr=subprocess.PIPE, text=True, **options)
        self.addCleanup(process.stdout.close)
        self.addCleanup(process.stderr.close)
        self.addCleanup(process.wait)
        self.addCleanup(process.kill)
        return process


class Usage(CliCase):
    def test_no_words_print_the_help_as_wrong_usage(self):
        out, _ = self.expect(2)
        self.assertIn("solve", out)

    def test_help_of_all_commands_has_their_options(self):
        for command, word in [("solve", "--mate"), ("show", "--unicode"), ("lint", "--json"),
                              ("format", "--in-place"), ("analyze", "--no-trials"),
                              ("convert", "--to"), ("diagram", "--black-below"),
                              ("perft", "--divide"), ("bench", "--json")]:
            out, err = self.expect(0, command, "--help")
            self.assertIn(word, out)
            self.assertEqual(err, "")
            self.assertEqual(self.expect(0, "help", command)[0], out)
        self.assertIn("Exit status", self.expect(0, "--help")[0])

    def test_version(self):
        self.assertRegex(self.expect(0, "--version")[0], r"^Tarnwick \d+\.\d+\.\d+ .*\n$")

    def test_wrong_words(self):
        for words in (["frobnicate"], ["solve"], ["solve", "--fen", MATE_2], ["solve", "--mate", "2"],
                      ["solve", "--fen", MATE_2, "--mate", "0"], ["solve", "a.cp", "b.cp"],
                      ["solve", "a.cp", "--fen", MATE_2, "--mate", "2"], ["solve", ""],
                      ["solve", "a.cp", "--id", "9-4"], ["solve", "a.cp", "--time", "0"],
                      ["solve", "a.cp", "--time", "nan"], ["solve", "a.cp", "--time", "1s"],
                      ["solve", "a.cp", "--nodes", "-1"], ["solve", "a.cp", "--memory", "x"],
                      ["perft"], ["perft", "-1"], ["lint"], ["format"], ["bench", "x"],
                      ["convert"], ["convert", "a.cp"], ["convert", "a.cp", "-"],
                      ["convert", "a.cp", "b.txt"], ["convert", "a.cp", "b.cp", "--to", "doc"],
                      ["diagram"], ["diagram", "--fen", MATE_2, "--size", "5"],
                      ["diagram", "--fen", MATE_2, "--style", "baroque"],
                      ["format", "a.cp", "--in-place", "-o", "b.cp"]):
            out, err = self.expect(2, *words)
            self.assertEqual(out, "", words)
            self.assertIn("help", err, words)

    def test_fen_that_lost_its_quotes_gets_a_hint(self):
        _, err = self.expect(2, "solve", "--fen", MATE_2, "w", "-", "-", "--mate", "2")
        self.assertIn("quotes", err)

    def test_output_that_cannot_be_written_is_an_error(self):
        with open("/dev/full", "w", encoding="utf-8") as full:
            done = subprocess.run([CLI, "show", "--fen", MATE_2], stdout=full, text=True,
                                  stderr=subprocess.PIPE, check=False)
        self.assertEqual(done.returncode, 5)
        self.assertIn("disk", done.stderr)

    def test_reader_that_leaves_ends_the_program_quietly(self):
        path = self.write("a.cp", "".join(problem(i, "#2") for i in range(1, 20001)))
        process = self.start("show", path)
        process.stdout.readline()
        process.stdout.close()
        self.assertEqual(process.wait(60), -signal.SIGPIPE)
        self.assertEqual(process.stderr.read(), "")


class SolveJson(CliCase):
    def test_object_of_a_mate(self):
        out, err = self.expect(0, "solve", "--json", "--all", "--fen", MATE_2, "--mate", "2")
        self.assertEqual(err, "")
        found = json.loads(out)
        self.assertEqual(list(found), FIELDS)
        self.assertIs(type(found["nodes"]), int)
        self.assertIs(type(found["ms"]), int)
        found["nodes"] = found["ms"] = 0
        passes = found.pop("passes")
        self.assertEqual([list(one) for one in passes], [PASS_FIELDS] * len(passes))
        self.assertEqual([one["name"] for one in passes if one["keys"]], [found["pass_found"]])
        self.assertEqual(found, dict(zip([f for f in FIELDS if f != "passes"],
                                         [1, MATE_2, 2, "mate", ["Kf6-f7"], True, True, 0, 0, "",
                                          True, 0, 0, "0"])))

    def test_no_mate_is_a_proof(self):
        [found] = self.solve_json(1, "--fen", MATE_2, "--mate", "1")
        self.assertEqual([found[f] for f in ("status", "keys", "all", "exact")],
                         ["no-mate", [], False, True])

    def test_refused_problems(self):
        text = (problem(1, "#2", "White: Ke1, Ke2\n\tBlack: Ke8") + problem(2, "#301") +
                problem(3, "s#2") + problem(4, "") + problem(5, "#2", f"FEN: 6kR/8/6K1/8/8/8/8/8"))
        found = self.solve_json(3, self.write("a.cp", text))
        self.assertEqual([f["id"] for f in found], [1, 2, 3, 4, 5])
        for one in found:
            self.assertEqual((one["status"], one["keys"], one["exact"]), ("refused", [], False))
            self.assertNotEqual(one["message"], "")

    def test_options_of_the_problem_and_all(self):
        options = ["", "AllSolutions", "StopOnDual", "StopOn3Sol"]
        text = "".join(problem(number, f"#1 {option}", f"FEN: {FOUR_KEYS}")
                       for number, option in enumerate(options))
        path = self.write("a.cp", text)
        for found in self.solve_json(0, "--all", path):
            self.assertEqual(sorted(found["keys"]), ["Qg6-g7", "Ra1-a8", "Rb1-b8", "Rb1-h1"])
            self.assertEqual(found["message"], "")
        own = self.solve_json(0, path)
        self.assertEqual([found["all"] for found in own], [False, True, True, True])
        self.assertEqual([len(found["keys"]) for found in own], [1, 4, 2, 3])
        self.assertEqual([found["message"] != "" for found in own], [False, False, True, True])

    def test_difference_from_the_file_is_in_the_message(self):
        text = (problem(1, "#2 AllSolutions", answer="\tAnswer: Rg1-a1, Kf6-f7\n") +
                problem(2, "#2", answer="\tAnswer: Kf6-f7\n"))
        found = self.solve_json(0, self.write("a.cp", text))
        self.assertIn("Rg1-a1", found[0]["message"])
        self.assertEqual(found[1]["message"], "")

    def test_black_to_move_is_solved_with_colours_exchanged(self):
        lines = (f"{MATE_2_SWAPPED} b - - bm #2;\n{MATE_2} w - - bm #-2;\n{MATE_2} w - - bm #2;\n")
        out, err = self.expect(0, "solve", "--json", self.write("a.epd", lines))
        found = [json.loads(line) for line in out.splitlines()]
        self.assertEqual([(f["id"], f["fen"], f["keys"]) for f in found],
                         [(1, MATE_2, ["Kf6-f7"]), (3, MATE_2, ["Kf6-f7"])])
        self.assertIn("colours exchanged", found[0]["message"])
        self.assertRegex(err, r"a\.epd:2: .*#-2")

    def test_same_search_every_time(self):
        words = ["--all", "--fen", "r1bqk2r/pppp1ppp/2n2n2/2b1p3/2B1P3/2N2N2/PPPP1PPP/R1BQK2R",
                 "--mate", "3", "--threads", "1"]
        first, second = (self.solve_json(1, *words)[0]["nodes"] for _ in range(2))
        self.assertGreater(first, 0)
        self.assertEqual(first, second)


@needs_mate_8
class SolveFiles(CliCase):
    """What outlives a solve."""

    def solve8(self, *more, fen=MATE_8, mate="8", status=0):
        return self.solve_json_err(status, "--threads", "1", "--fen", fen, "--mate", mate, *more)

    def register8(self, file, *more, **options):
        """All keys are wanted: no shortcut to the first one leaves the register empty."""
        return self.solve8("--all", "--register", file, *more, **options)

    def solve_json_err(self, status, *words):
        out, err = self.expect(status, "solve", "--json", *words)
        return json.loads(out), err

    def test_register_goes_on_where_it_was(self):
        file = os.path.join(self.folder, "8.tmpReg")
        first, err = self.solve8("--all", "--register", file)
        self.assertIn("is new", err)
        size = os.path.getsize(file)
        second, err = self.solve8("--all", "--register", file, "--compress")
        self.assertIn("positions loaded", err)
        self.assertEqual(first["keys"], second["keys"])
        self.assertLess(second["nodes"], first["nodes"] // 10)
        self.assertLess(os.path.getsize(file), size)
        with open(file, "r+b") as damaged:
            damaged.truncate(os.path.getsize(file) // 2)
        third, err = self.solve8("--all", "--register", file)
        self.assertEqual(first["keys"], third["keys"])
        self.assertRegex(err, "8.tmpReg.*offset")

    def test_register_is_saved_after_a_stop_and_meanwhile(self):
        file = os.path.join(self.folder, "endless.tmpReg")
        process = self.start("solve", "--fen", ENDLESS, "--mate", "60", "--register", file,
                             "--checkpoint", "0.005")
        for _ in range(200):
            time.sleep(0.05)
            if os.path.exists(file):
                break
        self.assertTrue(os.path.exists(file), "no checkpoint")
        os.remove(file)
        process.send_signal(signal.SIGTERM)
        self.assertEqual(process.wait(timeout=60), 4)
        self.assertGreater(os.path.getsize(file), 68)

    def test_register_needs_one_long_problem(self):
        file = os.path.join(self.folder, "x.tmpReg")
        _, err = self.solve8("--register", file, fen=MATE_2, mate="2")
        self.assertIn("needs no register", err)
        self.assertFalse(os.path.exists(file))
        lines = f"{MATE_2} w - - bm #2;\n{MATE_8} w - - bm #8;\n"
        _, err = self.expect(2, "solve", "--register", file, self.write("a.epd", lines))
        self.assertIn("--id", err)

    def test_register_file_stays_without_memory_for_a_register(self):
        file = self.folder / "8.tmpReg"
        self.register8(file)
        before = file.read_bytes()
        found, err = self.register8(file, "--memory", "0", "--checkpoint", "0.0001")
        self.assertEqual(found["status"], "mate")
        self.assertIn("8.tmpReg is not used", err)
        self.assertEqual(file.read_bytes(), before)
        self.assertEqual(os.listdir(self.folder), ["8.tmpReg"])

    def test_shorter_solve_keeps_the_longer_records(self):
        def records_beyond_6_moves(content):
            found, at = set(), 0
            while at < len(content):
                is_section = content[at:at + 4] == b"\xff\xff\xff\xff"
                if not is_section and max(struct.unpack_from("<HH", content, at)) > 11:
                    found.add(content[at:at + 68])
                at += 12 if is_section else 68
            return found

        file = self.folder / "8.tmpReg"
        self.register8(file)
        before = records_beyond_6_moves(file.read_bytes())
        self.register8(file, mate="6", status=1)
        self.assertGreater(len(before), 0)
        self.assertLessEqual(before, records_beyond_6_moves(file.read_bytes()))

    def test_what_a_load_loses_stays_as_backup(self):
        file = self.folder / "8.tmpReg"
        self.register8(file)
        contents = {".BAK": file.read_bytes()[:-500], ".BAK2": b"a letter to somebody\n" * 20,
                    ".BAK3": b"LZ4 \xff\xff\xff\xff" + b"nonsense" * 20}
        for content in contents.values():
            file.write_bytes(content)
            found, err = self.register8(file)
            self.assertEqual(found["status"], "mate")
            self.assertIn("stays as", err)
        _, err = self.register8(file)
        self.assertNotIn("stays as", err)
        backups = {path.name.removeprefix("8.tmpReg"): path.read_bytes()
                   for path in self.folder.glob("*.BAK*")}
        self.assertEqual(backups, contents)

    def test_what_cannot_be_written_is_told_before_solving(self):
        used = self.write("used", "")
        for words in (["--register", self.folder / "missing" / "8.tmpReg"],
                      ["--register", self.folder], ["--solved", used]):
            out, err = self.expect(3, "solve", "--json", "--fen", MATE_8, "--mate", "8", *words)
            self.assertEqual(out, "", words)
            self.assertIn(str(words[1]), err)
        self.assertEqual(os.listdir(self.folder), ["used"])

    def test_answers_are_kept(self):
        first, _ = self.solve8("--solved", self.folder)
        second, _ = self.solve8("--solved", self.folder)
        self.assertEqual(first["keys"], second["keys"])
        self.assertEqual(second["nodes"], 0)

    def test_answers_that_cannot_be_kept_are_told(self):
        self.solve8("--solved", self.folder)
        (file,) = self.folder.glob("*.cspdb")
        file.unlink()
        file.mkdir()
        found, err = self.solve8("--solved", self.folder, status=3)
        self.assertEqual(found["status"], "mate")
        self.assertIn("could not be kept", err)

    def test_answers_that_contradict_each_other_are_not_used(self):
        first, _ = self.solve8("--solved", self.folder)
        (file,) = self.folder.glob("*.cspdb")
        mate = file.read_bytes()
        self.assertEqual(len(mate), 76)
        both = mate + mate[:72] + b"\0" + mate[73:]  # the byte of the answer: no mate
        file.write_bytes(both)
        second, err = self.solve8("--solved", self.folder)
        self.assertIn("not used for this problem", err)
        self.assertEqual((second["keys"], second["nodes"]), (first["keys"], first["nodes"]))
        self.assertEqual(file.read_bytes(), both)

    def test_threads_and_memory_are_checked(self):
        for words in (["--threads", "0"], ["--threads", "2^"], ["--threads", "64^64"],
                      ["--memory", "-1"], ["--memory", "101%"], ["--memory", "lots"]):
            self.expect(2, "solve", "--fen", MATE_2, "--mate", "2", *words)

    def test_moves_are_logged_for_each_thread(self):
        self.expect(0, "solve", "--all", "--threads", "2", "--fen", MATE_8, "--mate", "8", "--log-moves",
                    self.folder)
        names = [name for name in os.listdir(self.folder) if name.startswith("MovesLogger")]
        self.assertEqual(sorted(names), [f"MovesLogger_problem1_thread{i}.log" for i in (0, 1)])


@needs_mate_8
class SolveHeuristics(CliCase):
    """Passes with heuristics and who decides about them."""

    def passes(self, status, *words, stdin=""):
        """The object, and (name, heuristics) of its passes."""
        [found] = self.solve_json(status, "--threads", "1", *words, stdin=stdin)
        return found, [(one["name"], one["heuristics"]) for one in found["passes"]]

    def passes8(self, words, *more):
        """Without scouts, which would find the key before any pass."""
        text = problem(1, "#8 " + words, f"FEN: {MATE_8}")
        found, passes = self.passes(0, "-", "--no-scout", *more, stdin=text)
        self.assertEqual(found["keys"], ["Ng3-f1"])
        return found, passes

    def test_wrong_words(self):
        for words in (["--heuristics", "SH_NOSUCH"], ["--heuristics", ""], ["--relax", "maybe"],
                      ["--pass2", "2"], ["--scheduler", "10"], ["--scheduler", "-1"],
                      ["--custom-scheduler"]):
            out, err = self.expect(2, "solve", "--fen", MATE_2, "--mate", "2", *words)
            self.assertEqual(out, "", words)
            self.assertIn("help", err, words)

    def test_who_chooses(self):
        found, automatic = self.passes8("")
        self.assertEqual(automatic[0], ("0", ""))
        self.assertEqual([name for name, _ in automatic[1:3]], ["1", "1b"])
        self.assertIn("SH_KEEPKINGONTHEEDGE", automatic[1][1])
        self.assertEqual(automatic[-1][0], found["pass_found"])
        _, given = self.passes8("SH_AREKINGSNEAR()", "--heuristics", "sh_keepkingnearcorner( 3s )")
        self.assertEqual(given[1], ("1", "SH_KEEPKINGNEARCORNER(3S)"))
        found, none = self.passes8("SH_AREKINGSNEAR()", "--heuristics", "none")
        self.assertEqual(none, [("0", ""), ("2", "")])
        self.assertEqual(found["pass_found"], "2")

    def test_problem_changes_the_choice(self):
        _, passes = self.passes8("SH_KEEPKINGONTHEEDGE OFF SH_AREKINGSNEAR()")
        self.assertIn("SH_AREKINGSNEAR", passes[1][1])
        self.assertNotIn("SH_KEEPKINGONTHEEDGE", passes[1][1])
        bad = problem(1, "#8 SH_KEEPKINGNEARCORNER(zzz)", f"FEN: {MATE_8}")
        found, _ = self.passes(3, "-", stdin=bad)
        self.assertEqual(found["status"], "refused")
        self.assertIn("SH_KEEPKINGNEARCORNER(zzz)", found["message"])
        self.assertIn("SH_KEEPKINGNEARCORNER(zzz)", self.expect(0, "lint", "-", stdin=bad)[0])

    def test_no_weaker_heuristics_behind_the_first_key(self):
        def names_behind_the_key(*more):
            found, passes = self.passes8("AllSolutions STOPRELAXHEURISTICSONFIRSTSOLUTION",
                                         "--heuristics",
                                         "SH_KEEPKINGONTHEEDGE, SH_DONTLOSEANYFIGURES", *more)
            names = [name for name, _ in passes]
            self.assertEqual(found["pass_found"][0], "1", "no pass with heuristics finds it any more")
            return names[names.index(found["pass_found"]) + 1:]

        self.assertEqual(names_behind_the_key(), ["2"])
        self.assertGreater(len(names_behind_the_key("--relax", "on")), 1)

    def test_without_the_last_pass_nothing_is_proved(self):
        words = ["--fen", MATE_8, "--mate", "6", "--no-scout"]
        found, passes = self.passes(4, *words, "--pass2", "off", "--relax", "off")
        self.assertEqual((found["status"], found["exact"], len(passes)), ("open", False, 2))
        self.assertRegex(found["message"], "--pass2.*--relax")
        out, _ = self.expect(4, "solve", *words, "--pass2", "off")
        self.assertIn("No key found (", out)
        found, passes = self.passes(1, *words, "--relax", "off")
        self.assertEqual((found["status"], found["exact"], passes[-1]), ("no-mate", True, ("2", "")))


@needs_mate_8
class Analyze(CliCase):
    def test_text(self):
        out, err = self.expect(0, "analyze", "--fen", MATE_8, "--mate", "8")
        self.assertEqual(err, "")
        self.assertIn("Your position: mate in 8\n", out)
        self.assertIn("Safe mode: as you choose\n", out)
        chosen = re.search(r"^Heuristics: (.*)$", out, re.M)[1]
        self.assertIn(f"\nPass 1: {chosen}\n\nPass 1b: ", out)
        self.assertIn("The problem is short", self.expect(0, "analyze", "--fen", MATE_8, "--mate", "5")[0])

    def test_passes_are_those_of_solve(self):
        text = problem(1, "#8 SH_SAVEQUEEN/ROOK()", f"FEN: {MATE_8}")
        [analyzed] = [json.loads(line) for line in
                      self.expect(0, "analyze", "--json", "-", stdin=text)[0].splitlines()]
        self.assertEqual(analyzed["heuristics"], analyzed["passes"][0]["heuristics"])
        self.assertIn("SH_SAVEQUEEN/ROOK", analyzed["heuristics"])
        [solved] = self.solve_json(0, "--no-scout", "--threads", "1", "-", stdin=text)
        made = [(one["name"], one["heuristics"]) for one in solved["passes"]
                if one["name"].startswith("1")]
        self.assertEqual([(one["name"], one["heuristics"]) for one in analyzed["passes"]
                          if not one["time_dependent"]][:len(made)], made)
        self.assertIn("1b", [name for name, _ in made])

    def test_what_cannot_be_analyzed(self):
        text = problem(1, "s#3") + problem(2, "#301") + problem(3, "#8", f"FEN: {MATE_8}")
        out, _ = self.expect(3, "analyze", "--json", self.write("a.cp", text))
        found = [json.loads(line) for line in out.splitlines()]
        self.assertEqual([one["status"] for one in found], ["refused", "refused", "analyzed"])
        self.assertNotEqual(found[1]["message"], "")
        self.expect(2, "analyze")
        self.expect(2, "analyze", "--fen", MATE_8)


class SolveText(CliCase):
    def test_report_of_a_file(self):
        text = (problem(1, "#2", f"Desc: Rook and king\n\tFEN: {MATE_2}", "\tAnswer: Kf6-f7\n") +
                problem(2, "#2 AllSolutions", answer="\tAnswer: Rg1-a1\n") + problem(3, "#1"))
        out, err = self.expect(1, "solve", self.write("a.cp", text))
        self.assertEqual(err, "")
        self.assertIn("Problem 1: mate in 2\nRook and king\n", out)
        self.assertIn(" 8 |    .     .     .     k |\n", out)
        self.assertIn("Key: Kf6-f7\nAgrees with the answer of the file\n", out)
        self.assertIn("Only key: Kf6-f7\nDiffers from the answer of the file: "
                      "not found: Rg1-a1; not given: Kf6-f7\n", out)
        self.assertIn("No mate in 1\n", out)
        self.assertRegex(out, r"\n3 problems in \S+ s: 2 solved, 1 without mate, 0 stopped, 0 refused\n"
                              r"Answers of the file: 1 agree, 1 differ \(problem 2\)\n$")
        self.assertNotIn("\x1b", out)

    def test_brief_is_a_line_for_each_and_the_summary(self):
        path = self.write("a.epd", f"{MATE_2} w - - bm #2;\n{MATE_2} w - - bm #3;\n")
        out, _ = self.expect(0, "solve", "--brief", path)
        self.assertEqual(len(out.splitlines()), 3)
        self.assertIn("Kf6-f7", out)

    def test_rights_of_a_fen_that_are_not_followed_are_told(self):
        words = ["--fen", "4k3/8/8/8/8/8/8/R3K2R w - -", "--mate", "1"]
        self.assertIn("castling", self.expect(1, "solve", *words)[1])


class Inputs(CliCase):
    def test_standard_input_in_both_forms(self):
        for text in (problem(1, "#2"), f"{MATE_2} w - - bm #2;\n"):
            [found] = self.solve_json(0, "-", stdin=text)
            self.assertEqual(found["keys"], ["Kf6-f7"])

    def test_what_cannot_be_read(self):
        for path, words in [(self.folder / "none.cp", "No such file"), (self.folder, "folder"),
                            (self.write("empty.cp", ""), "nothing in it"),
                            (self.write("a.cp", "rubbish"), "a.cp:1: "),
                            (self.write("b.epd", "rubbish"), "b.epd:1: "),
                            (self.write("c.cp", b"\0\xff" * 5000), "c.cp:1: "),
                            (self.write("d.cp", "UTF-8\n"), "no problem")]:
            out, err = self.expect(3, "solve", path)
            self.assertEqual(out, "")
            self.assertIn(words, err)

    def test_fen_that_is_none(self):
        for fen in ("rubbish", "8/8/8/8/8/8/8/8", "k7/8/8/8/8/8/8/K6P", "k" * 100000):
            out, err = self.expect(3, "solve", "--fen", fen, "--mate", "2")
            self.assertEqual(out, "")
            self.assertNotEqual(err, "")

    def test_problems_before_a_fault_are_solved(self):
        path = self.write("a.cp", problem(1, "#2") + problem(2, "#1") + "3 #2 Nonsense {}\n")
        found = self.solve_json(3, path)
        self.assertEqual([f["status"] for f in found], ["mate", "no-mate"])
        self.assertIn(f"{path}:9: ", self.expect(3, "lint", path)[0])

    def test_selection_by_number(self):
        path = self.write("a.cp", "".join(problem(i, "#2") for i in (2, 3, 5, 8)))
        self.assertEqual([f["id"] for f in self.solve_json(0, path, "--id", "1-3,8")], [2, 3, 8])
        _, err = self.expect(0, "solve", "--brief", path, "--id", "2,6-7")
        self.assertIn("no problem 6-7; the numbers go from 2 to 8", err)
        self.expect(2, "solve", path, "--id", "9-12")

    def test_results_come_while_later_problems_run(self):
        path = self.write("a.cp", problem(1, "#2") + problem(2, "#20", f"FEN: {START}"))
        process = self.start("solve", "--json", path)
        self.assertTrue(select.select([process.stdout], [], [], 30)[0])
        self.assertEqual(json.loads(process.stdout.readline())["id"], 1)
        self.assertIsNone(process.poll())


class Stopping(CliCase):
    def stopped(self, *words):
        """The last object of a search that does not end by itself, and the seconds it took."""
        begin = time.monotonic()
        found = self.solve_json(4, "--fen", START, "--mate", "20", *words)
        self.assertEqual((found[-1]["status"], found[-1]["exact"]), ("stopped", False))
        return found[-1], time.monotonic() - begin

    def test_time_limit(self):
        found, seconds = self.stopped("--time", "0.2")
        self.assertLess(seconds, 5)
        self.assertGreaterEqual(found["ms"], 200)
        self.assertIn("time limit", found["message"])

    def test_node_limit(self):
        found, _ = self.stopped("--nodes", "1000")
        self.assertIn("node limit", found["message"])

    def interrupt(self, sig, *words):
        """Interrupts a running search; (status, standard output, standard error)."""
        process = self.start("solve", *words)
        time.sleep(0.5)
        self.assertIsNone(process.poll())
        begin = time.monotonic()
        process.send_signal(sig)
        out, err = process.communicate(timeout=60)
        self.assertLess(time.monotonic() - begin, 2)  # half of it for a busy machine
        return process.returncode, out, err

    def test_interrupt_prints_what_is_known(self):
        path = self.write("a.cp", problem(1, "#2") + problem(2, "#20", f"FEN: {START}") +
                          problem(3, "#2"))
        for sig in (signal.SIGINT, signal.SIGTERM):
            status, out, err = self.interrupt(sig, path, "--json")
            self.assertEqual(status, 4)
            self.assertEqual([json.loads(line)["status"] for line in out.splitlines()],
                             ["mate", "stopped"])
            self.assertIn("1 problem not tried", err)

    def test_interrupt_of_the_text_report_keeps_the_summary(self):
        path = self.write("a.cp", problem(1, "#2") + problem(2, "#20", f"FEN: {START}"))
        status, out, _ = self.interrupt(signal.SIGINT, path)
        self.assertEqual(status, 4)
        self.assertIn("stopped by the user", out)
        self.assertIn("1 solved, 0 without mate, 1 stopped", out)

    def test_interrupt_of_perft(self):
        process = self.start("perft", "12")
        time.sleep(0.3)
        process.send_signal(signal.SIGINT)
        self.assertEqual(process.wait(60), 4)


class Terminal(CliCase):
    def on_terminal(self, *words, **environment):
        """Everything that a terminal receives of both streams, and the status."""
        names = {"LANG": "C.UTF-8", "LC_ALL": "C.UTF-8", "TERM": "xterm", **environment}
        names = {**os.environ, **names}
        names.pop("" if "NO_COLOR" in environment else "NO_COLOR", None)
        main, other = pty.openpty()
        process = subprocess.Popen([CLI, *words], stdin=other, stdout=other, stderr=other, env=names)
        os.close(other)
        received = b""
        while True:
            try:
                received += os.read(main, 65536)
            except OSError:  # all ends are closed
                break
        os.close(main)
        return received.decode(), process.wait(60)

    def test_progress_line_comes_and_goes(self):
        text, status = self.on_terminal("solve", "--fen", START, "--mate", "20", "--time", "0.8")
        self.assertEqual(status, 4)
        self.assertRegex(text, r"\r\x1b\[KYour position, #20  move \d+ of 20: \S+  [\d,]+ nodes")
        self.assertIn("\r\x1b[K", text[text.rindex(" nodes  "):])

    def test_colours_and_drawing_are_for_terminals_that_want_them(self):
        words = ["solve", "--fen", MATE_2, "--mate", "2"]
        self.assertIn("\x1b[1mKf6-f7\x1b[0m", self.on_terminal(*words)[0])
        self.assertIn("░", self.on_terminal(*words)[0])
        for environment in ({"NO_COLOR": "1"}, {"TERM": "dumb"}):
            self.assertNotIn("\x1b[1m", self.on_terminal(*words, **environment)[0])
        self.assertNotIn("░", self.on_terminal(*words, LC_ALL="C")[0])

    def test_file_cannot_steer_the_terminal(self):
        path = self.write("a.cp", "UTF-8\n" + problem(1, "#2", f"Desc: a\x1b[2Jb\n\tFEN: {MATE_2}"))
        text, _ = self.on_terminal("show", path)
        self.assertNotIn("\x1b[2J", text)


class Show(CliCase):
    def test_board_styles(self):
        words = ["show", "--fen", MATE_2]
        self.assertIn(" 1 | .     .     .     R    |\n", self.expect(0, *words, "--ascii")[0])
        self.assertIn("♖", self.expect(0, *words, "--unicode")[0])
        self.expect(2, *words, "--ascii", "--unicode")

    def test_problem_with_line_of_play_and_answer(self):
        text = (problem(1, "", f"FEN: {MATE_2}\n\tMoves: Kf6-f7 Kh8-h7 Rg1-h1") +
                problem(2, "#2", answer="\tAnswer: Kf6-f7\n"))
        out, _ = self.expect(0, "show", self.write("a.cp", text))
        self.assertIn("1.Kf6-f7 Kh8-h7 2.Rg1-h1", out)
        self.assertIn("Problem 2: mate in 2", out)
        self.assertIn("Answer: Kf6-f7", out)


class Lint(CliCase):
    def test_clean_file(self):
        out, err = self.expect(0, "lint", self.write("a.cp", problem(1, "#2")))
        self.assertEqual((out, err), ("1 problem, 0 errors, 0 warnings\n", ""))

    def test_warnings_by_line(self):
        text = (problem(1, "#2") + problem(1, "#301") +
                problem(2, "#2", "White: Ke1\n\tBlack: Ke8, Ke7") +
                problem(3, "#2", "FEN: 6kR/8/6K1/8/8/8/8/8") +
                problem(4, "#2", answer="\tAnswer: Kf6-f7, Rg1-h2\n"))
        path = self.write("a.cp", text)
        out, _ = self.expect(0, "lint", path)
        lines = out.splitlines()
        self.assertEqual([int(re.match(re.escape(path) + r":(\d+): warning: ", line)[1])
                          for line in lines[:-1]], [5, 5, 9, 14, 18])
        self.assertIn("Rg1-h2", lines[4])
        self.assertEqual(lines[-1], "4 problems, 0 errors, 5 warnings")

    def test_errors_as_json(self):
        bad = self.write("a.cp", problem(1, "#2") + "2 #2 {\n\tFEN: x\n}\n")
        out, _ = self.expect(3, "lint", "--json", bad, self.folder / "none.cp")
        found = [json.loads(line) for line in out.splitlines()]
        self.assertEqual([(f["file"], f["line"], f["severity"]) for f in found],
                         [(bad, 6, "error"), (str(self.folder / "none.cp"), 0, "error")])


class Format(CliCase):
    def test_own_form_is_kept(self):
        text = problem(7, "#2 ALLSOLUTIONS", f"D: a  \n\tW: Kf6, Rg1 B: Kh8", "\tA: f6-f7\n")
        once, err = self.expect(0, "format", self.write("a.cp", text))
        self.assertEqual(err, "")
        self.assertIn("7 #2 AllSolutions\n", once)
        self.assertIn(f"FEN: {MATE_2}\n", once)
        self.assertIn("Kf6-f7", once)
        self.assertEqual(self.expect(0, "format", "-", stdin=once)[0], once)

    def test_in_place_and_to_a_file(self):
        path = self.write("a.cp", problem(1, "#2"))
        out, _ = self.expect(0, "format", path)
        other = self.folder / "b.cp"
        self.assertEqual(self.expect(0, "format", path, "-o", other), ("", ""))
        self.assertEqual(self.expect(0, "format", "--in-place", path), ("", ""))
        for written in (other, pathlib.Path(path)):
            self.assertEqual(written.read_text(encoding="utf-8"), out)

    def test_list_of_positions_becomes_a_problem_file(self):
        path = self.write("a.epd", f'{MATE_2} w - - bm #2; id "Rook; king";\n')
        out, _ = self.expect(0, "format", path)
        self.assertIn("1 #2\n", out)
        self.assertIn("Description: Rook; king\n", out)
        self.expect(2, "format", "--in-place", path)

    def test_nothing_is_written_over_what_cannot_be_read(self):
        text = problem(1, "#2") + "2 #2 {"
        path = self.write("a.cp", text)
        other = self.write("b.cp", "precious")
        self.expect(3, "format", "--in-place", path)
        out, err = self.expect(3, "format", path, "-o", other)
        self.assertEqual(out, "")
        self.assertIn("Nothing was written", err)
        self.assertEqual(pathlib.Path(path).read_text(encoding="utf-8"), text)
        self.assertEqual(pathlib.Path(other).read_text(encoding="utf-8"), "precious")

    def test_what_is_lost_is_told(self):
        text = "// mine\n" + problem(1, "#2 GLOBREGMB 5 THREADS 4^2") + problem(2, "#2")
        out, err = self.expect(0, "format", "-", stdin=text)
        self.assertNotIn("GLOBREGMB", out)
        self.assertRegex(err, r"standard input:2: problem 1 .*THREADS.*GLOBREGMB")
        self.assertIn("comments are not kept", err)
        self.assertNotIn("problem 2", err)

    def test_target_that_cannot_be_written(self):
        path = self.write("a.cp", problem(1, "#2"))
        _, err = self.expect(5, "format", path, "-o", self.folder / "none" / "b.cp")
        self.assertIn("b.cp", err)


VARIANTS = """//!VARIANTS
//!{Main variant} Kf6-f7[the {key}] Kh8-h7[forced] Rg1-h1
//!{a try} Rg1-g2 Kh8-h7 Rg2-g1[too slow; "sorry" \\]
//!ENDVARIANTS
"""
CASTLING = """3 #3
//!VARIANTS
//!{both ways} 0-0 0-0-0 Rf1-f7
//!{capture} Rh1:h8 Ke8-f7
//!ENDVARIANTS
{
\tDescription: J. Nowak, Szachy, 1956: two castlings
\tFEN: r3k2r/8/8/8/8/8/8/R3K2R
\tAnswer: 0-0, 0-0-0, Ra1:a8
}
"""


class Convert(CliCase):
    def problems(self):
        return self.write("a.cp", "UTF-8\n" + problem(1, "#2\n" + VARIANTS, answer="\tAnswer: Kf6-f7\n") +
                          problem(2, "s#2") + CASTLING)

    def test_epd_and_back_keeps_what_epd_knows(self):
        out, err = self.expect(3, "convert", self.problems(), "-", "--to", "epd")
        self.assertEqual(out.splitlines(), [
            f"{MATE_2} w - - bm #2; pm Kf7;",
            'r3k2r/8/8/8/8/8/8/R3K2R w KQkq - bm #3; id "J. Nowak, Szachy, 1956: two castlings"; '
            'c0 "keys: O-O, O-O-O, Rxa8+";'])
        self.assertRegex(err, r"a\.cp:\d+: problem 1 loses: variants\n")
        self.assertRegex(err, r"a\.cp:\d+: problem 2 is left out: EPD")
        path = self.write("b.epd", out)
        back = self.folder / "c.cp"
        _, err = self.expect(0, "convert", path, back)
        self.assertIn("b.epd: operations of 2 lines are lost: c0, pm", err)
        self.assertIn("Description: J. Nowak, Szachy, 1956: two castlings\n", back.read_text())
        again = self.folder / "d.epd"
        self.expect(0, "convert", back, again)
        self.assertEqual(re.sub(r' (pm|c0) [^;]*;', "", out), again.read_text())

    def test_every_command_takes_epd(self):
        path = self.write("a.epd", f'# mine\n{MATE_2} w - - bm #2; id "x";\n')
        for words in (["solve"], ["show"], ["lint"], ["format"], ["analyze"], ["diagram"]):
            self.expect(0, *words, path)
        self.expect(0, "convert", path, self.folder / "a.pgn")

    def test_numbers_and_endings_choose(self):
        target = self.folder / "B.PGN"
        self.assertEqual(self.expect(0, "convert", self.problems(), target, "--id", "3")[0], "")
        text = target.read_text(encoding="utf-8")
        self.assertEqual(re.findall(r'\[(?:Event|Date|White|Round) "(.*)"\]', text),
                         ["Szachy", "1956.??.??", "3", "J. Nowak"])
        self.expect(2, "convert", self.problems(), target, "--id", "9")
        out, _ = self.expect(0, "convert", self.problems(), "-", "--to", "cp", "--id", "2")
        self.assertIn("2 s#2\n", out)
        self.assertNotIn("#3", out)

    def test_loss_of_many_problems_is_told_once(self):
        path = self.write("a.cp", "".join(problem(i, "#2 AllSolutions") for i in range(1, 6)))
        _, err = self.expect(0, "convert", path, "-", "--to", "pgn")
        self.assertEqual(err, f"{path}: 5 problems, from number 1 on, lose: options of the problem\n")

    def test_black_to_mate_is_told(self):
        path = self.write("a.epd", f"{MATE_2_SWAPPED} b - - bm #2;\n")
        out, err = self.expect(0, "convert", path, "-", "--to", "epd")
        self.assertEqual(out, f"{MATE_2} w - - bm #2;\n")
        self.assertIn("a.epd:1: Black was to mate", err)

    def test_nothing_is_written_over_what_cannot_be_read(self):
        target = self.write("b.pgn", "precious")
        self.expect(3, "convert", self.write("a.cp", "1 #2 {"), target)
        self.expect(3, "convert", self.write("c.cp", problem(2, "s#2")), self.folder / "b.epd")
        self.assertEqual(pathlib.Path(target).read_text(), "precious")
        self.assertFalse((self.folder / "b.epd").exists())
        self.expect(5, "convert", self.problems(), self.folder / "none" / "b.pgn")


@unittest.skipIf(PGN_READER is None, "pgn-extract is not installed")
class PgnOfOthers(CliCase):
    """Another program reads our games: the same moves, and no complaint."""

    def read_back(self, path):
        """The games in long notation, as the other program understands them."""
        pgn = self.folder / "a.pgn"
        self.expect(0, "convert", path, pgn)
        done = subprocess.run([PGN_READER, "-Welalg", "-w100000", pgn], capture_output=True, text=True,
                              encoding="utf-8", check=False)
        log = [line for line in done.stderr.splitlines()[1:] if line.strip()]
        games = done.stdout.count("[Event ")
        self.assertEqual(log[-1], f"{games} game{'s' * (games != 1)} matched out of {games}.")
        self.assertNotRegex(done.stderr, r"(?i)illegal|unknown|error|missing|unexpected|line \d+|fail")
        return done.stdout

    def moves_of(self, games):
        """All moves in the order of the text, as their fields and the figure of a promotion."""
        bare = re.sub(r"^\[.*$|\{[^}]*\}", " ", games, flags=re.M)
        found = re.findall(r"([a-h][1-8])x?([a-h][1-8])=?([QRBN]?)", bare)
        return ["".join(parts) for parts in found]

    def our_moves(self, text):
        """The same of moves in our notation, White's first."""
        castlings = [{"0-0": "e1g1", "0-0-0": "e1c1"}, {"0-0": "e8g8", "0-0-0": "e8c8"}]
        return [castlings[ply % 2].get(move) or
                re.sub(r"^[KQRBN]?(..)[-:](..)([QRBN]?)$", r"\1\2\3", move)
                for ply, move in enumerate(text.split())]

    def test_sample_and_shared_problems(self):
        for path in [SAMPLE, *sorted(DATA.glob("*.cp"))]:
            if not path.is_file():
                continue
            games = self.read_back(path)
            answers = re.findall(r"^\s*Answer:\s*(.*)$", path.read_text(encoding="utf-8"), re.M)
            keys = [key for answer in answers for key in re.split(r",\s*", answer)]
            self.assertEqual(self.moves_of(games), [self.our_moves(key)[0] for key in keys], path)

    def test_variants_with_comments(self):
        text = "UTF-8\n" + problem(1, "#2\n" + VARIANTS, answer="\tAnswer: Kf6-f7\n") + CASTLING
        games = self.read_back(self.write("a.cp", text))
        self.assertEqual(self.moves_of(games),
                         ["f6f7", "g1g2", "h8h7", "g2g1", "h8h7", "g1h1",
                          "e1g1", "e1c1", "a1a8", "h1h8", "e8f7", "e8c8", "f1f7"])
        self.assertIn('too slow; "sorry" \\', games)

    def test_lines_of_random_games(self):
        lines = [
            "e2-e4 d7-d5 e4:d5 c7-c5 d5:c6 Ng8-f6 c6:b7 Bc8-d7 b7:a8Q Qd8-b6 Ng1-f3 e7-e6 Bf1-e2 "
            "Bf8-d6 0-0 0-0 Nb1-c3 Rf8-d8 Nf3-g5 Bd7-c6 Qa8:b8 Rd8:b8",
            "d2-d4 f7-f5 g2-g4 f5:g4 h2-h3 g4-g3 f2-f4 g3-g2 Ng1-f3 g2:h1N Nf3-e5 Nh1-g3 e2-e4 Ng3:f1"]
        text = "".join(problem(number, "", f"FEN: {START}\n\tMoves: {line}")
                       for number, line in enumerate(lines, 1))
        games = self.read_back(self.write("a.cp", text))
        self.assertEqual(self.moves_of(games), self.our_moves(lines[0]) + self.our_moves(lines[1]))


class Diagram(CliCase):
    def test_svg_is_well_formed_and_carries_the_position(self):
        fen = "r3k2r/8/8/3pP3/8/8/8/R3K2R b Kq - 3 12"
        out, err = self.expect(0, "diagram", "--fen", fen, "--coordinates", "--style", "hatched")
        self.assertEqual(err, "")
        root = ElementTree.fromstring(out)
        self.assertEqual(root.get("width"), "480")
        self.assertEqual(root.find(".//{https://tarnwick.invalid/ns/diagram}fen").text, fen)

    def test_names_of_several_pictures(self):
        text = problem(1, "#2", f"Description: a <b> & c\n\tFEN: {MATE_2}") + problem(5, "s#3")
        path = self.write("a.cp", text)
        for words in ([], ["-o", self.folder / "x.svg"], ["-o", self.folder / "x.bmp"]):
            out, err = self.expect(2, "diagram", path, *words)
            self.assertEqual(out, "")
            self.assertNotEqual(err, "")
        self.expect(0, "diagram", path, "-o", self.folder)
        self.expect(0, "diagram", path, "--stipulation", "-o", self.folder / "p%d.svg")
        self.expect(0, "diagram", path, "--id", "5", "-o", self.folder / "x.svg")
        self.assertEqual(sorted(os.listdir(self.folder)), ["a.cp", "p1.svg", "p5.svg", "problem-1.svg",
                                                           "problem-5.svg", "x.svg"])
        five = ElementTree.parse(self.folder / "p5.svg").getroot()
        self.assertIn("s#3", "".join(five.itertext()))
        one = ElementTree.parse(self.folder / "p1.svg").getroot()
        self.assertEqual(one.find("{http://www.w3.org/2000/svg}title").text, "a <b> & c")
        self.expect(5, "diagram", path, "--id", "5", "-o", self.folder / "none" / "x.svg")

    def test_png_without_its_painter_says_what_to_do(self):
        alone = self.folder / "tarnwick-cli"
        alone.write_bytes(pathlib.Path(CLI).read_bytes())
        alone.chmod(0o755)
        target = self.folder / "x.png"
        done = subprocess.run([alone, "diagram", "--fen", MATE_2, "-o", target], capture_output=True,
                              text=True, env={**os.environ, "PATH": "/nowhere"}, check=False)
        self.assertEqual(done.returncode, 3)
        self.assertIn(".svg", done.stderr)
        self.assertFalse(target.exists())

    @unittest.skipIf(WINDOW is None, "the program with the window is not built")
    def test_png_has_its_size_and_the_position(self):
        environment = {name: value for name, value in os.environ.items() if name not in ("DISPLAY", "WAYLAND_DISPLAY")}
        path = self.write("a.epd", f"{MATE_2} w - - bm #2;\n" * 40)
        done = subprocess.run([CLI, "diagram", path, "--size", "200", "--stipulation", "-o",
                               self.folder / "%d.png"], capture_output=True, text=True, env=environment,
                              timeout=120, check=False)
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        for number in (1, 40):
            png = (self.folder / f"{number}.png").read_bytes()
            chunks, at = {}, 8
            while at < len(png):
                length, kind = struct.unpack_from(">I4s", png, at)
                content = png[at + 8:at + 8 + length]
                self.assertEqual(struct.unpack_from(">I", png, at + 8 + length)[0],
                                 zlib.crc32(kind + content))
                chunks.setdefault(kind, content)
                at += 12 + length
            self.assertEqual(struct.unpack_from(">I", chunks[b"IHDR"])[0], 200)
            self.assertEqual(chunks[b"tEXt"], f"FEN\0{MATE_2} w - - 0 1".encode())


class Perft(CliCase):
    def test_counts_of_the_starting_position(self):
        for depth, count in [(0, "1"), (1, "20"), (3, "8,902")]:
            self.assertIn(f"= {count} ", self.expect(0, "perft", depth)[0])

    def test_divide_adds_up_and_black_may_move(self):
        fen = "r3k2r/8/8/8/8/8/8/R3K2R b KQkq -"
        out, _ = self.expect(0, "perft", "2", "--divide", "--fen", fen)
        counts = dict(re.findall(r"^(\S+): (\d+)$", out, re.M))
        self.assertIn("0-0-0", counts)
        self.assertIn(f"= {sum(map(int, counts.values()))} ", out)
        self.assertEqual(sum(map(int, counts.values())), 568)

    def test_position_that_cannot_be(self):
        self.expect(3, "perft", "2", "--fen", "6kR/8/6K1/8/8/8/8/8 w - -")


class SharedMates(CliCase):
    """Problems of others with all their keys; skipped where they are missing."""

    def test_all_keys_agree(self):
        path = DATA / "short.cp"
        if not path.is_file():
            self.skipTest(f"{path} is missing")
        out, _ = self.expect(0, "solve", "--all", "--brief", path)
        agree = [line for line in out.splitlines() if "  agrees  " in line]
        self.assertGreater(len(agree), 100)
        self.assertIn(f"\n{len(agree)} problems in ", out)
        self.assertEqual(out.splitlines()[-1], f"Answers of the file: {len(agree)} agree")


# Nodes of the fixed set. A change of the search that moves it says so in its commit message.
SEARCH_SIGNATURE = 9902829


class Bench(CliCase):
    def test_signature_is_the_sum_and_the_same_every_time(self):
        out, _ = self.expect(0, "bench", "--json")
        *positions, total = [json.loads(line) for line in out.splitlines()]
        self.assertEqual(total["name"], "signature")
        self.assertGreater(total["nodes"], 0)
        self.assertEqual(total["nodes"], sum(one["nodes"] for one in positions))
        self.assertEqual(total["nodes"], SEARCH_SIGNATURE, "the search visits other nodes than before")
        self.assertIn(f"Search signature: {total['nodes']}\n", self.expect(0, "bench")[0])


if __name__ == "__main__":
    unittest.main()
