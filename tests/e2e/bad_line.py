#!/usr/bin/env python3
"""A game by hand over a bad line: slow and uneven, a byte at a time, and one that stands still for ten seconds."""
from game import PlayedByHand, time, unittest, waitFor
from proxy import Proxy

STALL = 10  # seconds


class OverABadLine(PlayedByHand):
    faults = {}

    def line(self):
        return Proxy(self.practice.port, **self.faults)

    def playToMate(self):
        self.begin()
        self.play("e2e4", "e7e5", "f1c4", "b8c6", "d1h5", "g8f6")
        self.drag("h5", "f7")
        self.partner.await_("Rookery checkmated")
        self.awaitSent("e2-e4", "f1-c4", "d1-h5", "h5-f7")
        self.awaitPosition()


class SlowAndUneven(OverABadLine):
    faults = {"delay": 0.3, "jitter": 0.2}

    def testAGameIsPlayedToItsEnd(self):
        self.playToMate()

    def testAPreMoveGoesOutWithThePositionThatItWaitsFor(self):
        self.begin(PreMove_OK=1)
        self.move("e2", "e4")
        self.drag("g1", "f3")
        self.awaitQueued("f3")
        self.awaitSent("e2-e4")
        self.answer("e7e5")
        self.awaitSent("e2-e4", "g1-f3")
        self.awaitPosition()


class InCrumbs(OverABadLine):
    faults = {"piece": 1}

    def testAGameIsPlayedToItsEnd(self):
        self.playToMate()


class StandingStill(OverABadLine):
    def testWhatIsSaidMeanwhileComesInOrderBehindIt(self):
        self.begin()
        self.play("e2e4", "e7e5")
        begun = time.monotonic()
        self.wire.stall(STALL)
        self.drag("g1", "f3")
        time.sleep(STALL / 2)
        self.assertEqual(self.sent(), self.withLists(["e2-e4"]))
        self.partner.say("tell Pupil Are you there?")
        self.awaitSent("e2-e4", "g1-f3")
        self.assertGreater(time.monotonic() - begun, STALL - 1)
        waitFor(lambda: b"Are you there?" in self.wire.received, "the tell")
        self.awaitConfirmed()
        self.answer("b8c6")
        self.move("f1", "c4")
        self.awaitSent("e2-e4", "g1-f3", "f1-c4")


if __name__ == "__main__":
    unittest.main(verbosity=2)
