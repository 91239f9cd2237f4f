#!/usr/bin/env python3
"""The delay against slips and the piece in hand, with the pointer on the built program."""
from delays import DELAYS
from game import RIGHT, PlayedByHand, time, unittest, waitFor

INFINITE = 11
LONGEST = 60  # seconds, at which the timer of "Infinite" fires and ends nothing


class Slips(PlayedByHand):
    def testInfiniteIsEndedByTheRightButtonAlone(self):
        self.begin(Mouse_Slip=INFINITE)
        before = self.screen.middles()
        self.drag("e2", "e4")
        self.display.click(*self.screen.centre("e4"))  # a left click cannot finish it
        time.sleep(LONGEST + 2)
        self.display.click(*self.screen.centre("d4"))
        self.awaitNothingMore()
        self.assertEqual(self.screen.changed(before), {"e2", "e4"})
        self.display.click(*self.screen.centre("h6"), RIGHT)  # it lands where it was let go
        self.awaitSent("e2-e4")
        self.awaitPosition()

    def testTheRightButtonEndsADelayAtOnce(self):
        self.begin(Mouse_Slip=10)
        released = time.monotonic()
        self.drag("e2", "e4")
        self.display.click(*self.screen.centre("e4"), RIGHT)
        self.awaitSent("e2-e4")
        self.assertLess(self.wire.times[-1] - released, DELAYS[10] / 1000)

    def testALeftClickInTheDelayDoesNotShortenIt(self):
        self.begin(Mouse_Slip=9)
        released = time.monotonic()
        self.drag("e2", "e4")
        self.display.click(*self.screen.centre("d3"))
        self.awaitSent("e2-e4")
        self.assertGreaterEqual(self.wire.times[-1] - released, DELAYS[9] / 1000)

    def testTheOpponentMovesInTheDelayOfAPreMove(self):
        self.begin(Mouse_Slip=9, PreMove_OK=1)
        self.move("e2", "e4")
        released = time.monotonic()
        self.drag("g1", "f3")
        self.awaitAnother(lambda: self.partner.say("d7d6"), "the opponent's move")
        self.awaitSent("e2-e4", "g1-f3")
        self.assertGreaterEqual(self.wire.times[-1] - released, DELAYS[9] / 1000)
        waitFor(lambda: len(self.wire.positions()) >= 4, "the server's answer")
        self.awaitPosition()


class TwoClicks(PlayedByHand):
    settings = {"Seek_Color": 0, "PreMove_OK": 1}

    def testAMoveByTwoClicks(self):
        self.begin()
        self.display.click(*self.screen.centre("e2"))
        for square in ("d3", "c5", "e4"):
            self.display.move(*self.screen.centre(square))
        self.awaitNothingMore()
        self.display.click(*self.screen.centre("e4"))
        self.awaitSent("e2-e4")
        self.awaitPosition()

    def testAGameByTwoClicks(self):
        self.begin()
        for start, end, reply in (("e2", "e4", "e7e5"), ("f1", "c4", "b8c6"), ("d1", "h5", "g8f6")):
            self.moveByClicks(start, end)
            self.answer(reply)
        self.clicks("h5", "f7")
        self.partner.await_("Rookery checkmated")
        self.awaitSent("e2-e4", "f1-c4", "d1-h5", "h5-f7")
        self.awaitPosition()

    def testAPreMoveByTwoClicks(self):
        self.begin()
        self.moveByClicks("e2", "e4")
        self.clicks("g1", "f3")
        self.awaitQueued("f3")
        self.awaitNothingMore("e2-e4")
        self.partner.say("d7d6")
        self.awaitSent("e2-e4", "g1-f3")

    def testTheOpponentMovesWithThePieceOnThePointer(self):
        self.begin()
        self.moveByClicks("e2", "e4")
        self.display.click(*self.screen.centre("g1"))
        self.display.move(*self.screen.centre("h4"))
        self.answerInHand("d7d6")
        self.display.click(*self.screen.centre("f3"))
        self.awaitSent("e2-e4", "g1-f3")
        waitFor(lambda: len(self.wire.positions()) >= 4, "the server's answer")
        self.awaitPosition()

    def testAFlipWithThePieceOnThePointer(self):
        self.begin()
        self.display.click(*self.screen.centre("e2"))
        self.flip()
        self.display.click(*self.screen.centre("e4"))
        self.awaitSent("e2-e4")
        self.awaitPosition()


class PieceInHand(PlayedByHand):
    def testThePieceFollowsAndLeavesNoTrail(self):
        self.begin()
        before = self.screen.middles()
        self.lift("e2")
        for square in ("d3", "c4", "f5", "g6", "b6", "h3"):
            self.display.move(*self.screen.centre(square))
        waitFor(lambda: self.screen.changed(before) == {"e2", "h3"},
                lambda: f"a change of e2 and h3 and not of {self.screen.changed(before)}")
        self.drop("e2")
        waitFor(lambda: self.screen.middles() == before, "the board as it was")
        self.awaitNothingMore()

    def testAFlipWithThePieceInHand(self):
        self.begin()
        self.lift("e2")
        self.display.move(*self.screen.centre("e3"))
        self.flip()
        self.drop("e4")
        self.awaitSent("e2-e4")
        self.awaitPosition()


if __name__ == "__main__":
    unittest.main(verbosity=2)
