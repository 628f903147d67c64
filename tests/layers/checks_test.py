#!/usr/bin/env python3
"""The checks of this folder must find a fault that is there, and only that."""

import pathlib
import subprocess
import sys
import tempfile
import unittest

HERE = pathlib.Path(__file__).parent
SPEC = "spec" + "ification"


class CheckCase(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = pathlib.Path(folder.name)

    def write(self, name, text):
        path = self.root / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text, encoding="utf-8")

    def check(self, script):
        """Status and output of a check on the tree."""
        done = subprocess.run([sys.executable, "-B", HERE / script, self.root],
                              capture_output=True, text=True, check=False)
        return done.returncode, done.stdout


class LayersTest(CheckCase):
    def setUp(self):
        super().setUp()
        self.write("src/base/bytes.h", "#pragma once\n#include <string>\n")
        self.write("src/base/version.h.in", "#pragma once\n")
        self.write("src/chess/board.h", '#pragma once\n#include "base/bytes.h"\n')
        self.write("src/engine/search/node.cpp",
                   '#include "chess/board.h"\n#include "base/version.h"\n#ifndef NDEBUG\n#endif\n')
        self.write("src/platform/file.cpp", "#include <unistd.h>\n#ifdef __linux__\n#endif\n")

    def assert_fault(self, place, words):
        status, output = self.check("check_layers.py")
        self.assertEqual(status, 1, output)
        self.assertEqual(len(output.splitlines()), 1, output)
        self.assertTrue(output.startswith(place + ": "), output)
        self.assertIn(words, output)

    def test_clean_tree_passes(self):
        self.assertEqual(self.check("check_layers.py"), (0, "4 files, no fault\n"))

    def test_knowledge_that_flows_upward(self):
        self.write("src/chess/move.cpp", '#include "base/bytes.h"\n#include "engine/node.h"\n')
        self.write("src/engine/node.h", "#pragma once\n")
        self.assert_fault("src/chess/move.cpp:2", "chess/ may not include")

    def test_include_that_is_not_written_from_src(self):
        for name in ("board.h", "../base/bytes.h", "chess/../base/bytes.h"):
            self.write("src/chess/move.cpp", f'#include "{name}"\n')
            self.assert_fault("src/chess/move.cpp:1", "not written from src/")

    def test_header_that_does_not_exist(self):
        self.write("src/chess/move.cpp", '#include "base/gone.h"\n')
        self.assert_fault("src/chess/move.cpp:1", "does not exist")

    def test_header_without_guard(self):
        self.write("src/chess/move.h", "struct TMove;\n")
        self.assert_fault("src/chess/move.h:1", "#pragma once")

    def test_system_call_and_condition_outside_platform(self):
        self.write("src/chess/move.cpp", "#include <sys/stat.h>\n")
        self.assert_fault("src/chess/move.cpp:1", "only platform/")
        self.write("src/chess/move.cpp", "#if defined(_WIN32)\n#endif\n")
        self.assert_fault("src/chess/move.cpp:1", "conditional compilation")

    def test_toolkit_stays_in_the_shell(self):
        shell = "#pragma once\n#include <QPainter>\n#include <QtCore/QString>\n"
        self.write("src/app/shell/board.h", shell)
        self.write("src/app/shell/main.cpp", '#include "app/shell/board.h"\n')
        self.assertEqual(self.check("check_layers.py")[0], 0)
        for name in ("<QString>", "<QtWidgets/QWidget>", "<qglobal.h>", '"app/shell/board.h"'):
            for place in ("src/app/solving/session.cpp", "src/app/shell_words.cpp"):
                self.write(place, f"#include <queue>\n#include {name}\n")
                self.assert_fault(f"{place}:2", "only app/shell/")
                self.write(place, "\n")

    def test_folder_that_the_table_does_not_know(self):
        self.write("src/novel/thing.cpp", "\n")
        self.assert_fault("src/novel/thing.cpp:1", "no line in the table")


class WordingTest(CheckCase):
    def test_plain_words_and_fixed_texts_pass(self):
        self.write("src/a.cpp", f'"White figure {SPEC} is invalid: " // said before a search starts\n')
        self.write("docs/a.md", "Part 2 of a solve. Special cases are spectacular; originally slow code.\n")
        self.assertEqual(self.check("check_wording.py")[0], 0)

    def test_each_pointer_is_found(self):
        pointers = [f"see the {SPEC}", "as spec" + "ified", "shared/sp" + "ec.txt", "Par" + "t 3.4",
                    "Par" + "ts 3.4 and 3.5", "per sp" + "ec", "the orig" + "inal program",
                    "a reimpl" + "ementation", f"figure {SPEC} is invalid, see the {SPEC}"]
        for pointer in pointers:
            with self.subTest(pointer):
                self.write("tests/a_test.cpp", f"int a;\n// Castling, {pointer}.\n")
                status, output = self.check("check_wording.py")
                self.assertEqual(status, 1)
                self.assertTrue(output.startswith("tests/a_test.cpp:2: "), output)

    def test_untracked_files_count_and_ignored_ones_do_not(self):
        subprocess.run(["git", "init", "-q", self.root], check=True)
        self.write(".gitignore", "build/\n")
        self.write("build/log.txt", "as spec" + "ified\n")
        self.assertEqual(self.check("check_wording.py")[0], 0)
        self.write("notes.md", "as spec" + "ified\n")
        self.assertEqual(self.check("check_wording.py")[0], 1)

    def test_binary_files_are_passed_over(self):
        (self.root / "golden.bin").write_bytes(b"\0as spec" + b"ified")
        self.write("a.md", "text\n")
        self.assertEqual(self.check("check_wording.py")[0], 0)


if __name__ == "__main__":
    unittest.main()
