#!/usr/bin/env python3
"""Where windows and dialogs stand under a window manager: a place is that of the frame and not of what it holds."""
import socket
import unittest

from managed import ManagedDisplay
from rig import SCALE, TWIPS, Client, waitFor

CONSOLE, BOARD = "Brightrank - Client", "Brightrank - Board"
QUESTION_OFFSET = (420 // TWIPS, 210 // TWIPS)  # of the question for a buddy from its chat box


class DialogsInPlace(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.display = cls.enterClassContext(ManagedDisplay())
        cls.server = cls.enterClassContext(socket.create_server(("127.0.0.1", 0)))  # says nothing

    def begin(self, **settings):
        self.client = Client(self.display, self.server.getsockname()[1], Auto_Connect="False", **settings)
        self.ended = False
        self.addCleanup(lambda: self.ended or self.client.end())
        self.display.frame(BOARD)

    def end(self):
        self.ended = True
        return self.client.end()

    def choose(self, title, menu, key):
        self.display.activate(title)
        self.display.keys(menu)
        self.display.keys(key)

    def expectCorner(self, title, x, y):
        """In pixels of the program."""
        self.assertEqual(self.display.settled(title).corner, (x * SCALE, y * SCALE))

    def corner(self, title):
        left, top = self.display.settled(title).corner
        return left // SCALE, top // SCALE

    def testSavedPlacesAreThoseOfTheFrames(self):
        self.begin()
        self.expectCorner(CONSOLE, 10, 660)
        self.expectCorner(BOARD, 660, 10)
        store = self.end()
        self.assertIn("Left=150\nTop=9900\n", store.replace("\r", ""))

    def testWindowsThatWantMoreThanTheirSavedSizeStandInTheirPlacesToo(self):
        self.begin(Width=300, Height=300, boardWidth=300, boardHeight=300)
        self.expectCorner(CONSOLE, 10, 660)
        self.expectCorner(BOARD, 660, 10)

    def testTheColoursStandAtTheBoardsCorner(self):
        self.begin()
        self.choose(BOARD, "alt+b", "c")
        self.expectCorner("Board Colors", *self.corner(BOARD))

    def testTheColoursStandAtTheCornerOfABoardThatWasMoved(self):
        self.begin()
        self.display.settled(BOARD)
        self.display.put(BOARD, 300 * SCALE, 200 * SCALE)
        self.choose(BOARD, "alt+b", "c")
        self.expectCorner("Board Colors", *self.corner(BOARD))

    def testTheQuestionForABuddyStandsBesideTheCornerOfItsBox(self):
        self.begin()
        self.choose(CONSOLE, "alt+w", "h")
        x, y = self.corner("Chat")
        self.expectCorner("Chat Box", x + QUESTION_OFFSET[0], y + QUESTION_OFFSET[1])

    def testTheMatchDialogComesBackToItsPlace(self):
        self.begin(boardWidth=9000)
        self.choose(BOARD, "alt+a", "m")
        self.display.settled("Match")
        self.display.put("Match", 200 * SCALE, 150 * SCALE)
        moved = self.corner("Match")
        self.display.activate("Match")
        self.display.keys("Escape")
        waitFor(lambda: self.display.numberNow("Match") is None, "the dialog to close")
        self.choose(BOARD, "alt+a", "m")
        self.expectCorner("Match", *moved)

    def testAtTheFirstStartTheBoardStandsBesideTheConsole(self):
        self.begin(Registry_OK="No", Left=0, Top=0, Width=11400, Height=8400)
        console, board = self.display.settled(CONSOLE), self.display.settled(BOARD)
        self.assertFalse(console.meets(board), f"{console} and {board}")
        self.assertEqual(console.corner, (0, 0))
        self.assertLessEqual(board.right, self.display.width)


if __name__ == "__main__":
    unittest.main(verbosity=2)
