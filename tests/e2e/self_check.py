#!/usr/bin/env python3
"""The self check of the built program in a game on the practice server: no move before the sheet is done, an empty sheet
behind each, and free boards when it has closed."""
from game import QUIET, PlayedByHand, time, unittest

PANEL = "Self Check"


class SelfCheck(PlayedByHand):
    arguments = ["--rest"]  # holds "est", and is not the word alone

    def logOn(self, **settings):
        super().logOn(**settings, arguments=self.arguments)

    def openSheet(self):
        self.display.keys("alt+a")
        self.display.awaitMenu()
        self.display.keys("c")
        self.panel = self.display.awaitDialog(PANEL)
        self.display.moveWindow(self.panel, self.display.width - self.panel.width, 0)

    def toSheet(self):
        """A click on a window gives it the keys."""
        self.display.click(self.display.width - self.panel.width + 5, 5)
        self.display.awaitFocus(self.panel)

    def fill(self):
        """By keys, from the tick box on; it has the keyboard when the panel opens."""
        self.toSheet()
        self.display.keys(*["Tab", "0"] * 10, "Tab")
        time.sleep(QUIET)

    def tryMove(self, start, end):
        self.drag(start, end)
        time.sleep(QUIET)

    def testNoMoveBeforeTheSheetIsDoneAndAnEmptySheetBehindIt(self):
        self.begin()
        self.openSheet()
        self.tryMove("e2", "e4")
        self.awaitNothingMore()
        self.fill()
        self.move("e2", "e4")
        self.awaitSent("e2-e4")
        self.answer("e7e5")
        self.tryMove("d2", "d4")
        self.awaitNothingMore("e2-e4")
        self.fill()
        self.move("d2", "d4")
        self.awaitNothingMore("e2-e4", "d2-d4")

    def testAForcedMoveGoesOnceAndClosingFreesTheBoard(self):
        self.begin()
        self.openSheet()
        self.display.keys("alt+f")
        time.sleep(QUIET)
        self.move("e2", "e4")
        self.answer("e7e5")
        self.tryMove("d2", "d4")
        self.awaitNothingMore("e2-e4")
        self.toSheet()
        self.display.keys("Escape")
        self.display.awaitGone(self.panel)
        self.move("d2", "d4")
        self.awaitNothingMore("e2-e4", "d2-d4")


if __name__ == "__main__":
    unittest.main()
