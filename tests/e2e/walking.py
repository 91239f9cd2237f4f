#!/usr/bin/env python3
"""Walking through games with a real pointer and the keys: watched, ended and examined ones, to their exact bytes."""
import time
import unittest

from learn import learnPieces
from rig import LOG_ON, QUIET, SCALE, Client, Display, waitFor
from screen import Screen, iter4
from scripted import ScriptedServer
from style12 import E4, E5, NF3, PROMPT, START, style12

NC6 = ["r-bqkbnr", "pppp-ppp", "--n-----", "----p---", "----P---", "-----N--", "PPPP-PPP", "RNBQKB-R"]
# Position, side to move, move number, the move in both forms.
COURSE = [(START, "W", 1, "none", "none"), (E4, "B", 1, "P/e2-e4", "e4"), (E5, "W", 2, "P/e7-e5", "e5"),
          (NF3, "B", 2, "N/g1-f3", "Nf3"), (NC6, "W", 3, "N/b8-c6", "Nc6")]
WATCHED, EXAMINED = 0, 2  # relations
LAST_WORDS = "smoves Style 12"  # an examined game is asked for by the words of the last command
TITLE = "Skipper - Harbour    [60 0]"

FIRST, BACK, STAY, FORWARD, LAST = 8, 25, 36, 47, 64  # the buttons, pixels from the left edge of the panel
BUTTON_ROW = 10  # pixels from the board's lower edge up to their middle
PANEL = 168  # pixels from the left edge of the panel to the window's right edge
LABEL = 11  # pixels from the top edge of the squares up to the middle of the last move
CURRENT = (255, 192, 192)  # the tint of the current move


