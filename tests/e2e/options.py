#!/usr/bin/env python3
"""The options dialog of the built program, under a window manager, with a real pointer and keyboard: a thing on each page
is changed, is seen in the running program, and is there again at the next start."""
import time
import unittest

from managed import ManagedDisplay
from rig import QUIET, SCALE, TWIPS, endProcess, waitFor
from scripted import ScriptedCase

CONSOLE, BOARD, OPTIONS = "Brightrank - Client", "Brightrank - Board", "Options"
PASTEL = b"\xc0\xff\xff"  # the paper of a scheme, in the order in which the program keeps colours
BLACK = b"\x00\x00\x00"
PAGES = {"Account": "alt+a", "Buttons": "alt+b", "Sounds": "alt+s", "Games": "alt+g", "Colors": "alt+c"}


class Options(ScriptedCase):
    @classmethod
    def setUpClass(cls):
        cls.display = cls.enterClassContext(ManagedDisplay())

    def openOptions(self):
        self.display.activate(CONSOLE)
        self.display.keys("alt+w")
        self.display.awaitMenu()
        self.display.keys("o")
        self.display.awaitActive(OPTIONS)

    def page(self, name):
        self.display.keys(PAGES[name])
        time.sleep(QUIET)

    def box(self, key, text):
        """Puts a text into the box that the key leads to."""
        self.display.keys(key, "ctrl+a")
        self.display.type(text)

    def close(self, key):
        time.sleep(QUIET)  # a box that was ticked by its letter is down for a moment, and Escape would only let go of it
        self.display.keys(key)
        waitFor(lambda: self.display.numberNow(OPTIONS) is None, "the options to be gone")

    def paper(self):
        """Of the console, in its upper part, red last as the program keeps it."""
        left, top, width, _ = self.display.areaOf(CONSOLE)
        picture = self.display.picture(left + width // 2, top + 60 * SCALE, 1, 1)
        red, green, blue = picture.pixel(0, 0)
        return bytes((blue, green, red))

    def clickFromRight(self, right, below):
        """A point of the dialog, in its own pixels from its right and its lower edge."""
        left, top, width, height = self.display.areaOf(OPTIONS)
        self.display.click(left + width - right * SCALE, top + height - below * SCALE)

    def restart(self):
        """Ends the program in order, starts it once more over the same settings, and gives those."""
        endProcess(self.client.process)
        kept = self.client.store.read_text()
        self.endClient()
        client = kept.split("[Client]")[1].split("\n[")[0]
        settings = dict(line.split("=", 1) for line in client.splitlines() if "=" in line)
        self.begin(self.display, **{key: value for key, value in settings.items() if key not in ("Handle", "Password", "Port")},
                   handle=settings["Handle"], password=settings["Password"])
        return settings

    def testAThingOnEachPageIsSeenAndThereAgainAtTheNextStart(self):
        self.begin(self.display)
        self.server.logOn()
        self.assertEqual(self.paper(), BLACK)
        self.openOptions()
        self.box("alt+h", "Rookery")
        self.page("Buttons")
        self.box("alt+1", "sought all")
        self.page("Sounds")
        self.display.keys("alt+u")
        self.page("Games")
        self.display.keys("alt+p", "alt+m", "Down", "Down")
        self.page("Colors")
        self.display.keys("alt+e", "Down", "Down")
        self.close("Return")
        waitFor(lambda: self.paper() == PASTEL, lambda: f"the new paper, and not {self.paper()}")
        self.display.activate(CONSOLE)
        self.display.keys("alt+1")
        self.server.awaitLine("sought all")
        settings = self.restart()
        expected = {"Handle": "Rookery", "Tell_0": "sought all", "Sound_On": "1", "PreMove_OK": "1", "Mouse_Slip": "2",
                    "Color_Background": str(0xC0FFFF), "Main_Font": "Fixedsys", "Drag_Mode": "0"}
        self.assertEqual({key: settings[key] for key in expected}, expected)
        self.server.logOn(handle="Rookery")
        waitFor(lambda: self.paper() == PASTEL, "the paper to be there again")
        self.display.activate(CONSOLE)
        self.display.keys("alt+1")
        self.server.awaitLine("sought all")

    def testTheBoardsButtonsSendTheNewCommand(self):
        self.begin(self.display)
        self.server.logOn()
        self.openOptions()
        self.page("Buttons")
        self.box("alt+0", "who a")
        self.close("Return")
        self.display.activate(BOARD)
        self.display.keys("alt+0")
        self.server.awaitLine("who a")

    def testTheButtonsByPointer(self):
        for button, right, kept in ("Cancel", 46, "Pupil"), ("OK", 131, "Carla"):
            with self.subTest(button):
                self.begin(self.display)
                self.server.logOn()
                self.openOptions()
                self.box("alt+h", "Carla")
                self.clickFromRight(right, 23)
                waitFor(lambda: self.display.numberNow(OPTIONS) is None, "the options to be gone")
                endProcess(self.client.process)
                self.assertEqual(self.client.stored("Handle"), kept)
                self.doCleanups()

    def testEscapeKeepsOnlyWhatIsLive(self):
        self.begin(self.display)
        self.server.logOn()
        self.openOptions()
        self.box("alt+h", "Berta")
        self.box("alt+o", "6123")
        self.page("Games")
        self.box("alt+w", "33")
        self.display.keys("alt+q")
        self.close("Escape")
        endProcess(self.client.process)
        stored = {key: self.client.stored(key) for key in ("Handle", "Port", "Warn_Time", "AutoQueen")}
        self.assertEqual(stored, {"Handle": "Pupil", "Port": "6123", "Warn_Time": "33", "AutoQueen": "0"})

    def testItsPlaceIsKept(self):
        self.begin(self.display)
        self.server.logOn()
        self.openOptions()
        self.display.put(OPTIONS, 60 * SCALE, 45 * SCALE)
        time.sleep(QUIET)
        self.close("Escape")
        kept = self.endClient().split("[Options]")[1]
        self.assertIn(f"Left={60 * TWIPS}\n", kept)
        self.assertIn(f"Top={45 * TWIPS}\n", kept)

    def testAnEmptiedPortEndsTheProgramInOrder(self):
        self.begin(self.display)
        self.server.logOn()
        self.openOptions()
        self.display.keys("alt+o", "ctrl+a", "Delete")
        self.display.awaitActive("Brightrank")  # a box tells which limit was met
        self.display.keys("Return")
        self.client.process.wait(20)
        self.assertEqual(self.client.process.returncode, 1)
        self.assertNotIn("[Options]", self.client.store.read_text(), "nothing is saved")
        self.client.log.close()

    def testWithSmallAndLargeLettersEveryButtonIsOnTheScreen(self):
        for points in 8, 20:
            with self.subTest(points=points):
                self.begin(self.display, points=points)
                self.server.logOn()
                self.openOptions()
                for page in PAGES:
                    self.page(page)
                _, _, width, height = self.display.areaOf(OPTIONS)
                self.assertLess(width, 1024 * SCALE)
                self.assertLess(height, 570 * SCALE)
                self.close("Escape")
                self.doCleanups()


if __name__ == "__main__":
    unittest.main()
