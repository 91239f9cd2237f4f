#!/usr/bin/env python3
"""What the program tells a window manager of where its windows go."""
import re
import socket
import subprocess
import unittest

from managed import ManagedDisplay
from rig import Client, Display, waitFor
from scripted import ScriptedCase

CONSOLE = "Brightrank - Client"


class Places(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.display = cls.enterClassContext(Display())
        cls.server = cls.enterClassContext(socket.create_server(("127.0.0.1", 0)))  # says nothing

    def hints(self, title):
        """The window's hints on its place and size, empty while it does not show."""
        return subprocess.run(["xprop", "-name", title, "WM_NORMAL_HINTS"], env=self.display.environment(),
                              capture_output=True, text=True).stdout

    def begin(self, **settings):
        self.client = Client(self.display, self.server.getsockname()[1], **settings)
        self.addCleanup(self.client.end)
        self.display.awaitWindow("Brightrank - Board")  # the hints that count are those of a window that shows

    # With the gravity NorthWest the place is that of the frame, with Static that of what it holds, and the title bar
    # goes above it.
    def expectFrameAt(self, title, x, y):
        hints = self.hints(title)
        self.assertRegex(hints, rf"location: {x}, {y}\b")
        self.assertRegex(hints, r"gravity: NorthWest")

    def testASavedPlaceIsThatOfTheFrame(self):
        self.begin()
        self.expectFrameAt("Brightrank - Client", 10, 660)
        self.expectFrameAt("Brightrank - Board", 660, 10)

    def testSoItIsWithASavedSizeBelowTheLeast(self):
        self.begin(Width=300, Height=300, boardWidth=300, boardHeight=300)
        self.assertGreater(int(re.search(r"minimum size: (\d+)", self.hints("Brightrank - Client"))[1]), 300 / 15)
        self.expectFrameAt("Brightrank - Client", 10, 660)
        self.expectFrameAt("Brightrank - Board", 660, 10)


class TwoMonitors(ScriptedCase):
    """Each of 1400 pixels, side by side."""

    def setUp(self):
        self.display = self.enterContext(ManagedDisplay(2800, 1000))
        for name, left, output in ("left", 0, "screen"), ("right", 1400, "none"):
            self.ask("xrandr", "--setmonitor", name, f"1400/370x1000/260+{left}+0", output)
        self.assertIn("Monitors: 2", self.ask("xrandr", "--listmonitors"))

    def ask(self, *command):
        return subprocess.run(command, env=self.display.environment(), check=True, capture_output=True, text=True).stdout

    def place(self):
        return self.display.settled(CONSOLE).left

    def runFrom(self, left, act):
        """What `act` gives in a session in which the console began at `left` twips, and what the store holds of it then."""
        self.begin(self.display, Left=left)
        self.server.logOn()
        given = act()
        keys = self.endClient().split("[Client]")[1].split("\n[")[0]
        return given, dict(line.split("=", 1) for line in keys.splitlines() if "=" in line)

    def testAWindowOnTheSecondOneComesBackThere(self):
        place, kept = self.runFrom(22500, self.place)
        self.assertEqual((place, kept["Left"]), (1500, "22500"))

    def testAWindowFartherRightThanTheStoreCanTellLosesNoSettings(self):
        def moveIt():
            self.ask("xdotool", "windowmove", self.display.number(CONSOLE), "2300", "100")
            waitFor(lambda: self.place() >= 2290, "the console at the far right")

        _, kept = self.runFrom(1500, moveIt)
        self.assertEqual((kept["Left"], kept["Handle"]), ("32767", "Pupil"))
        place, kept = self.runFrom(kept["Left"], self.place)
        self.assertEqual((place, kept["Handle"]), (2184, "Pupil"))


if __name__ == "__main__":
    unittest.main()