class Walking(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.display = cls.enterClassContext(Display())
        cls.pieces = learnPieces(cls.display)

    def setUp(self):
        self.display.move(self.display.width - 5, self.display.height - 5)
        self.server = ScriptedServer()
        self.addCleanup(self.server.end)
        self.client = Client(self.display, self.server.port)
        self.expected = LOG_ON
        self.addCleanup(self.endClient)
        self.server.logOn()
        self.screen = Screen(self.display, pieces=self.pieces)

    def endClient(self):
        self.client.end()
        self.assertEqual(self.server.whole(), self.expected)

    def show(self, place, relation, game=1):
        rows, mover, number, move, pretty = COURSE[place]
        self.server.say(style12(rows, game=game, mover=mover, relation=relation, number=number, move=move,
                                pretty=pretty))

    def open(self, relation, last=4, game=1, asked="moves 1"):
        """The game up to that move, behind whose first position its moves are asked for."""
        self.show(0, relation, game)
        self.awaitSent(asked)
        for place in range(1, last + 1):
            self.show(place, relation, game)
        self.window = self.display.awaitWindow(TITLE)
        waitFor(lambda: self.screen.find(self.window), "the squares")
        self.awaitBoard(COURSE[last][0])

    def openEnded(self):
        self.open(WATCHED)
        self.server.say("\n\r{Game 1 (Skipper vs. Harbour) Harbour resigns} 1-0" + PROMPT)
        self.display.awaitWindow("Brightrank - Board")

    def awaitBoard(self, rows):
        waitFor(lambda: self.screen.read() == rows, lambda: f"{rows} and not {self.screen.read()}")

    def awaitSame(self, rows):
        time.sleep(QUIET)
        self.assertEqual(self.screen.read(), rows)

    def panel(self):
        return self.window.left + self.window.width - PANEL * SCALE

    def press(self, button):
        self.display.click(self.panel() + button * SCALE,
                           self.screen.top + 8 * self.screen.side - BUTTON_ROW * SCALE)
        self.display.move(self.display.width - 5, self.display.height - 5)

    def awaitSent(self, *lines):
        for line in lines:
            self.server.awaitLine(line)
            self.expected += line + "\n"

    def tinted(self):
        """The current move's cell: left, top, width, height on the screen; None without one."""
        left, top = self.panel(), self.screen.top
        picture = self.display.picture(left, top, PANEL * SCALE, 8 * self.screen.side)
        tint = bytes(reversed(CURRENT))
        spots = [(x, y) for y in range(picture.height) for x in iter4(picture.row(y), tint)]
        if not spots:
            return None
        columns, rows = [x for x, _ in spots], [y for _, y in spots]
        return (left + min(columns), top + min(rows), max(columns) - min(columns) + 1, max(rows) - min(rows) + 1)

    def click(self, cell, right=0, down=0):
        """So many cells to the right of that one, and below it."""
        left, top, width, height = cell
        self.display.click(left + width // 2 + right * width, top + height // 2 + down * height)

    def testAWatchedGameIsViewedAndComesBackWithTheNextMove(self):
        self.open(WATCHED, last=3)
        self.press(FIRST)
        self.awaitBoard(START)
        self.press(FORWARD)
        self.awaitBoard(E4)
        self.press(STAY)
        self.press(BACK)
        self.awaitSame(E4)  # a step back of a live game turns whose move it is, and no more
        self.press(LAST)
        self.awaitBoard(NF3)
        self.press(FIRST)
        self.awaitBoard(START)
        self.show(4, WATCHED)
        self.awaitBoard(NC6)
        self.expected += "unob 1\n"

    def testAnEndedGameIsWalkedHere(self):
        self.openEnded()
        for button, rows in ((BACK, NF3), (BACK, E5), (FIRST, START), (BACK, START), (FORWARD, E4), (STAY, E4),
                             (FORWARD, E5), (LAST, NC6), (FORWARD, NC6)):
            self.press(button)
            self.awaitBoard(rows)

    def testACellOfAnEndedGameShowsItsPosition(self):
        self.openEnded()
        self.press(LAST)
        cell = waitFor(self.tinted, "the tint of the last move")
        self.click(cell, right=-1, down=-1)
        self.awaitBoard(E4)
        self.click(cell, down=-1)
        self.awaitBoard(E5)
        self.click(cell, down=-2)  # the heading
        self.awaitSame(E5)
        self.click(cell, down=1)  # behind the last row
        self.awaitSame(E5)

    def testTheKeysOfTheListWalkAndCharactersAreTyped(self):
        self.openEnded()
        self.display.click(*self.screen.centre("e5"))
        self.display.release()
        self.display.keys("Tab")  # no button has a command
        for key, rows in (("Home", START), ("Right", E4), ("Right", E5), ("Left", E4), ("End", NC6)):
            self.display.keys(key)
            self.awaitBoard(rows)
        self.display.type("who")
        self.display.keys("Return")
        self.awaitSent("who")

    def testAnExaminedGameIsWalkedByTheServer(self):
        self.open(EXAMINED, last=1, asked=LAST_WORDS)
        for button in (FIRST, BACK, STAY, FORWARD, LAST):
            self.press(button)
        self.awaitSent("Back 999", "Back", "For", "For 999")
        self.awaitSame(E4)
        self.show(0, EXAMINED)  # late
        self.awaitBoard(START)
        for place in (4, 4):  # twice
            self.show(place, EXAMINED)
            self.awaitBoard(NC6)
        self.press(FORWARD)
        self.awaitSent("For")
        self.server.say("\n\rYou're at the end of the game." + PROMPT)
        self.awaitSame(NC6)
        self.press(BACK)
        self.awaitSent("Back")
        self.show(3, EXAMINED)
        self.awaitBoard(NF3)
        self.expected += "unex\n"

    def testAClickThreePliesAheadInAnExaminedGameSendsFor3(self):
        self.openEnded()
        self.press(LAST)
        cell = waitFor(self.tinted, "the tint of the last move")  # black's of row 2
        self.open(EXAMINED, last=1, game=2, asked="smoves 1")  # the last command was "moves 1"
        self.click(cell)
        self.awaitSent("For 3")
        self.show(4, EXAMINED, game=2)
        self.awaitBoard(NC6)
        self.click(cell)  # the move last played
        self.click(cell, right=-1, down=-1)
        self.awaitSent("Back 3")
        self.expected += "unex\n"

    def testADoubleClickOnTheLastMoveSendsRevert(self):
        self.open(EXAMINED, last=1, asked=LAST_WORDS)
        point = self.panel() + 20 * SCALE, self.screen.top - LABEL * SCALE
        self.display.click(*point)
        self.display.click(*point)
        self.awaitSent("Revert")
        self.show(0, EXAMINED)
        self.awaitBoard(START)
        self.expected += "unex\n"


if __name__ == "__main__":
    unittest.main(verbosity=2)
