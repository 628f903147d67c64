#!/usr/bin/env python3
"""Compares pages and completions with the programs, and tries the installation.

Usage: TARNWICK_CLI=... TARNWICK_WINDOW=... TARNWICK_BUILD=... TARNWICK_CMAKE=... packaging_test.py [CLASS...]
TARNWICK_WINDOW is empty where the window was not built.
"""

import filecmp
import os
import pathlib
import re
import shutil
import struct
import subprocess
import sys
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
PACKAGING = ROOT / "packaging"
CLI = os.environ["TARNWICK_CLI"]
WINDOW = os.environ["TARNWICK_WINDOW"]
TYPE = "application/x-tarnwick-cp"

sys.path.insert(0, str(ROOT / "tools"))
import make_completions  # noqa: E402, the same reader of the help


def output(*words, **options):
    done = subprocess.run([str(word) for word in words], capture_output=True, text=True, encoding="utf-8",
                          timeout=100, check=False, **options)
    if done.returncode != 0:
        raise AssertionError(f"{words}: status {done.returncode}\n{done.stdout}\n{done.stderr}")
    return done.stdout


def needs(*programs):
    missing = [program for program in programs if not shutil.which(program)]
    return unittest.skipIf(missing, f"not installed: {', '.join(missing)}")


def page(name):
    return (PACKAGING / "man" / name).read_text(encoding="utf-8")


def flags(mdoc):
    """Options that a page describes: "Fl -fen" is --fen."""
    items = "\n".join(re.findall(r"^\.It (.*)$", mdoc, re.M))
    return {"-" + flag for flag in re.findall(r"\bFl (-?[\w-]+)", items)}


class Case(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)


class CommandPages(Case):
    """tarnwick-cli(1) and tarnwick(1) have the options of the programs, no more and no fewer."""

    def test_every_command_has_its_options(self):
        parts = dict(re.findall(r"^\.Ss (.*)\n((?:(?!\.S[sh] ).*\n)*)", page("tarnwick-cli.1"), re.M))
        shared = parts.pop("Which problems")
        everywhere = {"-h", "--help"}
        _, commands = make_completions.read_program(CLI)
        self.assertGreater(len(commands), 5)
        self.assertEqual(set(parts), {command.name for command in commands})
        for command in commands:
            printed = {name for option in command.options for name in option.names} - everywhere
            described = flags(parts[command.name])
            if re.search(rf"^\.Cm {command.name}\b", shared, re.M):
                described |= flags(shared) & printed
            self.assertEqual(described, printed, f"tarnwick-cli {command.name}")

    @unittest.skipIf(not WINDOW, "the window was not built")
    def test_window(self):
        help_text = output(WINDOW, "--help")
        printed = set(re.findall(r"^ +(--[\w-]+)", help_text, re.M))
        self.assertIn("--home", printed)
        self.assertEqual(flags(page("tarnwick.1")) - {"-h"}, printed)
        for name in ("tarnwick.bash", "_tarnwick", "tarnwick.fish"):
            text = (PACKAGING / "completions" / name).read_text(encoding="utf-8")
            for option in printed:
                self.assertRegex(text, rf"{option}\b|-l {option[2:]}\b", name)

    @needs("mandoc")
    def test_pages_are_clean(self):
        pages = sorted(path.name for path in (PACKAGING / "man").glob("*.[1-9]"))
        self.assertEqual(output("mandoc", "-Tlint", *pages, cwd=PACKAGING / "man"), "")


class FilePage(Case):
    """tarnwick-cp(5) has every word that the reader knows, and its example can be read."""

    def reader_words(self):
        problems = ROOT / "src" / "problems"
        code = "".join((problems / name).read_text(encoding="utf-8") for name in (
            "cp_file_reader.cpp", "cp_problem_reader.cpp", "cp_answer_reader.cpp", "problem_options.cpp"))
        words = set(re.findall(r'"([A-Z][A-Z0-9]*)"', code))
        return words | set(re.findall(r'"(//[#!@]\w+)', code))

    def heuristics(self):
        code = ROOT / "src" / "engine" / "heuristics" / "heuristic_catalogue.cpp"
        return set(re.findall(r'"(SH_[\w/]+)"', code.read_text(encoding="utf-8")))

    def test_every_word(self):
        text = page("tarnwick-cp.5").upper()
        words = self.reader_words() | self.heuristics()
        for known in ("ALLSOLUTIONS", "DESC", "SWM", "OFF", "//#TAGS", "SH_SAVEQUEEN/ROOK"):
            self.assertIn(known, words)  # or the way to find them is worn out
        missing = {word for word in words if not re.search(rf"(?<![\w]){re.escape(word.upper())}(?![\w/])", text)}
        self.assertEqual(missing, set())

    def test_example(self):
        example = re.search(r"^\.Bd -literal\n(.*?)^\.Ed", page("tarnwick-cp.5"), re.M | re.S)[1]
        path = self.folder / "example.cp"
        path.write_text(example, encoding="utf-8")
        self.assertIn(" 0 errors, 0 warnings", output(CLI, "lint", path))
        self.assertEqual(output(CLI, "format", path).count("FEN:"), 3)


