#!/usr/bin/env python3
"""What is heard of the built program: a sound server of the test's own plays into nothing, and what it plays is listened
to."""
import array
import os
import pathlib
import shutil
import subprocess
import tempfile
import threading
import time
import unittest

from rig import Display, endProcess, waitFor
from scripted import ScriptedCase
from style12 import PROMPT, style12

RATE = 44100
PIECE = RATE // 50  # samples of 20 ms
LOUD = 300  # of 32767
START = ["rnbqkbnr", "pppppppp", "--------", "--------", "--------", "--------", "PPPPPPPP", "RNBQKBNR"]


class SoundServer:
    """Listens from its start on; `heard` holds the moments of the pieces that are no silence."""

    def __init__(self):
        self.folder = tempfile.mkdtemp(prefix="brightrank-sound-")
        self.surroundings = os.environ | {"PULSE_RUNTIME_PATH": self.folder, "HOME": self.folder}
        self.process = subprocess.Popen(
            ["pulseaudio", "-n", "--daemonize=no", "--exit-idle-time=-1", "--use-pid-file=no", "--log-target=null",
             "--load=module-native-protocol-unix", "--load=module-null-sink sink_name=nothing"], env=self.surroundings)
        waitFor(pathlib.Path(self.folder, "native").exists, "the sound server")
        self.ear = subprocess.Popen(["parec", "--latency-msec=20", "--device=nothing.monitor", "--format=s16le", f"--rate={RATE}",
                                     "--channels=1", "--raw"], stdout=subprocess.PIPE, env=self.surroundings)
        self.heard, self.listening = [], threading.Event()
        self.thread = threading.Thread(target=self.listen)
        self.thread.start()
        self.listening.wait(30)

    def listen(self):
        while piece := self.ear.stdout.read(2 * PIECE):
            samples = array.array("h", piece[:len(piece) // 2 * 2])
            self.listening.set()
            if max(map(abs, samples)) > LOUD:
                self.heard.append(time.monotonic())

    def between(self, begin, end):
        """For how many milliseconds something was heard."""
        return 20 * sum(begin <= moment < end for moment in self.heard)

    def streams(self):
        return subprocess.run(["pactl", "list", "short", "sink-inputs"], env=self.surroundings, capture_output=True, check=True).stdout

    def end(self):
        for process in self.ear, self.process:
            endProcess(process)
        self.thread.join()
        self.ear.stdout.close()
        shutil.rmtree(self.folder)


class Sounds(ScriptedCase):
    GAP = 0.8  # seconds between two positions; a move takes 0.12 s

    def setUp(self):
        self.sound = SoundServer()
        self.addCleanup(self.sound.end)
        display = self.enterContext(Display())
        before = os.environ.get("PULSE_RUNTIME_PATH")
        os.environ["PULSE_RUNTIME_PATH"] = self.sound.folder
        self.begin(display, Sound_On=1, Sound_Move=3, Sound_Start=3, Sound_Tell=3)
        os.environ.pop("PULSE_RUNTIME_PATH") if before is None else os.environ.update(PULSE_RUNTIME_PATH=before)
        self.server.logOn()
        time.sleep(self.LEARNT)

    def heardOf(self, text):
        begin = time.monotonic()
        self.server.say(text)
        time.sleep(self.GAP)
        return self.sound.between(begin, begin + self.GAP)

    def move(self, number):
        file = "abcdefgh"[number % 8]
        return style12(START, mover="B", number=number, move=f"P/{file}2-{file}3", pretty=f"{file}3")

    def testEachMoveOfALongGameIsHeardWhole(self):
        self.assertGreater(self.heardOf(style12(START)), 400, "the bell of a new game")
        time.sleep(0.3)  # it goes on for a little
        self.assertEqual([number for number in range(1, 13) if not 80 <= self.heardOf(self.move(number)) <= 200], [])

    def testATellBetweenMovesIsHeardAndALaterSoundTakesThePlaceOfTheBell(self):
        self.server.say(style12(START))
        time.sleep(0.2)
        self.assertLess(self.heardOf(self.move(1)), 300, "the bell goes on for 0.9 s")
        for number in range(2, 5):
            self.assertGreater(self.heardOf("\n\rRookery tells you: good evening" + PROMPT), 200)
            self.assertGreater(self.heardOf(self.move(number)), 60)

    def testBehindASoundNothingIsLeftAtTheServer(self):
        self.assertGreater(self.heardOf(self.move(1)), 0)
        waitFor(lambda: not self.sound.streams(), "the stream to end", 5)
        self.assertEqual(self.heardOf(PROMPT), 0)


if __name__ == "__main__":
    unittest.main(verbosity=2)
