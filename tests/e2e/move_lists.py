#!/usr/bin/env python3
"""A running game is joined on the practice server: its whole list is there at once, is walked through, and is saved."""
import pathlib
import re
import shutil
import subprocess
import tempfile
import time
import unittest

from learn import learnPieces
from peers import Partner, PracticeServer, Wire
from rig import LOG_ON, QUIET, SCALE, Client, Display, nameFile, waitFor
from screen import Screen
from style12 import GAME

COURSE = ("e2e4", "e7e5", "g1f3", "b8c6", "f1b5", "a7a6", "b5c6", "d7c6", "e1g1")
MOVES = "1. e4 e5 2. Nf3 Nc6 3. Bb5 a6 4. Bxc6 dxc6 5. O-O"
FIRST, BACK, FORWARD, LAST = 8, 25, 47, 64  # the buttons, pixels from the left edge of the panel
BUTTON_ROW = 10  # pixels from the board's lower edge up to their middle
PANEL = 168  # pixels from the left edge of the panel to the window's right edge
READER = shutil.which("pgn-extract") or "/usr/games/pgn-extract"


class MoveLists(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.display = cls.enterClassContext(Display())
        cls.pieces = learnPieces(cls.display)

    def setUp(self):
        self.display.move(self.display.width - 5, self.display.height - 5)
        practice = PracticeServer()
        self.addCleanup(practice.end)
        self.players = [Partner(practice.port, name) for name in ("Rookery", "Novice")]
        for player in self.players:
            self.addCleanup(player.end)
        self.wire = Wire(practice.port)
        self.addCleanup(self.wire.end)
        self.client = Client(self.display, self.wire.port)
        self.addCleanup(self.endClient)
        waitFor(lambda: self.wire.text() == LOG_ON, "the log-on")
        time.sleep(QUIET)
        self.positions = self.playTheCourse()
        self.join()

    def endClient(self):
        self.client.end()
        self.assertEqual(self.wire.whole(), LOG_ON + f"moves {self.game}\nunob {self.game}\n")

    def playTheCourse(self):
        """The squares before and behind each move, rank 8 first, as one of the players is told them."""
        white, black = self.players
        white.say("match Novice 10 0 u white")
        black.await_("Challenge:")
        black.say("accept")
        told = [white.await_(r"<12> ([^\r\n]*)")[1]]
        for number, move in enumerate(COURSE):
            self.players[number % 2].say(move)
            told.append(white.await_(r"<12> ([^\r\n]*)")[1])
        return [line.split(" ")[:8] for line in told]

    def join(self):
        self.wire.sayForUser("observe Rookery")
        waitFor(self.wire.positions, "the game")
        self.game = self.wire.positions()[0][GAME]
        self.screen = Screen(self.display, pieces=self.pieces)
        self.window = waitFor(lambda: [window for window in self.display.windows()
                                       if re.fullmatch(r"Rookery \(.*\) vs\. Novice \(.*\) - Observing", window.title)],
                              "the title of a game whose list has come")[0]
        waitFor(lambda: self.screen.find(self.window), "the squares")

    def press(self, button):
        self.display.click(self.window.left + self.window.width + (button - PANEL) * SCALE,
                           self.screen.top + 8 * self.screen.side - BUTTON_ROW * SCALE)
        self.display.move(self.display.width - 5, self.display.height - 5)

    def awaitPly(self, ply):
        rows = self.positions[ply]
        waitFor(lambda: self.screen.read() == rows, lambda: f"{rows} and not {self.screen.read()}")

    def testAJoinedGameIsWalkedFromItsStart(self):
        self.awaitPly(9)
        self.press(FIRST)
        for ply in range(9):
            self.awaitPly(ply)
            self.press(FORWARD)
        self.awaitPly(9)
        self.press(FIRST)
        self.awaitPly(0)
        self.press(LAST)
        self.awaitPly(9)

    def testAJoinedGameIsSavedTwiceToOneFileAndReadByAnother(self):
        with tempfile.TemporaryDirectory() as folder:
            path = pathlib.Path(folder, "joined.pgn")
            self.save(path)
            waitFor(path.exists, "the file")
            once = waitFor(path.read_bytes, "the game")
            self.assertRegex(once, rb'\[White "Rookery"\]\r\n')
            self.assertIn(MOVES.encode() + b"\r\n*\r\n\r\n", once)
            self.save(path, replace=True)
            waitFor(lambda: len(path.read_bytes()) > len(once), "the second game")
            self.assertEqual(path.read_bytes(), 2 * once)
            read = subprocess.run([READER, "-Wsan", "--notags", "-w", "1000", str(path)], capture_output=True, text=True,
                                  check=True)
        self.assertEqual(read.stdout.split("\n\n"), [MOVES + " *"] * 2 + [""])
        self.assertIn("2 games matched", read.stderr)

    def save(self, path, replace=False):
        self.display.click(*self.screen.centre("e5"))
        self.display.keys("alt+f")
        self.display.awaitMenu()
        self.display.keys("p")  # Store PGN
        window = self.display.awaitDialog("Save Game")
        if replace:
            nameFile(self.display, path, lambda: len(self.display.windows("Save Game")) == 2)
            self.display.awaitFocus(self.display.windows("Save Game")[-1])
            self.display.keys("alt+y")
            self.display.awaitGone(window)
        else:
            nameFile(self.display, path, lambda: self.display.isGone(window))


if __name__ == "__main__":
    unittest.main(verbosity=2)
