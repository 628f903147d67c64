#!/usr/bin/env python3
"""How the program starts, and where it keeps its files.

Usage: start_test.py PROGRAM. It needs no screen. Status 1 with a line for each fault.
"""

import os
import pathlib
import subprocess
import sys
import tempfile
import time

PROGRAM = sys.argv[1]
SECONDS = 60  # for a start on a machine that does other things too
OWN_FILE = "myChessProblems.cp"
LOG = "tarnwickApp.log"
PROBLEM = "UTF-8\n1 #2\n{\n\tFEN: kbK5/pp6/1P6/8/8/8/8/R7\n}\n"


class Start:
    """One start of the program, in folders of its own but for those that are given."""

    def __init__(self, name, root, arguments=(), options=None, runtime=None):
        self.name = name
        self.folder = root / name
        for part in ("home", "config", "data", "run", "here"):
            (self.folder / part).mkdir(parents=True, mode=0o700)
        self.options = self.folder / "here" / "options.ini"
        if options is not None:
            self.options.write_bytes(options)
        self.runtime = runtime or self.folder / "run"
        environment = {
            "PATH": os.environ["PATH"], "QT_QPA_PLATFORM": "offscreen",
            "HOME": str(self.folder / "home"), "XDG_CONFIG_HOME": str(self.folder / "config"),
            "XDG_DATA_HOME": str(self.folder / "data"), "XDG_RUNTIME_DIR": str(self.runtime)}
        for variable in ("ASAN_OPTIONS", "UBSAN_OPTIONS", "LSAN_OPTIONS"):
            if variable in os.environ:
                environment[variable] = os.environ[variable]
        self.process = subprocess.Popen([PROGRAM, *map(str, arguments)], env=environment,
                                        cwd=self.folder / "here", text=True,
                                        stdout=subprocess.PIPE, stderr=subprocess.PIPE)

    def log(self, folder="here"):
        path = self.folder / folder / LOG
        return path.read_text(errors="replace") if path.exists() else ""

    def is_open(self, folder="here"):
        """Whether the program has come as far as its window within the time."""
        return wait(lambda: "Program opened" in self.log(folder))

    def files(self, folder):
        return sorted(str(path.relative_to(self.folder / folder))
                      for path in (self.folder / folder).rglob("*") if path.is_file())

    def end(self):
        self.process.kill()
        self.process.wait()


def wait(condition):
    end = time.monotonic() + SECONDS
    while not condition():
        if time.monotonic() > end:
            return False
        time.sleep(0.02)
    return True


def faults_of(root):
    problems = root / "given.cp"
    problems.write_text(PROBLEM)
    chosen = root / "chosen"
    broken = b"[chess]\r\nLanguageId=1\r\nQuickMode=perhaps\r\nSchedulerLevels=99\r\n\xff\x00=\r\n"
    utf16 = "[chess]\nLanguageId=0\n".encode("utf-16")
    starts = [
        plain := Start("plain", root),
        here := Start("options_here", root, options=b"[chess]\nLanguageId=0\n"),
        home := Start("home", root, ["--home", chosen]),
        given := Start("file", root, [problems], options=b""),
        damaged := Start("damaged", root, [problems], options=broken),
        foreign := Start("utf16", root, [problems], options=utf16),
        refused := Start("bare_home", root, ["--home", root / "bare_home" / "home"]),
    ]
    try:
        yield from check_folders(plain, here, home, chosen)
        yield from check_options(given, damaged, broken, foreign, utf16)
        yield from check_second_instance(root, given, starts)
        if refused.files("home") or refused.files("here"):
            yield "the user's bare home was written to"
    finally:
        for start in starts:
            start.end()


def check_folders(plain, here, home, chosen):
    if not wait(lambda: plain.files("data") == [f"tarnwick/{OWN_FILE}", f"tarnwick/{LOG}"]):
        yield f"without options: {plain.files('data')}"
    if plain.files("home") or plain.files("here"):
        yield f"files where nobody wants them: {plain.files('home')} {plain.files('here')}"
    if not wait(lambda: here.files("here") == [OWN_FILE, "options.ini", LOG]):
        yield f"with options here: {here.files('here')}"
    if not wait(lambda: (chosen / OWN_FILE).exists() and (chosen / LOG).exists()):
        yield "--home was not obeyed"
    if "Kliknij" not in (here.folder / "here" / OWN_FILE).read_text():
        yield "the language of the options was not obeyed"


def check_options(given, damaged, broken, foreign, utf16):
    if not given.is_open() or given.files("here") != ["options.ini", LOG]:
        yield f"with a file given: {given.files('here')}"
    if not damaged.is_open():
        yield "no start with damaged options"
    for word in ("line 3: QuickMode", "line 4: SchedulerLevels"):
        if not wait(lambda word=word: word in damaged.log()):
            yield f"the log does not tell of {word}: {damaged.log()}"
    if not foreign.is_open() or not wait(lambda: "UTF-16" in foreign.log()):
        yield f"options in UTF-16: {foreign.log()}"
    if damaged.options.read_bytes() != broken or foreign.options.read_bytes() != utf16:
        yield "options that nobody changed were written"


def check_second_instance(root, first, starts):
    """The box comes before anything is read, so its instance waits without a log."""
    silent = Start("second", root, options=b"[chess]\nWarnAboutSecondInstanceOfProgram=0\n",
                   runtime=first.runtime)
    warned = Start("warned", root, options=b"", runtime=first.runtime)
    starts += [silent, warned]
    if not silent.is_open():
        yield "a second instance was kept from starting"
    time.sleep(0.5)
    if warned.log() or warned.process.poll() is not None:
        yield "a second instance did not wait with its warning"


def check_words():
    def run(*arguments, **environment):
        return subprocess.run([PROGRAM, *arguments], capture_output=True, text=True, timeout=SECONDS,
                              env={"PATH": os.environ["PATH"], **environment}, check=False)
    if not run("--version").stdout.lower().startswith("tarnwick"):
        yield "--version without a screen"
    wrong = run("--nonsense", QT_QPA_PLATFORM="offscreen")
    if wrong.returncode != 2 or "--home DIR" not in wrong.stderr:
        yield f"wrong words: {wrong.returncode} {wrong.stderr}"


def main():
    with tempfile.TemporaryDirectory() as root:
        faults = [*check_words(), *faults_of(pathlib.Path(root))]
    for fault in faults:
        print(fault)
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
