"""One game of two people: Pupil at the program, with the pointer, and Rookery at the server's own text."""
import contextlib
import time
import unittest

from learn import learnPieces
from peers import Partner, PracticeServer, Wire
from rig import LOG_ON, QUIET, RIGHT, SCALE, Client, Display, awaitLifting, waitFor
from screen import MOVED, PRE_MOVED, Screen
from style12 import GAME, RELATION, VERBOSE_MOVE, target

USERS_MOVE, PARTNERS_MOVE = "1", "-1"  # relations
QUEEN, ROOK, BISHOP, KNIGHT = 1, 2, 3, 4  # entries of the promotion menu
# To the move that promotes on a8, and what the program sends on the way.
ROAD = ("e2e4", "d7d5", "e4d5", "c7c6", "d5c6", "a7a6", "c6b7", "h7h6")
SENT_ON_THE_ROAD = ("e2-e4", "e4-d5", "d5-c6", "c6-b7")


class PlayedByHand(unittest.TestCase):
    """A display, a server and a partner for all tests of a class; a program for each, with the class's settings.

    What the program sends is compared whole: nothing may have come behind the last `awaitSent` of a test."""

    settings = {}
    beside = {}  # files in the program's current directory

    @classmethod
    def setUpClass(cls):
        cls.display = cls.enterClassContext(Display())
        cls.pieces = learnPieces(cls.display)
        cls.practice = PracticeServer()
        cls.addClassCleanup(cls.practice.end)

    def begin(self, white=True, kind="", **settings):
        """A game is on, the program's user has that colour."""
        self.logOn(**settings)
        self.startGame(white, kind)
        self.screen = Screen(self.display, flipped=not white, pieces=self.pieces)
        waitFor(self.screen.find, "the board")
        self.awaitPosition()
        self.display.awaitFocus(self.board())
        self.fromBoardMenu("l")  # Clean: else no piece can be lifted in the first four seconds
        self.awaitPosition()  # also where the menu was

    def logOn(self, **settings):
        """Program and partner are there, and no game is."""
        self.expected = None
        self.lists = []  # what was asked of games that began: behind how many other commands, and the command
        self.addCleanup(self.display.release)
        self.wire = self.line()
        self.addCleanup(self.wire.end)
        self.display.move(self.display.width - 20, self.display.height - 20)
        self.client = Client(self.display, self.wire.port, beside=self.beside, **{**self.settings, **settings})
        self.addCleanup(self.endClient)
        self.greet()
        self.partner = Partner(self.practice.port)
        self.addCleanup(self.partner.end)
        waitFor(lambda: len(self.wire.sent) >= len(LOG_ON), "the log-on")
        self.assertEqual(self.wire.text(), LOG_ON)
        time.sleep(2 * QUIET)

    def line(self):
        """What lies between program and server."""
        return Wire(self.practice.port)

    def greet(self):
        """Whatever the program asks before it connects."""

    def startGame(self, white, kind):
        self.partner.say(f"match Pupil 10 0 {kind} u {'black' if white else 'white'}")
        self.partner.await_("Issuing")
        self.wire.sayForUser("accept")
        self.partner.await_("Creating")
        waitFor(self.wire.positions, "the first position")
        self.awaitList()

    def awaitList(self):
        """Waits until the program has asked for the moves of the game that has begun."""
        begun = len(self.lists) + 1

        def asked():
            return [line for line in self.sent() if line.startswith("moves ")]
        waitFor(lambda: len(asked()) >= begun, "the question for the game's moves")
        place = [at for at, line in enumerate(self.sent()) if line.startswith("moves ")][-1]
        self.lists.append((place, f"moves {self.wire.positions()[-1][GAME]}"))

    def withLists(self, lines):
        """These commands, and between them those that ask for the moves of games that begin."""
        lines = list(lines)
        for place, line in self.lists:
            lines.insert(place, line)
        return lines

    def endClient(self):
        self.client.end()
        self.assertIsNotNone(self.expected, "the test has not said what the server gets")
        self.assertEqual(self.wire.whole(), LOG_ON + "".join(f"{line}\n" for line in self.withLists(self.expected)))

    @contextlib.contextmanager
    def round(self, **name):
        """A subtest with a program of its own, which ends with it."""
        with self.subTest(**name):
            try:
                yield
            finally:
                self.doCleanups()

    def sent(self):
        """The commands the program has sent since the log-on, each as it came and with its end."""
        return self.wire.text()[len(LOG_ON):].split("\n")[:-1]

    def awaitSent(self, *lines):
        """Waits until the server has got these commands in all and the questions of games that began, byte for byte."""
        self.expected = list(lines)
        lines = self.withLists(lines)
        waitFor(lambda: len(self.sent()) >= len(lines), lambda: f"{lines} and not {self.wire.text()!r}")
        self.assertEqual(self.sent(), lines)

    def awaitNothingMore(self, *lines):
        """These are all, a while later as well."""
        time.sleep(QUIET)
        self.awaitSent(*lines)

    def awaitPosition(self):
        """Waits until the screen shows the position that the server sent last."""
        waitFor(lambda: self.screen.read() == self.wire.positions()[-1][:8],
                lambda: f"{self.wire.positions()[-1][:8]} on the screen and not {self.screen.read()}")

    def awaitQueued(self, end):
        """Waits until the screen shows a pre-move to that square."""
        waitFor(lambda: self.screen.mark(end) == PRE_MOVED, f"the mark on {end}")

    def board(self):
        """The window of the board that shows."""
        return next(each for each in self.display.windows() if not each.title.startswith("Brightrank - Client"))

    def lift(self, square):
        self.display.move(*self.screen.centre(square))
        self.display.press()

    def drop(self, square):
        self.display.move(*self.screen.centre(square))
        self.display.release()

    def drag(self, start, end):
        self.lift(start)
        self.drop(end)

    def clicks(self, start, end):
        self.display.click(*self.screen.centre(start))
        self.display.click(*self.screen.centre(end))

    def flip(self):
        self.fromBoardMenu("f")  # Flip
        time.sleep(QUIET)
        self.screen.flipped = not self.screen.flipped

    def fromBoardMenu(self, key):
        """An entry of the menu Board by its letter; what it does is done when the menu has gone."""
        self.display.keys("alt+b")
        self.display.awaitMenu()
        self.display.keys(key)
        self.display.awaitNoMenu()

    def awaitAnother(self, action, what):
        """Does something, and waits until the server has sent another position."""
        count = len(self.wire.positions())
        action()
        waitFor(lambda: len(self.wire.positions()) > count,
                lambda: f"the position behind {what}; sent {self.sent()}")

    def awaitConfirmed(self):
        """Waits until the screen shows the server's last move as such. A move of the user's own shows before that; the
        marks come with the server's word, "P/e2-e4"."""
        self.awaitPosition()
        self.awaitMarked()

    def awaitMarked(self):
        last = self.wire.positions()[-1]
        waitFor(lambda: self.screen.mark(target(last)) == MOVED, f"the mark of {last[VERBOSE_MOVE]}")

    def answerInHand(self, move):
        """The partner's move while a piece is in hand, which is missing on the screen; waits until it shows."""
        self.awaitAnother(lambda: self.partner.say(move), move)
        self.awaitMarked()

    def answer(self, move):
        """The partner's move, after the program's last one has come to him; waits until it shows."""
        waitFor(lambda: self.wire.positions()[-1][RELATION] == PARTNERS_MOVE, f"the partner's turn before {move}")
        self.awaitAnother(lambda: self.partner.say(move), move)
        waitFor(lambda: self.wire.positions()[-1][RELATION] == USERS_MOVE, f"the position behind {move}")
        self.awaitConfirmed()

    def move(self, start, end):
        """A move by dragging, until the server has confirmed it on the screen."""
        self.awaitAnother(lambda: self.drag(start, end), f"{start}{end}")
        self.awaitConfirmed()

    def moveByClicks(self, start, end):
        self.awaitAnother(lambda: self.clicks(start, end), f"{start}{end}")
        self.awaitConfirmed()

    def play(self, *moves):
        """Moves of both, the program's user first where he has white; his by dragging."""
        user = not self.screen.flipped
        for move in moves:
            if user:
                self.move(move[:2], move[2:])
            else:
                self.answer(move)
            user = not user

    def promote(self, start, end, entry):
        """A pawn to its last rank, and the entry chosen from the menu: 1 is the queen, 4 the knight."""
        self.drag(start, end)
        self.choose(entry)

    def choose(self, entry):
        """An entry of the menu that is open, by keys."""
        self.display.awaitMenu()
        self.display.keys(*["Down"] * entry, "Return")


__all__ = ["RIGHT", "SCALE", "QUIET", "PlayedByHand", "awaitLifting", "waitFor", "time", "unittest"]
