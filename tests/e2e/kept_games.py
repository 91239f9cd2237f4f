#!/usr/bin/env python3
"""Games of the practice server that are over or adjourned, with a real pointer under a window manager: listed, reviewed,
examined, put into the journal and taken out again, saved, read back and walked."""
import pathlib
import tempfile
import time
import unittest

from learn import learnPieces
from managed import ManagedDisplay
from peers import Partner, PracticeServer, Wire
from rig import LOG_ON, QUIET, RIGHT, SCALE, Client, Display, nameFile, waitFor
from screen import Screen
from style12 import E4, E5, NF3, START

COURSE = [START, E4, E5, NF3]
MOVES = ("e4", "e5", "Nf3")

CONSOLE, BOARD = "Brightrank - Client", "Brightrank - Board"
EXAMINE, SAVE = 1, 4  # entries of a row's menu
FIRST, FORWARD = 8, 47  # buttons of the board, pixels from the left edge of its panel
BUTTON_ROW = 10  # pixels from the board's lower edge up to their middle
PANEL = 168  # pixels from the left edge of the panel to the window's right edge


class KeptGames(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        with Display() as display:
            cls.pieces = learnPieces(display)

    def setUp(self):
        self.display = self.enterContext(ManagedDisplay())
        self.practice = PracticeServer()
        self.addCleanup(self.practice.end)
        self.wire = Wire(self.practice.port)
        self.addCleanup(self.wire.end)
        self.client = Client(self.display, self.wire.port)
        self.addCleanup(self.client.end)
        waitFor(lambda: self.wire.text() == LOG_ON, "the log-on")
        self.rookery = Partner(self.practice.port)
        self.addCleanup(self.rookery.end)
        time.sleep(8 * QUIET)  # the program learns the prompt when it has stood alone for a second

    def play(self, end):
        """A game of three half-moves against Rookery, which he ends with that command."""
        self.rookery.say("match Pupil 10 0 u black")
        self.rookery.await_("Issuing")
        self.wire.sayForUser("accept")
        self.rookery.await_("Creating")
        self.awaitSent("moves 2")
        for number, move in enumerate(MOVES):
            self.rookery.say(move) if number % 2 else self.wire.sayForUser(move)
            self.rookery.await_(rf"<12> [^\n]* {move} [01] ")
        self.rookery.say(end)

    def playToTheEnd(self):
        self.play("resign")
        self.rookery.await_("resigns}")
        self.display.number(BOARD)

    def awaitSent(self, line):
        """The line as the last one that the server has got."""
        waitFor(lambda: self.wire.text().endswith(f"{line}\n"), lambda: f"{line!r} and not {self.wire.text()!r}")

    def list(self, title, key):
        """Asks for that list by the window's button."""
        told = len(self.wire.received)
        self.display.keys(key)
        self.awaitRows(title, told)

    def openHistory(self, player="Pupil"):
        told = len(self.wire.received)
        self.display.activate(CONSOLE)
        self.display.type(f"history {player}")
        self.display.keys("Return")
        self.awaitRows(f"History for {player}", told)

    def awaitRows(self, title, told):
        """The list of that title is in the window; so many bytes had come before it was asked for."""
        self.display.awaitActive(title)
        waitFor(lambda: self.answer(told).startswith(title), f"the answer {title!r}")
        self.awaitPrompt(told)
        time.sleep(2 * QUIET)

    def answer(self, told):
        return bytes(self.wire.received[told:]).decode("latin-1").lstrip("\n\r")

    def awaitPrompt(self, told):
        waitFor(lambda: self.answer(told).endswith("fics% "), "the prompt")

    def row(self, number):
        """Its middle; room for ten rows ends twelve pixels or less above the window's lower edge."""
        left, top, width, height = self.display.areaOf(self.display.activeTitle())
        margin, line = 11 * SCALE, 14 * SCALE
        return left + width // 3, top + height - margin - line * (9 - number) - line // 2

    def choose(self, *keys, row=0):
        self.display.click(*self.row(row), RIGHT)
        self.display.awaitMenu()
        self.display.keys(*keys)
        self.display.awaitNoMenu()

    def chooseEntry(self, number, row=0):
        self.choose(*["Down"] * number, "Return", row=row)

    def find(self, title):
        """The squares of the board with that title."""
        self.display.number(title)
        self.left, self.top, self.width, self.height = self.display.areaOf(title)
        self.screen = Screen(self.display, pieces=self.pieces)
        waitFor(lambda: self.screen.find(self), "the squares")

    def press(self, button):
        self.display.click(self.left + self.width + (button - PANEL) * SCALE,
                           self.screen.top + 8 * self.screen.side - BUTTON_ROW * SCALE)
        time.sleep(QUIET)  # the window manager hands a click on, and takes a moment for it
        self.display.move(self.display.width - 5, self.display.height - 5)

    def awaitPosition(self, rows):
        waitFor(lambda: self.screen.read() == rows, lambda: f"{rows} and not {self.screen.read()}")

    def walk(self):
        """From the start to the end, move by move."""
        self.awaitPosition(START)
        for rows in COURSE[1:]:
            self.press(FORWARD)
            self.awaitPosition(rows)
        self.press(FIRST)
        self.awaitPosition(START)

    def testAGameOfTheHistoryIsReviewed(self):
        self.playToTheEnd()
        self.openHistory()
        self.display.click(*self.row(0))
        self.display.click(*self.row(0))
        self.awaitSent("smoves Pupil  0")
        self.find("Pupil (1200) vs. Rookery (1640) - Reviewing")
        self.walk()

    def testAGameOfAnotherIsSavedReadBackAndWalked(self):
        self.playToTheEnd()
        self.openHistory("Rookery")
        with tempfile.TemporaryDirectory() as folder:
            path = pathlib.Path(folder, "mine.pgn")
            self.chooseEntry(SAVE)
            self.display.awaitActive("Save Game")
            nameFile(self.display, path.with_suffix(""), lambda: self.display.activeTitle() != "Save Game")
            self.awaitSent("smoves Rookery  0")
            text = waitFor(lambda: path.exists() and path.read_text("latin-1"), "the file")
            self.assertIn('[White "Pupil"]\n[Black "Rookery"]\n[WhiteElo "1200"]\n[BlackElo "1640"]\n'
                          '[TimeControl "10+0"]\n[Result "1-0"]\n\n1. e4 e5 2. Nf3\n1-0\n\n', text)
            self.display.activate(BOARD)
            self.display.keys("alt+f")
            self.display.keys("r")
            self.display.awaitActive("Open Game File")
            nameFile(self.display, path, lambda: self.display.activeTitle() != "Open Game File")
            self.display.awaitActive(str(path))
            self.display.keys("Return")
            self.find("Pupil - Rookery  1-0")
            self.walk()

    def testAGameIsExaminedFromTheHistory(self):
        self.playToTheEnd()
        self.openHistory("Rookery")
        self.chooseEntry(EXAMINE)
        waitFor(lambda: "ex Rookery 0\n" in self.wire.text(), "the examining")
        self.awaitSent("smoves Rookery 0")  # for its list
        self.find("Pupil (1200) vs. Rookery (1640) - Examining")
        self.awaitPosition(START)
        self.press(FORWARD)
        self.awaitSent("For")
        self.awaitPosition(E4)

    def testAGameIsPutIntoTheJournalAndTakenOutAgain(self):
        self.playToTheEnd()
        self.openHistory("Rookery")
        told = len(self.wire.received)
        self.choose("Up", "Right", "Down", "Return")  # Add Journal, B
        self.awaitSent("jsave B Rookery  0")
        self.awaitPrompt(told)
        self.display.keys("alt+p", "ctrl+a")
        self.display.type("Pupil")
        self.list("Journal for Pupil", "alt+j")
        self.awaitSent("Journal Pupil")
        self.display.click(*self.row(0))
        self.display.click(*self.row(0))
        self.awaitSent("smoves Pupil B")
        self.find("Pupil (1200) vs. Rookery (1640) - Reviewing")
        self.walk()
        self.display.activate("Journal for Pupil")
        for key in "alt+n", "alt+y":
            self.choose("Up", "Return")  # Remove
            self.awaitBox()
            self.display.keys(key)
            self.display.awaitActive("Journal for Pupil")
        self.awaitSent("jkill B")
        self.assertEqual(self.wire.text().count("jkill"), 1)
        waitFor(lambda: b"Journal entry B deleted." in self.wire.received, "the server's word")

    def testAnAdjournedGameIsReviewedAndGoesOn(self):
        self.play("adjourn")
        self.wire.sayForUser("adjourn")
        self.rookery.await_("adjourned by mutual agreement}")
        self.display.number(BOARD)
        self.openEmptyHistory()
        self.list("Stored games for Pupil", "alt+s")
        self.display.click(*self.row(0))
        self.display.click(*self.row(0))
        self.awaitSent("smoves Pupil Rookery")
        self.find("Pupil (1200) vs. Rookery (1640) - Reviewing")
        self.walk()
        self.rookery.say("match Pupil")
        self.rookery.await_("Issuing")
        self.wire.sayForUser("accept")
        self.rookery.await_("Continuing")
        self.awaitSent("moves 2")
        self.find("Pupil (1200) vs. Rookery (1640)")
        self.awaitPosition(NF3)

    def openEmptyHistory(self):
        """A box says that there are no games."""
        self.display.activate(CONSOLE)
        self.display.type("history")
        self.display.keys("Return")
        self.awaitBox()
        self.display.keys("Return")
        self.display.awaitActive("History for Pupil")

    def awaitBox(self):
        waitFor(lambda: self.display.activeTitle() == "Brightrank", "a box")


if __name__ == "__main__":
    unittest.main(verbosity=2)
