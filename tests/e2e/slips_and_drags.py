#!/usr/bin/env python3
"""The delay against slips and the piece in hand, with the pointer on the built program."""
from game import QUIET, RIGHT, PlayedByHand, time, unittest, waitFor
from rig import SQUARES

# What each index of the setting really waits, in milliseconds.
DELAYS = (0, 165, 220, 275, 330, 440, 550, 770, 1045, 2035, 5000)
INFINITE = 11


class Slips(PlayedByHand):
    def testEachIndexWaitsItsTimeAndNoLess(self):
        for index, delay in enumerate(DELAYS):
            with self.subTest(index=index):
                self.begin(Mouse_Slip=index)
                self.lift("e2")
                self.display.move(*self.screen.centre("e4"))
                released = time.monotonic()
                self.display.release()
                self.awaitSent("e2-e4", seconds=delay / 1000 + 3)
                self.assertGreaterEqual(self.wire.times[-1][0] - released, delay / 1000)
                self.awaitPosition()
                self.doCleanups()

    def testInfiniteIsEndedByTheRightButtonAlone(self):
        self.begin(Mouse_Slip=INFINITE)
        self.drag("e2", "e4")
        time.sleep(QUIET)
        self.display.click(*self.screen.centre("e4"))  # a left click cannot finish it
        time.sleep(QUIET)
        self.assertEqual(self.sent(), [])
        self.display.press(RIGHT)
        self.display.release(RIGHT)
        self.awaitSent("e2-e4")
        self.awaitPosition()

    def testTheRightButtonEndsADelayAtOnce(self):
        self.begin(Mouse_Slip=10)
        released = time.monotonic()
        self.drag("e2", "e4")
        self.display.press(RIGHT)
        self.display.release(RIGHT)
        self.awaitSent("e2-e4", seconds=4)
        self.assertLess(self.wire.times[-1][0] - released, 4.0)


class TwoClicks(PlayedByHand):
    settings = {"Seek_Color": 0}

    def testAMoveByTwoClicks(self):
        self.begin()
        self.display.click(*self.screen.centre("e2"))
        for square in ("d3", "c5", "e4"):
            self.display.move(*self.screen.centre(square))
        self.display.click(*self.screen.centre("e4"))
        self.awaitSent("e2-e4")
        self.awaitPosition()

    def testAFlipWithThePieceOnThePointer(self):
        self.begin()
        self.display.click(*self.screen.centre("e2"))
        self.display.keys("alt+b")
        time.sleep(QUIET)
        self.display.keys("f")
        time.sleep(QUIET)
        self.screen.flipped = True
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
        time.sleep(QUIET)
        during = self.screen.middles()
        self.assertEqual({square for square in SQUARES if during[square] != before[square]}, {"e2", "h3"})
        self.drop("e2")
        waitFor(lambda: self.screen.middles() == before, 3, "the board as it was")
        self.assertEqual(self.sent(), [])

    def testAFlipWithThePieceInHand(self):
        self.begin()
        self.lift("e2")
        self.display.move(*self.screen.centre("e3"))
        self.display.keys("alt+b")
        time.sleep(QUIET)
        self.display.keys("f")
        time.sleep(QUIET)
        self.screen.flipped = True
        self.drop("e4")
        self.awaitSent("e2-e4")
        self.awaitPosition()


if __name__ == "__main__":
    unittest.main(verbosity=2)
