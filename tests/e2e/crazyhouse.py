#!/usr/bin/env python3
"""Crazyhouse with the pointer on the built program: a captured piece is dropped through the popup."""
from game import QUIET, RIGHT, PlayedByHand, time, unittest, waitFor

PAWN_IN_HAND = ("e2e4", "d7d5", "e4d5", "h7h6")
ENTRIES = ("Q", "R", "B", "N", "P")


class CrazyhouseDrops(PlayedByHand):
    def openMenu(self, square):
        self.display.click(*self.screen.centre(square), RIGHT)
        return self.display.awaitMenu()

    def clickEntry(self, menu, letter):
        place = (ENTRIES.index(letter) + 0.5) / len(ENTRIES)
        self.display.click(menu.left + menu.width // 2, menu.top + int(place * menu.height))

    def awaitDrop(self, row, pieces):
        waitFor(lambda: self.wire.positions()[-1][row] == pieces, f"{pieces} on the server's board")
        self.awaitPosition()

    def testACapturedPawnIsDroppedThroughThePopup(self):
        self.begin(kind="crazyhouse")
        self.play(*PAWN_IN_HAND)
        self.openMenu("e4")
        self.display.keys("Up", "Return")  # the pawn is the last entry, and the only one in hand
        self.awaitSent("e2-e4", "e4-d5", "P@e4")
        self.awaitDrop(4, "----P---")

    def testACapturedKnightIsDroppedByAClickOnItsEntry(self):
        self.begin(kind="crazyhouse")
        self.play("e2e4", "g8f6", "e4e5", "h7h6", "e5f6", "h6h5")
        self.clickEntry(self.openMenu("d5"), "N")
        self.awaitSent("e2-e4", "e4-e5", "e5-f6", "N@d5")
        self.awaitDrop(3, "---N---p")

    def testAnEntryWithoutAPieceInHandSendsNothing(self):
        self.begin(kind="crazyhouse")
        self.play(*PAWN_IN_HAND)
        self.clickEntry(self.openMenu("e4"), "Q")
        self.display.keys("Escape")
        self.awaitNothingMore("e2-e4", "e4-d5")

    def testThePieceOfAClosedMenuStaysInHand(self):
        self.begin(kind="crazyhouse")
        self.play(*PAWN_IN_HAND)
        self.openMenu("e4")
        self.display.keys("Escape")
        self.awaitNothingMore("e2-e4", "e4-d5")
        self.clickEntry(self.openMenu("e5"), "P")
        self.awaitSent("e2-e4", "e4-d5", "P@e5")
        self.awaitDrop(3, "---PP---")

    def testOverAPieceNoMenuOpens(self):
        self.begin(kind="crazyhouse")
        self.play(*PAWN_IN_HAND)
        self.display.click(*self.screen.centre("e8"), RIGHT)
        time.sleep(2 * QUIET)
        self.assertEqual(self.display.menus(), [])
        self.move("d2", "d4")
        self.awaitSent("e2-e4", "e4-d5", "d2-d4")


if __name__ == "__main__":
    unittest.main(verbosity=2)
