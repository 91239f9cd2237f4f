#!/usr/bin/env python3
"""The built program on a Wayland desktop, which places windows itself and tells nobody where."""
import os
import pathlib
import re
import subprocess
import tempfile
import unittest

from rig import endProcess, waitFor
from scripted import ScriptedCase

PLACES = {"Client": (1500, 6000, 9300, 5700), "Board": (9900, 150, 9690, 8115)}  # twips: left, top, width, height


class WaylandDesktop:
    """Without a screen or a pointer. Ends with the test."""

    def __init__(self, test):
        self.folder = tempfile.TemporaryDirectory(prefix="brightrank-wayland-")
        test.addCleanup(self.folder.cleanup)
        os.chmod(self.folder.name, 0o700)
        self.own = {"XDG_RUNTIME_DIR": self.folder.name}
        desktop = subprocess.Popen(["weston", "--backend=headless-backend.so", "--no-config", "--idle-time=0", "--socket=desktop",
                                    "--width=1400", "--height=1000"], env=os.environ | self.own,
                                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        test.addCleanup(endProcess, desktop)
        waitFor(pathlib.Path(self.folder.name, "desktop").exists, "the desktop")

    def environment(self):
        """That of a program which is to show itself here."""
        surroundings = os.environ | self.own | {"WAYLAND_DISPLAY": "desktop", "QT_QPA_PLATFORM": "wayland"}
        surroundings.pop("DISPLAY", None)
        return surroundings


class Wayland(ScriptedCase):
    def kept(self, **settings):
        """The places that the store holds behind a session: left, top, width, height."""
        self.begin(WaylandDesktop(self), **settings)
        self.server.logOn()
        store = self.endClient()
        keys = {section: store.split(f"[{section}]")[1].split("\n[")[0] for section in PLACES}
        return {section: tuple(int(re.search(rf"^{key}=(.*)$", text, re.MULTILINE)[1])
                               for key in ("Left", "Top", "Width", "Height")) for section, text in keys.items()}

    def testPlacesAndSizesAreKeptFromOneSessionToTheNext(self):
        left, top, width, height = PLACES["Client"]
        self.assertEqual(self.kept(boardWidth=PLACES["Board"][2], boardHeight=PLACES["Board"][3],
                                   Left=left, Top=top, Width=width, Height=height), PLACES)

    def testAWindowThatWouldReachBeyondTheScreenIsKeptWithinIt(self):
        left, top, width, height = self.kept(Left=20400, Top=14400, Width=300, Height=300)["Client"]  # below the least
        self.assertEqual((left + width, top + height), (1400 * 15, 1000 * 15))

    def testTheCornerOfTheScreenIsKeptAsOneAtWhichASizeIsRestored(self):
        self.assertEqual(self.kept(Left=0, Top=0)["Client"][:2], (15, 15))


if __name__ == "__main__":
    unittest.main(verbosity=2)
