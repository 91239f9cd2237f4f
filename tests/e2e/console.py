#!/usr/bin/env python3
"""The console and chat boxes under a window manager: what they show when their size changes, which window has the
keyboard, and what is saved."""
import time
import unittest

from managed import ManagedDisplay
from rig import QUIET, SCALE, Client, awaitStill, endProcess, waitFor
from screen import letters
from scripted import ScriptedServer
from style12 import PROMPT

CONSOLE, BOARD, BOX = "Brightrank - Client", "Brightrank - Board", "Chat with Rookery"
TELL = b"\x00\x00\xff"  # the default colour of tells, as the screen holds it
LEARNT = 1.5  # seconds in which the prompt has been learnt


class Console(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.display = cls.enterClassContext(ManagedDisplay())

    def begin(self, **settings):
        self.server = ScriptedServer()
        self.addCleanup(self.server.end)
        self.client = Client(self.display, self.server.port, **settings)
        self.addCleanup(self.client.end)

    def logOn(self, **settings):
        self.begin(**settings)
        self.server.logOn()

    def learnPrompt(self):
        time.sleep(QUIET)
        self.server.say("fics% ")
        time.sleep(LEARNT)

    # Which window has the keyboard

    def testTheAutomaticLogOnTakesTheKeyboardToTheConsole(self):
        self.begin(handle="")
        self.display.awaitActive(BOARD)
        self.server.logOn(handle="")
        self.display.awaitActive(CONSOLE)
        self.display.type("who")
        self.display.keys("Return")
        self.server.awaitLine("who")

    # What is saved

    def testASavedWidthSurvivesALogOnWhateverTheLetters(self):
        for points in (None, 8, 20):
            with self.subTest(points=points):
                self.logOn(Width=9000, Height=7500, points=points)
                self.learnPrompt()
                endProcess(self.client.process)
                self.assertEqual((self.client.stored("Width"), self.client.stored("Height")), ("9000", "7500"))
                self.doCleanups()

    # What shows

    def tellRows(self, title):
        """The rows of pixels in which letters of a tell stand, from the window's upper edge, and the place of each
        row's last such pixel."""
        left, top, width, height = self.display.areaOf(title)
        picture = self.display.picture(left, top, width, height)
        found = {}
        for y in range(height):
            places = letters(picture.row(y), TELL)
            if places:
                found[y] = places[-1]
        return found

    def fillConsole(self):
        self.logOn(Left=150, Top=1500, Width=10500, Height=9000)
        self.learnPrompt()
        for number in range(40):
            self.server.say("".join(f"\n\rline {number} {each} and as many words as it takes to break a line that "
                                    "is as long as this one where a window is narrow" for each in range(40)) + PROMPT)
        time.sleep(2 * QUIET)
        self.display.activate(CONSOLE)

    def expectTellToShow(self):
        self.server.say("\n\rRookery tells you: good evening" + PROMPT)
        waitFor(lambda: self.tellRows(CONSOLE), "the tell in the console")

    def testInASmallerConsoleATellShows(self):
        self.fillConsole()
        self.display.resize(CONSOLE, 700 * SCALE, 300 * SCALE)
        time.sleep(QUIET)
        self.expectTellToShow()

    def testInANarrowerConsoleATellShows(self):
        self.fillConsole()
        self.display.resize(CONSOLE, 450 * SCALE, 600 * SCALE)
        time.sleep(QUIET)
        self.expectTellToShow()

    def testInAConsoleThatComesBackATellShows(self):
        self.fillConsole()
        minimised = self.display.minimise(CONSOLE)
        self.server.say("\n\rRookery tells you: good evening" + PROMPT)
        time.sleep(QUIET)
        self.display.bringBack(minimised)
        waitFor(lambda: self.tellRows(CONSOLE), "the tell in the console")

    def testWhoHasScrolledUpSeesNoTellUntilHeIsBackAtTheEnd(self):
        self.fillConsole()
        self.display.keys("Prior")
        time.sleep(QUIET)
        self.server.say("\n\rRookery tells you: good evening" + PROMPT)
        time.sleep(2 * QUIET)
        self.assertEqual(self.tellRows(CONSOLE), {})
        self.display.keys("Next", "Next")
        waitFor(lambda: self.tellRows(CONSOLE), "the tell in the console")

    def consolePicture(self):
        """The text of the console, without its edges, once it stands still."""
        left, top, width, height = self.display.areaOf(CONSOLE)

        def text():
            picture = self.display.picture(left + 30 * SCALE, top + 60 * SCALE, width - 90 * SCALE, height - 160 * SCALE)
            return picture.part(0, 0, picture.width, picture.height)

        return awaitStill(text, "the console")

    def testWhatIsReadWithTheWheelStaysWhereItIsWhileTextStreamsInAndTheEndIsFollowedAgain(self):
        self.fillConsole()
        left, top, width, height = self.display.areaOf(CONSOLE)
        self.display.move(left + width // 2, top + height // 2)
        for _ in range(5):
            self.display.turnWheel(up=True)
        read = self.consolePicture()
        for number in range(30):
            self.server.say(f"\n\rRookery tells you: good evening {number}" + PROMPT)
            time.sleep(0.02)
        self.assertEqual(self.consolePicture(), read)
        for _ in range(60):
            self.display.turnWheel(up=False)
        waitFor(lambda: self.tellRows(CONSOLE), "the tells in the console")
        self.server.say("".join(f"\n\rnumber {number}" for number in range(60)) + PROMPT)
        waitFor(lambda: not self.tellRows(CONSOLE), "the tells to be gone above")

    def testInASmallerChatBoxTheLastTellShows(self):
        self.fillConsole()  # a short one puts a tell into the midst of the box
        self.server.say("\n\rRookery tells you: good evening" + PROMPT)
        time.sleep(QUIET)
        self.display.activate(CONSOLE)
        self.display.keys("shift+F9")
        self.display.awaitActive("Chat Box")
        self.display.keys("Return")
        self.display.awaitActive(BOX)
        for _ in range(100):
            self.server.say("\n\rRookery tells you: i" + PROMPT)
        time.sleep(2 * QUIET)
        self.display.resize(BOX, 400 * SCALE, 160 * SCALE)
        time.sleep(QUIET)
        self.server.say("\n\rRookery tells you: mmmmmmmmmmmmmmmmmmmm" + PROMPT)
        waitFor(lambda: max(self.tellRows(BOX).values(), default=0) > 100 * SCALE, "the last tell in the chat box")


if __name__ == "__main__":
    unittest.main(verbosity=2)