class Completions(Case):
    def complete(self, *words):
        """What bash offers for the last of the words."""
        script = """
            source /usr/share/bash-completion/bash_completion
            source "$1"; shift
            COMP_WORDS=("$@"); COMP_CWORD=$(($# - 1)); COMP_LINE="$*"; COMP_POINT=${#COMP_LINE}
            _tarnwick_cli; printf '%s\\n' "${COMPREPLY[@]}" """
        return output("bash", "-c", script, "bash", PACKAGING / "completions" / "tarnwick-cli.bash",
                      "tarnwick-cli", *words, cwd=self.folder).split()

    def test_made_from_the_help_of_today(self):
        make_completions.main(CLI, self.folder)
        for path in self.folder.iterdir():
            self.assertTrue(filecmp.cmp(path, PACKAGING / "completions" / path.name, shallow=False),
                            f"{path.name} is outdated: run tools/make_completions.py {CLI}")

    @unittest.skipIf(not os.path.exists("/usr/share/bash-completion/bash_completion"), "no bash-completion")
    def test_bash_offers(self):
        for name in ("own.cp", "list.epd", "other.txt", "saved.tmpReg"):
            (self.folder / name).touch()
        for words, offered in (
                (["so"], ["solve"]),
                (["solve", "--reg"], ["--register", "--register-size"]),
                (["solve", "--relax", "o"], ["on", "off"]),
                (["solve", "--mate", ""], []),
                (["solve", "--register", ""], ["saved.tmpReg"]),
                (["solve", ""], ["list.epd", "own.cp"]),
                (["help", "li"], ["lint"])):
            self.assertEqual(sorted(self.complete(*words)), sorted(offered), words)

    @needs("fish")
    def test_fish_offers(self):
        script = f"source {PACKAGING}/completions/tarnwick-cli.fish; complete -C 'tarnwick-cli solve --reg'"
        offered = [line.split("\t")[0] for line in output("fish", "-c", script).splitlines()]
        self.assertEqual(offered, ["--register", "--register-size"])

    def test_syntax(self):
        for path in (PACKAGING / "completions").iterdir():
            shell = {".bash": "bash", ".fish": "fish"}.get(path.suffix, "zsh")
            if shutil.which(shell):
                self.assertEqual(output(shell, "-n", path), "")


class DesktopFiles(Case):
    @needs("desktop-file-validate")
    def test_entry(self):
        self.assertEqual(output("desktop-file-validate", PACKAGING / "desktop" / "tarnwick.desktop"), "")

    @needs("appstreamcli")
    def test_metainfo(self):
        output("appstreamcli", "validate", "--no-net", PACKAGING / "desktop" / "invalid.tarnwick.tarnwick.metainfo.xml")

    def test_newest_release_is_this_version(self):
        metainfo = (PACKAGING / "desktop" / "invalid.tarnwick.tarnwick.metainfo.xml").read_text(encoding="utf-8")
        newest = re.search(r'<release version="([^"]*)"', metainfo)[1]
        self.assertIn(f" {newest} ", output(CLI, "--version"))

    def test_all_languages(self):
        entry = (PACKAGING / "desktop" / "tarnwick.desktop").read_text(encoding="utf-8")
        for key in ("GenericName", "Comment", "Keywords"):
            for language in ("pl", "uk"):
                self.assertRegex(entry, rf"(?m)^{key}\[{language}\]=.")


