"""One game of two people: Pupil at the program, with the pointer, and Rookery at the server's own text."""
import time
import unittest

from learn import learnPieces
from peers import Partner, PracticeServer, Wire
from rig import LEFT, RIGHT, SCALE, Client, Display, waitFor
from screen import MOVED, Screen

QUIET = 0.25  # seconds in which something that must not happen would have happened
RELATION, VERBOSE_MOVE = 18, 26  # fields of a Style 12 line, counted from its first row
USERS_MOVE = "1"
LOG_ON = ["Pupil", "practice", "Set Style 12"]  # all that the program says before its user does anything


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
        waitFor(self.screen.find, 10, "the board")
        self.awaitPosition()
        self.awaitFocus(self.board())
        self.display.keys("alt+b", "l")  # Board, Clean: else no piece can be lifted in the first four seconds
        time.sleep(QUIET)

    def logOn(self, **settings):
        """Program and partner are there, and no game is."""
        self.expected = None
        self.wire = Wire(self.practice.port)
        self.addCleanup(self.wire.end)
        self.display.move(self.display.width - 20, self.display.height - 20)
        self.client = Client(self.display, self.wire.port, beside=self.beside, **{**self.settings, **settings})
        self.addCleanup(self.endClient)
        self.greet()
        self.partner = Partner(self.practice.port)
        self.addCleanup(self.partner.end)
        waitFor(lambda: LOG_ON[-1] in self.wire.lines(), 20, "the log-on")
        self.assertEqual(self.wire.lines(), [*LOG_ON, ""])
        time.sleep(2 * QUIET)

    def greet(self):
        """Whatever the program asks before it connects."""

    def startGame(self, white, kind):
        self.partner.say(f"match Pupil 10 0 {kind} u {'black' if white else 'white'}")
        self.partner.await_("Issuing")
        self.wire.sayForUser("accept")
        self.partner.await_("Creating")
        waitFor(self.wire.positions, 10, "the first position")

    def endClient(self):
        self.assertEqual(self.client.end(), 0, "the program ended in disorder")
        self.assertIsNotNone(self.expected, "the test has not said what the server gets")
        self.assertEqual(self.sent(), self.expected)

    def sent(self):
        """The commands the program has sent since the log-on, each as it came; what lacks its end stands last."""
        lines = self.wire.lines()[len(LOG_ON):]
        return lines[:-1] if lines[-1] == "" else lines

    def awaitSent(self, *lines, seconds=5):
        """Waits until the server has got these commands in all, byte for byte."""
        self.expected = list(lines)
        waitFor(lambda: len(self.sent()) >= len(lines), seconds, f"{lines} and not {self.sent()}")
        self.assertEqual(self.sent(), self.expected)

    def awaitNothingMore(self, *lines):
        """These are all, a while later as well."""
        time.sleep(QUIET)
        self.awaitSent(*lines)

    def awaitPosition(self):
        """Waits until the screen shows the position that the server sent last."""
        waitFor(lambda: self.screen.read() == self.wire.positions()[-1][:8], 5,
                f"{self.wire.positions()[-1][:8]} on the screen")

    def awaitWindow(self, title):
        """The window of that title, as soon as it shows."""
        return waitFor(lambda: self.display.windows(title), 5, f"a window {title!r}")[-1]

    def awaitDialog(self, title):
        """The same, when it takes the keys."""
        return self.awaitFocus(self.awaitWindow(title))

    def awaitFocus(self, window):
        waitFor(lambda: self.display.hasFocus(window), 5, f"the focus in {window.title!r}")
        return window

    def board(self):
        """The window of the board that shows."""
        return next(each for each in self.display.windows() if not each.title.startswith("Brightrank - Client"))

    def awaitMenu(self):
        """The popup menu that is open."""
        return waitFor(self.display.menus, 5, "a menu")[-1]

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
        """Board, Flip."""
        self.display.keys("alt+b")
        self.awaitMenu()
        self.display.keys("f")
        time.sleep(QUIET)
        self.screen.flipped = not self.screen.flipped

    def awaitAnother(self, action, what):
        """Does something, and waits until the server has sent another position."""
        count = len(self.wire.positions())
        action()
        waitFor(lambda: len(self.wire.positions()) > count, 5, f"the position behind {what}; sent {self.sent()}")

    def awaitConfirmed(self):
        """Waits until the screen shows the server's last move as such. A move of the user's own shows before that; the
        marks come with the server's word, "P/e2-e4", but for castling, which has none."""
        self.awaitPosition()
        move = self.wire.positions()[-1][VERBOSE_MOVE]
        if move.startswith("o-o"):
            time.sleep(QUIET)
        else:
            waitFor(lambda: self.screen.mark(move[5:7]) == MOVED, 5, f"the mark of {move}")

    def answer(self, move):
        """The partner's move, after the program's last one has come to him; waits until it shows."""
        self.awaitAnother(lambda: self.partner.say(move), move)
        waitFor(lambda: self.wire.positions()[-1][RELATION] == USERS_MOVE, 5, f"the position behind {move}")
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
        self.awaitMenu()
        self.display.keys(*["Down"] * entry, "Return")


__all__ = ["LEFT", "RIGHT", "SCALE", "QUIET", "PlayedByHand", "waitFor", "time", "unittest"]
