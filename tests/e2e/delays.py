#!/usr/bin/env python3
"""How long each index of the delay against slips waits, on the built program."""
from game import PlayedByHand, time, unittest, waitFor

# What each index of the setting really waits, in milliseconds.
DELAYS = (0, 165, 220, 275, 330, 440, 550, 770, 1045, 2035, 5000)


class Delays(PlayedByHand):
    def measured(self, *squares):
        """Milliseconds from letting go to the bytes."""
        self.lift(squares[0])
        self.display.move(*self.screen.centre(squares[1]))
        count = len(self.sent())
        released = time.monotonic()
        self.display.release()
        waitFor(lambda: len(self.sent()) > count, "the move")
        return 1000 * (self.wire.times[-1] - released)

    def testEachIndexWaitsItsTimeAndNotThatOfTheNext(self):
        for index, (delay, longer) in enumerate(zip(DELAYS, (*DELAYS[1:], 7000))):
            with self.round(index=index):
                self.begin(Mouse_Slip=index)
                moves = ["e2-e4"]
                waited = [self.measured("e2", "e4")]
                # On a busy machine all may take longer; that all of four do is no accident.
                for reply, start, end in (("e7e5", "g1", "f3"), ("b8c6", "f1", "c4"), ("g8f6", "d2", "d3")):
                    if waited[-1] < longer:
                        break
                    self.answer(reply)
                    waited.append(self.measured(start, end))
                    moves.append(f"{start}-{end}")
                self.assertGreaterEqual(min(waited), delay)
                self.assertLess(min(waited), longer)
                self.awaitSent(*moves)
                self.awaitPosition()


if __name__ == "__main__":
    unittest.main(verbosity=2)
