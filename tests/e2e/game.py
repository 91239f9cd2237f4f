"""One game of two people: Pupil at the program, with the pointer, and Rookery at the server's own text."""
import time
import unittest

from learn import learnPieces
from rig import LEFT, RIGHT, Client, Display, Partner, PracticeServer, Screen, Wire, waitFor

QUIET = 0.25  # seconds in which something that must not happen would have happened


class PlayedByHand(unittest.TestCase):
    """A display, a server and a partner for all tests of a class; a program for each, with the class's settings."""

    settings = {}

    @classmethod
    def setUpClass(cls):
        cls.display = cls.enterClassContext(Display())
        cls.pieces = learnPieces(cls.display)
        cls.practice = PracticeServer()
        cls.addClassCleanup(cls.practice.end)

    def begin(self, white=True, kind="", **settings):
        """A game is on, the program's user has that colour."""
        self.wire = Wire(self.practice.port)
        self.addCleanup(self.wire.end)
        self.display.move(1900, 1060)
        self.client = Client(self.display, self.wire.port, **{**self.settings, **settings})
        self.addCleanup(self.endClient)
        self.partner = Partner(self.practice.port)
        self.addCleanup(self.partner.end)
        waitFor(lambda: "Set Style 12" in self.wire.lines(), 20, "the log-on")
        self.before = len(self.wire.lines()) - 1
        self.startGame(white, kind)
        self.screen = Screen(self.display, flipped=not white)
        self.screen.pieces = self.pieces
        waitFor(self.screen.find, 10, "the board")
        self.awaitPosition()
        self.display.keys("alt+b", "l")  # Board, Clean: else no piece can be lifted in the first four seconds
        time.sleep(QUIET)

    def startGame(self, white, kind):
        time.sleep(0.5)
        self.partner.say(f"match Pupil 10 0 {kind} u {'black' if white else 'white'}")
        self.partner.await_("Issuing")
        self.wire.sayForUser("accept")
        self.partner.await_("Creating")
        waitFor(self.wire.positions, 10, "the first position")

    def endClient(self):
        self.assertEqual(self.client.end(), 0, "the program ended in disorder")

    def sent(self):
        """The commands the program has sent since the game began, each as it came."""
        return self.wire.lines()[self.before:-1]

    def awaitSent(self, *lines, seconds=5):
        waitFor(lambda: len(self.sent()) >= len(lines), seconds, f"{lines} and not {self.sent()}")
        self.assertEqual(self.sent(), list(lines))

    def awaitPosition(self):
        """Waits until the screen shows the position that the server sent last."""
        waitFor(lambda: self.screen.read() == self.wire.positions()[-1][:8], 5,
                f"{self.wire.positions()[-1][:8]} on the screen")

    def lift(self, square):
        self.display.move(*self.screen.centre(square))
        self.display.press()

    def drop(self, square):
        self.display.move(*self.screen.centre(square))
        self.display.release()

    def drag(self, start, end):
        self.lift(start)
        self.drop(end)

    def answer(self, move):
        """The partner's move, after the program's last one has come to him; waits until it shows."""
        count = len(self.wire.positions())
        self.partner.say(move)
        waitFor(lambda: len(self.wire.positions()) > count, 5, f"the position behind {move}")
        self.awaitPosition()

    def move(self, start, end):
        """A move by dragging, until the server has confirmed it on the screen."""
        count = len(self.wire.positions())
        self.drag(start, end)
        waitFor(lambda: len(self.wire.positions()) > count, 5, f"the server's answer to {start}{end}, {self.sent()}")
        self.awaitPosition()

    def play(self, *moves):
        """Moves of both, the program's user first where he has white; his by dragging."""
        user = not self.screen.flipped
        for move in moves:
            if user:
                self.move(move[:2], move[2:])
            else:
                self.answer(move)
            user = not user


__all__ = ["LEFT", "RIGHT", "QUIET", "PlayedByHand", "waitFor", "time", "unittest"]
