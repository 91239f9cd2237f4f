#!/usr/bin/env python3
"""What the program tells a window manager of where its windows go."""
import re
import socket
import subprocess
import unittest

from rig import Client, Display


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


if __name__ == "__main__":
    unittest.main()
