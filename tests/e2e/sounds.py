#!/usr/bin/env python3
"""What is heard of the built program: a sound server of the test's own plays into nothing, and what it plays is listened
to."""
import array
import itertools
import os
import pathlib
import shutil
import signal
import statistics
import subprocess
import tempfile
import threading
import time
import unittest
import unittest.mock
import wave

from rig import LIMIT, Display, endProcess, waitFor
from scripted import ScriptedCase
from style12 import PROMPT, START, style12

RATE = 44100
PIECE = RATE // 50  # samples of 20 ms
LOUD = 300  # of 32767
TELL = "\n\rRookery tells you: good evening" + PROMPT


def tone(path, seconds, channels=1, bits=16, level=9000):
    """Writes a wave file that is loud all the time, a rectangle of `level` of 32767."""
    code, one, middle = {8: ("B", 1 / 256, 128), 16: ("h", 1, 0), 32: ("i", 65536, 0)}[bits]
    period = [middle + int(sign * level * one) for sign in (1, -1) for _ in range(50 * channels)]
    with wave.open(str(path), "wb") as file:
        file.setparams((channels, bits // 8, RATE, 0, "NONE", None))
        file.writeframes(array.array(code, period * int(seconds * RATE / 100)).tobytes())


class SoundServer:
    """Listens from its start on; `heard` holds the pieces that are no silence: when each was heard, its number, and
    its level. Ends with the test."""

    def __init__(self, test):
        self.folder = tempfile.mkdtemp(prefix="brightrank-sound-")
        test.addCleanup(shutil.rmtree, self.folder)
        test.enterContext(unittest.mock.patch.dict(os.environ, PULSE_RUNTIME_PATH=self.folder))
        os.environ.pop("PULSE_SERVER", None)  # comes back with the rest
        self.surroundings = os.environ | {"HOME": self.folder}
        self.heard, self.processes = [], []
        test.addCleanup(self.end)
        self.begin()

    def begin(self):
        self.process = self.run(["pulseaudio", "-n", "--daemonize=no", "--exit-idle-time=-1", "--use-pid-file=no",
                                 "--log-target=null", "--load=module-native-protocol-unix",
                                 "--load=module-null-sink sink_name=nothing"])
        waitFor(pathlib.Path(self.folder, "native").exists, "the sound server")
        ear = self.run(["parec", "--latency-msec=20", "--device=nothing.monitor", "--format=s16le", f"--rate={RATE}",
                        "--channels=1", "--raw"], stdout=subprocess.PIPE)
        listening = threading.Event()
        self.thread = threading.Thread(target=self.listen, args=(ear.stdout, listening))
        self.thread.start()
        if not listening.wait(LIMIT):
            raise AssertionError("nothing is to be heard of the sound server, not even silence")

    def run(self, command, **streams):
        self.processes.append(subprocess.Popen(command, env=self.surroundings, **streams))
        return self.processes[-1]

    def listen(self, ear, listening):
        with ear:
            for number in itertools.count():
                if not (piece := ear.read(2 * PIECE)):
                    break
                listening.set()
                levels = sorted(map(abs, array.array("h", piece[:len(piece) // 2 * 2])))
                if levels[-1] > LOUD:
                    self.heard.append((time.monotonic(), number, levels[len(levels) // 2]))

    def between(self, begin, end):
        """For how many milliseconds something was heard."""
        return 20 * sum(begin <= moment < end for moment, _, _ in self.heard)

    def streams(self):
        return subprocess.run(["pactl", "list", "short", "sink-inputs"], env=self.surroundings, capture_output=True, check=True).stdout

    def end(self):
        """Ends what was begun, the ear first."""
        while self.processes:
            endProcess(self.processes.pop())
        self.thread.join()

    def beginAnew(self):
        self.end()
        self.begin()


class Sounds(ScriptedCase):
    GAP = 0.8  # seconds between two positions; a move takes 0.12 s, a tell 0.35 s
    MOVE = range(100, 161)  # milliseconds, in pieces of 20

    def setUp(self):
        self.sound = SoundServer(self)

    def start(self, **settings):
        self.begin(self.enterContext(Display()), Sound_On=1, Sound_Move=3, Sound_Start=3, Sound_Tell=3, **settings)
        self.server.logOn()
        time.sleep(self.LEARNT)

    def heardOf(self, text, gap=GAP):
        begin = time.monotonic()
        self.server.say(text)
        time.sleep(gap)
        return self.sound.between(begin, begin + gap)

    def move(self, number):
        file = "abcdefgh"[number % 8]
        return style12(START, mover="B", number=number, move=f"P/{file}2-{file}3", pretty=f"{file}3")

    def assertHeard(self, moves):
        heard = {number: self.heardOf(self.move(number)) for number in moves}
        self.assertEqual({number: time for number, time in heard.items() if time not in self.MOVE}, {})

    def testEachMoveOfALongGameIsHeardWhole(self):
        self.start()
        self.assertGreater(self.heardOf(style12(START), 1.2), 700, "the bell of a new game")
        self.assertHeard(range(1, 13))

    def testATellBetweenMovesIsHeard(self):
        self.start()
        for number in range(1, 4):
            self.assertIn(self.heardOf(TELL), range(300, 401))
            self.assertHeard([number])

    def testALaterSoundTakesThePlaceOfTheOneThatPlays(self):
        long, short = (pathlib.Path(self.sound.folder, name) for name in ("long.wav", "short.wav"))
        tone(long, 3, level=20000)
        tone(short, 0.3, level=5000)
        self.start(beside={"fitebell.wav": long, "move.wav": short})
        self.server.say(style12(START))
        waitFor(lambda: self.sound.heard, "the long one")
        self.server.say(self.move(1))
        time.sleep(4)
        levels = [level for _, _, level in self.sound.heard]
        first = next(place for place, level in enumerate(levels) if level < 10000)
        self.assertLess(first, 100, "the long one ends two seconds and more before its time")
        self.assertLess(max(levels[first:]), 10000, "and does not come back")
        self.assertIn(len(levels) - first, range(14, 18), "the short one is heard whole")

    def testBehindASoundNothingIsLeftAtTheServer(self):
        self.start()
        self.assertHeard([1])
        waitFor(lambda: not self.sound.streams(), "the stream to end", 5)
        self.assertEqual(self.heardOf(PROMPT), 0)

    def testAProgramThatIsHeldUpInASoundPlaysTheRestOfIt(self):
        self.start()
        begin = time.monotonic()
        self.server.say(style12(START))
        time.sleep(0.3)
        for seconds, number in (0.6, signal.SIGSTOP), (1.5, signal.SIGCONT):
            self.client.process.send_signal(number)
            time.sleep(seconds)
        self.assertGreater(self.sound.between(begin, time.monotonic()), 700)

    def testAProgramThatIsHeldUpForAMomentInASoundIsNotHeardToBe(self):
        own = pathlib.Path(self.sound.folder, "own.wav")
        tone(own, 1)
        self.start(beside={"move.wav": own})
        self.server.say(self.move(1))
        time.sleep(0.3)
        for _ in range(3):
            for number in signal.SIGSTOP, signal.SIGCONT:
                self.client.process.send_signal(number)
                time.sleep(0.12)
        time.sleep(0.6)
        numbers = [number for _, number, _ in self.sound.heard]
        self.assertIn(len(numbers), range(48, 53))
        silent = numbers[-1] + 1 - numbers[0] - len(numbers)
        self.assertLess(silent, 6, f"of the 18 pieces in which it was held up: {numbers}")

    def testEachKindOfFileIsHeardAsLoudAsItIs(self):
        own = pathlib.Path(self.sound.folder, "own.wav")
        self.start(beside={"move.wav": own})
        kinds = [(bits, channels) for bits in (8, 16, 32) for channels in (1, 2)] + [(16, n) for n in range(3, 9)]
        heard = {}
        for number, (bits, channels) in enumerate(kinds, 1):
            tone(own, 0.2, channels, bits, 0x2000)
            self.sound.heard.clear()
            self.assertIn(self.heardOf(self.move(number), 0.6), range(160, 241), (bits, channels))
            heard[bits, channels] = statistics.median(level for _, _, level in self.sound.heard)
        self.assertEqual({kind: level for kind, level in heard.items() if not 0x1F00 < level < 0x2100}, {})

    def testASoundOfAnInstantIsHeard(self):
        own = pathlib.Path(self.sound.folder, "own.wav")
        tone(own, 0.0185)  # of any sound the server may drop the first 10 ms, so now and then it is none
        self.start(beside={"move.wav": own})
        heard = [self.heardOf(self.move(number), 0.4) for number in range(1, 7)]
        self.assertIn(max(heard), range(20, 61), heard)

    def testAFileThatIsChangedAndAServerThatIsStartedAnewAreHeard(self):
        own = pathlib.Path(self.sound.folder, "own.wav")
        tone(own, 0.3)
        self.start(beside={"move.wav": own})
        self.assertIn(self.heardOf(self.move(1)), range(260, 341))
        tone(own, 0.1, channels=8)
        self.assertIn(self.heardOf(self.move(2)), range(80, 141))
        self.sound.beginAnew()
        self.assertIn(self.heardOf(self.move(3)), range(80, 141))

    def testASoundServerThatDoesNotAnswerHoldsUpNeitherTheGameNorTheEnd(self):
        self.start()
        self.assertGreater(self.heardOf(style12(START), 1.2), 0)
        self.server.awaitLine("moves 1")
        self.addCleanup(self.sound.process.send_signal, signal.SIGCONT)
        self.sound.process.send_signal(signal.SIGSTOP)
        for text in (self.move(1), TELL, self.move(2)):
            self.heardOf(text)
        self.sound.process.send_signal(signal.SIGCONT)
        self.assertIn(self.heardOf(PROMPT, 1.5), self.MOVE, "the latest alone")
        self.sound.process.send_signal(signal.SIGSTOP)
        self.heardOf(self.move(3))
        self.server.say("\n\r**** Starting FICS session as Pupil ****\n\r" + PROMPT)
        self.server.awaitLine("Set Style 12")
        self.endClient()


if __name__ == "__main__":
    unittest.main(verbosity=2)
