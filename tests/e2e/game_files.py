#!/usr/bin/env python3
"""Game files and the panel that evaluates a player, under a window manager, with a real pointer and by keyboard."""
import contextlib
import pathlib
import tempfile
import unittest

from managed import ManagedDisplay
from rig import SCALE, TWIPS, Client, nameFile, waitFor
from scripted import ScriptedServer

BOARD, DIALOG, PANEL = "Brightrank - Board", "Open Game File", "Evaluate Player"
BELOW_TOP = 700 // TWIPS  # of the board, in pixels of the program

GAME = """[White "{white}"]\r
[Black "Berta"]\r
[Result "0-1"]\r
\r
{moves}\r
0-1\r
\r
"""


class GameFiles(unittest.TestCase):
    def setUp(self):
        self.display = self.enterContext(ManagedDisplay())
        self.server = ScriptedServer()
        self.addCleanup(self.server.end)
        self.client = Client(self.display, self.server.port)
        self.addCleanup(self.client.end)
        self.server.logOn()
        self.file = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory()), "games.pgn")
        self.file.write_bytes("".join(GAME.format(white=white, moves=moves) for white, moves in
                                      (("Anders", "1. e4 e5"), ("Carla", "1. d4 d5 2. c4"))).encode())

    def choose(self, menu, key):
        self.display.activate(BOARD)
        self.display.keys(menu)
        self.display.keys(key)

    def openChooser(self):
        self.choose("alt+f", "r")
        self.display.awaitActive(DIALOG)
        nameFile(self.display, self.file, lambda: self.display.activeTitle() != DIALOG)
        self.display.awaitActive(str(self.file))
        return self.display.settled(str(self.file))

    def awaitGone(self, title):
        waitFor(lambda: not self.display.numberNow(title), f"{title!r} to go")

    def testAGameIsChosenWithTheKeyboard(self):
        self.openChooser()
        self.display.keys("Down")
        self.display.keys("Return")
        self.display.awaitActive("Carla - Berta  0-1")

    def testAGameIsChosenWithADoubleClick(self):
        self.openChooser()
        left, top, width, _ = self.display.areaOf(str(self.file))
        row = left + width // 3, top + 24 * SCALE  # below the heading, the first of its rows
        for _ in range(5):  # on a busy machine the second click may come too late for a double one
            self.display.click(*row)
            self.display.click(*row)
            with contextlib.suppress(AssertionError):
                return waitFor(lambda: self.display.activeTitle().startswith("Anders - Berta  0-1"), "the game", 4)
        self.fail("the game is not chosen")

    def testTheChooserStandsAtTheBoardsLeftEdgeBelowItsTop(self):
        board = self.display.settled(BOARD)
        chooser = self.openChooser()
        self.assertEqual(chooser.corner, (board.left, board.top + BELOW_TOP * SCALE))
        self.display.keys("Escape")
        self.awaitGone(str(self.file))
        self.assertTrue(self.display.numberNow(BOARD), "the board has its title still")

    def testTheProgramEndsInOrderWhileTheChooserIsOpen(self):
        self.openChooser()  # and `end` looks at the status

    def testThePanelStandsBesideItsBoardAndSends(self):
        self.choose("alt+a", "e")
        self.display.awaitActive(PANEL)
        self.assertFalse(self.display.settled(PANEL).meets(self.display.settled(BOARD)))
        self.display.keys("ctrl+a")  # the caret stands behind the user's own
        self.display.type("Berta")
        self.display.keys("alt+s")
        self.server.awaitLine("fi Berta")
        self.display.keys("alt+e")
        left = self.server.awaitLine("unex")
        self.assertGreaterEqual(self.server.awaitLine("ex Berta 0") - left, 0.5, "the server has its half second")


if __name__ == "__main__":
    unittest.main(verbosity=2)
