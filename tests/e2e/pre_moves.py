#!/usr/bin/env python3
"""The queued pre-move, with the pointer on the built program: played, refused, replaced, taken back."""
from game import PlayedByHand, unittest, waitFor
from screen import DARK, LIGHT, MOVED, PRE_MOVED


class PreMoves(PlayedByHand):
    settings = {"PreMove_OK": 1}

    def beginWithTheOpponentToMove(self, kind=""):
        self.begin(kind=kind)
        self.move("e2", "e4")

    def queue(self, start, end):
        """Queues a pre-move; the pointer goes to an empty square then, since resting on a piece queues it again."""
        self.drag(start, end)
        self.display.move(*self.screen.centre("e5"))
        self.awaitQueued(end)
        self.assertEqual(self.screen.mark(start), PRE_MOVED)

    def assertPlain(self, *squares):
        for square in squares:
            waitFor(lambda: self.screen.mark(square) in (LIGHT, DARK), f"no mark on {square}")

    def testALegalPreMoveIsSentWhenTheOpponentHasMoved(self):
        self.beginWithTheOpponentToMove()
        self.queue("g1", "f3")
        self.awaitNothingMore("e2-e4")
        self.partner.say("d7d6")
        self.awaitSent("e2-e4", "g1-f3")
        waitFor(lambda: len(self.wire.positions()) >= 4, "the server's answer")
        self.awaitPosition()
        waitFor(lambda: self.screen.mark("g1") == MOVED, "the mark of the last move")

    def testAPreMoveThatTheReplyBlocksIsNotSent(self):
        self.begin()
        self.play("e2e4", "d7d6", "h2h3")
        self.queue("d1", "h5")  # the way is free yet
        self.answer("c8g4")
        self.awaitNothingMore("e2-e4", "h2-h3")
        self.assertPlain("d1", "h5")
        self.move("h3", "g4")
        self.awaitSent("e2-e4", "h2-h3", "h3-g4")

    def testAPreMoveWhosePieceIsTakenIsNotSent(self):
        self.begin()
        self.play("e2e4", "d7d5", "h2h3")
        self.queue("e4", "e5")
        self.awaitAnother(lambda: self.partner.say("d5e4"), "d5e4")
        self.awaitPosition()
        self.awaitNothingMore("e2-e4", "h2-h3")
        self.assertPlain("e5")
        self.move("b1", "c3")
        self.awaitSent("e2-e4", "h2-h3", "b1-c3")

    def testAPreMoveThatIsNotYetLegalIsSentWhenTheReplyMakesItSo(self):
        self.beginWithTheOpponentToMove()
        self.queue("e4", "d5")
        self.awaitNothingMore("e2-e4")
        self.awaitAnother(lambda: self.partner.say("d7d5"), "the pawn to be taken")
        self.awaitSent("e2-e4", "e4-d5")
        waitFor(lambda: self.wire.positions()[-1][3] == "---P----", "the pawn on the server's board")
        self.awaitPosition()

    def testASecondPreMoveReplacesTheFirst(self):
        self.beginWithTheOpponentToMove()
        self.queue("g1", "f3")
        self.queue("b1", "c3")
        self.assertPlain("g1", "f3")
        self.partner.say("d7d6")
        self.awaitSent("e2-e4", "b1-c3")

    def testDroppedOnItsOwnSquareAPieceTakesTheQueuedMoveBack(self):
        self.beginWithTheOpponentToMove()
        self.queue("g1", "f3")
        self.drag("b1", "b1")
        self.display.move(*self.screen.centre("e5"))
        self.assertPlain("g1", "f3")
        self.answer("d7d6")
        self.awaitNothingMore("e2-e4")

    def testAQueuedPiecePutBackTakesItsOwnMoveBack(self):
        self.beginWithTheOpponentToMove()
        self.queue("g1", "f3")
        self.drag("g1", "g1")
        self.display.move(*self.screen.centre("e5"))
        self.assertPlain("g1", "f3")
        self.answer("d7d6")
        self.awaitNothingMore("e2-e4")

    def testWithThePointerLeftOnThePieceThePreMoveIsQueuedAgain(self):
        self.beginWithTheOpponentToMove()
        self.queue("g1", "f3")
        self.display.move(*self.screen.centre("b1"))
        self.answer("d7d6")
        self.awaitNothingMore("e2-e4")
        self.awaitQueued("f3")

    def testAPieceInHandWhileTheOpponentMovesIsDroppedOnTheNewPosition(self):
        self.beginWithTheOpponentToMove()
        self.lift("g1")
        self.display.move(*self.screen.centre("f3"))
        self.answerInHand("d7d6")
        self.drop("f3")
        self.awaitSent("e2-e4", "g1-f3")
        waitFor(lambda: len(self.wire.positions()) >= 4, "the server's answer")
        self.awaitPosition()


if __name__ == "__main__":
    unittest.main(verbosity=2)
