"""Forty boards of the built program, each with a game that is watched, laid out so that all can be read."""
import random
import re
import time
import unittest

from learn import learnPieces
from rig import LOG_ON, QUIET, SCALE, Client, Display, waitFor
from screen import Screen
from scripted import ScriptedServer
from watched import WatchedGame

FORTY = 40
COLUMNS = 8
SMALL = {"boardWidth": 5865, "boardHeight": 4275}  # squares of 24 pixels
CELL = (400, 300)  # pixels that a board of that size has room in


class FortyBoards(unittest.TestCase):
    """The program with a board for each of forty watched games, laid out beside each other."""

    settings = {"AutoQueen": 0}

    @classmethod
    def setUpClass(cls):
        cls.display = cls.enterClassContext(Display(COLUMNS * CELL[0], 6 * CELL[1]))
        cls.pieces = learnPieces(cls.display, **SMALL)

    def setUp(self):
        self.dice = random.Random(self.id())
        self.display.move(self.display.width - 5, self.display.height - 5)
        self.addCleanup(self.display.release)
        self.server = ScriptedServer()
        self.addCleanup(self.server.end)
        self.client = Client(self.display, self.server.port, **SMALL, **self.settings)
        self.addCleanup(self.endClient)
        self.server.logOn()
        time.sleep(QUIET)
        self.boards = {}  # number of a game -> its window and its Screen
        self.games = {}
        self.expected = ""
        for number in range(1, FORTY + 1):
            self.watch(number)

    def endClient(self):
        self.client.end()
        parting = "".join(f"unob {number}\n" for number in self.games)
        self.assertEqual(self.server.whole(), LOG_ON + self.expected + parting)

    def watch(self, number):
        self.games[number] = WatchedGame(number)
        self.server.say(self.games[number].now())
        self.awaitCommand(f"moves {number}")
        self.layOut(number, self.games[number].title)

    def layOut(self, number, title):
        """Waits for the board of a game, and moves it to a place of its own."""
        window = waitFor(lambda: self.display.windows(title), title)[0]
        place = number - 1 if number <= FORTY else FORTY
        left, top = place % COLUMNS * CELL[0] * SCALE, place // COLUMNS * CELL[1] * SCALE
        self.display.moveWindow(window, left, top)
        window = waitFor(lambda: [each for each in self.display.windows(title) if (each.left, each.top) == (left, top)],
                         f"{title} at its place")[0]
        screen = Screen(self.display, pieces=self.pieces)
        waitFor(lambda: screen.find(window), f"the squares of {title}")
        self.boards[number] = window, screen

    def awaitAll(self):
        """Each board shows the position of its own game, and there is no other board."""
        for number, game in self.games.items():
            screen = self.boards[number][1]
            waitFor(lambda: screen.read() == game.rows, f"{game.rows} on the board of {number}")
        self.assertEqual(len(self.boardWindows()), len(self.boards))

    def boardWindows(self):
        return [window for window in self.display.windows() if re.search(r"\[60 0\]$", window.title)]

    def close(self, number):
        self.display.closeWindow(self.boards[number][0])

    def forget(self, number):
        self.display.awaitGone(self.boards[number][0])
        del self.boards[number]
        self.games.pop(number, None)

    def awaitCommand(self, command):
        """That command is the next that the server gets."""
        self.expected += command + "\n"
        self.server.awaitLine(command)

    def round(self):
        """An update of every game, in an order drawn anew."""
        numbers = list(self.games)
        self.dice.shuffle(numbers)
        self.server.say("".join(self.games[number].next() for number in numbers))
