#!/usr/bin/python3
"""What a screen reader hears of the running window.

Usage: screen_reader_test.py PROGRAM PROBLEM_FILE, on a screen with a bus of accessibility
(on_virtual_screen.sh). Status 1 with a line for each fault.
"""

import subprocess
import sys
import tempfile
import time

import pyatspi
from gi.repository import GLib

PLAIN = (pyatspi.ROLE_PUSH_BUTTON, pyatspi.ROLE_CHECK_BOX, pyatspi.ROLE_TEXT, pyatspi.ROLE_TABLE,
         pyatspi.ROLE_LIST, pyatspi.ROLE_MENU_ITEM)
FIELDS = 64
A1, A6 = 0, 40


def nodes_below(node):
    """The node and everything below it, the fields of the board included."""
    yield node
    for i in range(node.childCount):
        child = node.getChildAtIndex(i)
        if child is not None:
            yield from nodes_below(child)


def find_board():
    """The board's node, or None while the window is not ready."""
    for application in pyatspi.Registry.getDesktop(0):
        if application is not None and "arnwick" in application.name:
            for node in nodes_below(application):
                if node.childCount == FIELDS and node.getChildAtIndex(0).name.startswith("a1"):
                    return node
    return None


def wait_for_board(seconds):
    end = time.monotonic() + seconds
    while time.monotonic() < end:
        board = find_board()
        # The first problem of the samples has a rook on a1.
        if board is not None and "rook" in board.getChildAtIndex(0).name:
            return board
        time.sleep(0.2)
    return None


def faults_of(board):
    names = [board.getChildAtIndex(i).name for i in range(FIELDS)]
    fields = [name.split(",")[0] for name in names]
    expected = [f"{file}{rank}" for rank in range(1, 9) for file in "abcdefgh"]
    if fields != expected:
        yield f"fields in another order: {fields}"
    men = {name for name in names if not name.endswith("empty")}
    wanted = {"a1, white rook", "b6, white pawn", "c8, white king", "a7, black pawn",
              "b7, black pawn", "a8, black king", "b8, black bishop"}
    if men != wanted:
        yield f"men: {sorted(men ^ wanted)}"
    if not board.name or not board.description:
        yield "the board has no name or does not say who is to move"
    window = board
    while window.parent is not None and window.parent.getRole() != pyatspi.ROLE_APPLICATION:
        window = window.parent
    for node in nodes_below(window):
        if node.getRole() in PLAIN and not node.name and node.getState().contains(
                pyatspi.STATE_SHOWING):
            yield f"a {node.getRoleName()} without a name"


def hear_last_move(board, seconds):
    """Plays the rook from a1 to a6 by the fields' actions. What the board says of it, unasked."""
    heard = []

    def listen(event):
        event.source.clearCache()
        if "Last move" in event.source.description:
            heard.append(event.source.description)

    pyatspi.Registry.registerEventListener(listen, "object:property-change:accessible-description")
    for field in (A1, A6):
        board.getChildAtIndex(field).queryAction().doAction(0)
    end = time.monotonic() + seconds
    while not heard and time.monotonic() < end:
        GLib.MainContext.default().iteration(False)
        time.sleep(0.01)
    return heard


def faults_of_move(board):
    heard = hear_last_move(board, 10)
    if not heard or "white rook from a1 to a6" not in heard[0]:
        yield f"the last move is not announced: {heard}"


def main():
    program, problems = sys.argv[1:3]
    with tempfile.TemporaryDirectory() as home:
        window = subprocess.Popen([program, "--home", home, problems])
        try:
            board = wait_for_board(30)
            faults = ([*faults_of(board), *faults_of_move(board)] if board is not None
                      else ["no board was found"])
        finally:
            window.kill()
            window.wait()
    for fault in faults:
        print(fault)
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
