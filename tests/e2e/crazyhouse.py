#!/usr/bin/env python3
"""Crazyhouse with the pointer on the built program: a captured piece is dropped through the popup."""
from game import QUIET, RIGHT, PlayedByHand, time, unittest, waitFor


class CrazyhouseDrops(PlayedByHand):
    def openMenu(self, square):
        self.display.move(*self.screen.centre(square))
        self.display.press(RIGHT)
        self.display.release(RIGHT)
        time.sleep(2 * QUIET)

    def testACapturedPawnIsDroppedThroughThePopup(self):
        self.begin(kind="crazyhouse")
        self.play("e2e4", "d7d5", "e4d5", "h7h6")
        before = self.screen.middles()
        self.openMenu("e4")
        self.assertNotEqual(self.screen.middles(), before, "no menu shows")
        self.display.keys("Up", "Return")  # the pawn is the last entry, and the only one in hand
        self.awaitSent("e2-e4", "e4-d5", "P@e4")
        waitFor(lambda: self.wire.positions()[-1][4] == "----P---", 5, "the pawn on the server's board")
        self.awaitPosition()

    def testOverAPieceNoMenuOpens(self):
        self.begin(kind="crazyhouse")
        self.play("e2e4", "d7d5", "e4d5", "h7h6")
        before = self.screen.middles()
        self.openMenu("e8")
        self.assertEqual(self.screen.middles(), before)
        self.move("d2", "d4")
        self.awaitSent("e2-e4", "e4-d5", "d2-d4")


if __name__ == "__main__":
    unittest.main(verbosity=2)