@needs("update-mime-database", "mimetype")
class FileTypes(Case):
    """Our files are known by name, those that the program wrote also by content; others are left alone."""

    def setUp(self):
        super().setUp()
        packages = self.folder / "data" / "mime" / "packages"
        packages.mkdir(parents=True)
        shutil.copy(PACKAGING / "desktop" / "tarnwick.xml", packages)
        output("update-mime-database", self.folder / "data" / "mime", env=self.environment())

    def environment(self):
        return {**os.environ, "XDG_DATA_HOME": str(self.folder / "data"), "LC_ALL": "C.UTF-8"}

    def type_of(self, name, content, *options):
        path = self.folder / name
        path.write_bytes(content)
        return output("mimetype", "--brief", *options, path, env=self.environment()).strip()

    def test_names(self):
        self.assertEqual(self.type_of("own.cp", b"1 #2 { FEN: 7k/8/5K2/8/8/8/8/R7 }"), TYPE)
        self.assertEqual(self.type_of("own.cpx", b"UTF-8\n"), TYPE)
        self.assertEqual(self.type_of("own.cpp", b"int main() {}\n"), "text/x-c++src")

    def test_what_the_program_wrote_is_known_under_any_name(self):
        for number, head in enumerate(("FEN: 7k/8/5K2/8/8/8/8/R7", "D: two keys\n\tFEN: 7k/8/5K2/8/8/8/8/R7",
                                       "White: Ke1, Ke2\n\tBlack: Ke8")):
            path = self.folder / "own.cp"
            path.write_text(f"UTF-8\n1 #2\n//#TAGS\n//#one\n{{\n\t{head}\n}}\n", encoding="utf-8")
            written = output(CLI, "format", path).encode()
            self.assertEqual(self.type_of(f"nameless{number}", written, "--magic-only"), TYPE, head)

    def test_foreign_files(self):
        for content in (b"UTF-8\n", b"UTF-8\n\nNotes on encodings, and {\n braces\n}\n", b"UTF-8 FEN: White:\n",
                        b"#include <x>\nint f()\n{\n\tFEN: return 1;\n}\n", b"1 #2\n{\n\tFEN: x\n}\n",
                        b'{\n\t"FEN": "7k/8"\n}\n'):
            self.assertNotEqual(self.type_of("foreign", content, "--magic-only"), TYPE, content)


class Installation(Case):
    def setUp(self):
        super().setUp()
        output(os.environ["TARNWICK_CMAKE"], "--install", os.environ["TARNWICK_BUILD"], "--prefix", self.folder)

    def require(self, *names):
        for name in names:
            self.assertTrue((self.folder / name).is_file(), name)

    def test_terminal(self):
        self.require("share/man/man1/tarnwick-cli.1", "share/man/man5/tarnwick-cp.5",
                     "share/bash-completion/completions/tarnwick-cli", "share/mime/packages/tarnwick.xml",
                     "share/doc/tarnwick/LICENSE", "share/doc/tarnwick/formats/cp.md")
        out = output(self.folder / "bin" / "tarnwick-cli", "solve", "--id", "1", "--brief",
                     self.folder / "share" / "tarnwick" / "sample_problems.cp")
        self.assertIn("Ra1-a6", out)

    @unittest.skipIf(not WINDOW, "the window was not built")
    def test_window(self):
        entry = (self.folder / "share/applications/tarnwick.desktop").read_text(encoding="utf-8")
        values = dict(re.findall(r"^(\w+)=(.*)$", entry, re.M))
        self.require("bin/" + values["Exec"].split()[0], "share/man/man1/tarnwick.1",
                     "share/metainfo/invalid.tarnwick.tarnwick.metainfo.xml",
                     f"share/icons/hicolor/scalable/apps/{values['Icon']}.svg",
                     "share/icons/hicolor/scalable/mimetypes/application-x-tarnwick-cp.svg")
        self.assertIn(TYPE, values["MimeType"].split(";"))

    @unittest.skipIf(not WINDOW, "the window was not built")
    def test_pictures_have_the_size_of_their_folder(self):
        pictures = list((self.folder / "share/icons/hicolor").rglob("*.png"))
        found = set()
        for picture in pictures:
            width, height = struct.unpack(">II", picture.read_bytes()[16:24])
            self.assertEqual(f"{width}x{height}", picture.parts[-3])
            found.add((width, picture.stem))
        for size in (16, 24, 32, 48, 64, 128, 256, 512):
            self.assertIn((size, "tarnwick"), found)
            self.assertIn((size, "application-x-tarnwick-cp"), found)


if __name__ == "__main__":
    unittest.main()
