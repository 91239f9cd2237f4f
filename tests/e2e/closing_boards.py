#!/usr/bin/env python3
"""The board of a game that goes on is closed: with a piece in hand, in the delay, under a menu, not after all."""
from dialogs import Dialog
from game import RIGHT, ROAD, SENT_ON_THE_ROAD, PlayedByHand, awaitLifting, time, unittest, waitFor


class ClosingTheBoard(PlayedByHand):
    settings = {"AutoQueen": 0, "PreMove_OK": 1}

    def close(self):
        """The board's window is asked to close, and asks back."""
        self.closing = self.board()
        self.display.closeWindow(self.closing)
        self.question = Dialog.find(self.display, "Game in progress")

    def confirm(self):
        self.question.answer("Return")
        self.display.awaitGone(self.closing)
        self.display.release()

    def playOn(self, *sent, opens=True):
        """The server's next position opens a board anew, unless one is open."""
        self.awaitNothingMore(*sent)
        self.awaitAnother(lambda: self.wire.sayForUser("refresh"), "the refresh")
        if opens:
            self.awaitList()
        waitFor(self.screen.find, "the board")
        self.awaitPosition()
        awaitLifting()
        self.move("g1", "f3")
        self.awaitSent(*sent, "g1-f3")

    def testWithAPieceInHand(self):
        self.begin()
        self.lift("e2")
        self.display.move(*self.screen.centre("e4"))
        self.close()
        self.confirm()
        self.playOn()

    def testInTheDelay(self):
        self.begin(Mouse_Slip=10)
        self.drag("e2", "e4")
        self.close()
        self.confirm()
        time.sleep(5.2)
        self.playOn()

    def testWithAPieceOnThePointerByClicks(self):
        self.begin(Seek_Color=0)
        self.display.click(*self.screen.centre("e2"))
        self.display.move(*self.screen.centre("e4"))
        self.close()
        self.confirm()
        self.awaitNothingMore()

    def testUnderThePromotionMenu(self):
        self.begin()
        self.play(*ROAD)
        self.drag("b7", "a8")
        self.display.awaitMenu()
        self.close()
        self.confirm()
        self.assertEqual(self.display.menus(), [])
        self.playOn(*SENT_ON_THE_ROAD)

    def testUnderTheDropMenu(self):
        self.begin(kind="crazyhouse")
        self.play("e2e4", "d7d5", "e4d5", "h7h6")
        self.display.click(*self.screen.centre("e4"), RIGHT)
        self.display.awaitMenu()
        self.close()
        self.confirm()
        self.assertEqual(self.display.menus(), [])
        self.playOn("e2-e4", "e4-d5")

    def testWithAPreMoveQueued(self):
        self.begin()
        self.move("e2", "e4")
        self.drag("g1", "f3")
        self.display.move(*self.screen.centre("e5"))
        self.awaitQueued("f3")
        self.close()
        self.confirm()
        self.awaitAnother(lambda: self.partner.say("d7d6"), "the opponent's move")
        self.awaitList()
        waitFor(self.screen.find, "the board")
        self.playOn("e2-e4", opens=False)

    def testRefusedWithAPieceInHand(self):
        self.begin()
        self.lift("e2")
        self.display.move(*self.screen.centre("e3"))
        self.close()
        self.question.answer("Escape")
        self.display.release()
        self.display.click(*self.screen.centre("e2"))  # it still hangs on the pointer, though the button is up
        self.awaitPosition()
        self.move("e2", "e4")
        self.awaitSent("e2-e4")

    def testRefusedUnderThePromotionMenu(self):
        self.begin()
        self.play(*ROAD)
        self.drag("b7", "a8")
        self.display.awaitMenu()
        self.close()
        self.question.answer("Escape")
        # The question has taken the menu down without a choice, which leaves the piece to the server.
        self.awaitSent(*SENT_ON_THE_ROAD, "b7-a8")
        self.answer("h6h5")


if __name__ == "__main__":
    unittest.main(verbosity=2)
