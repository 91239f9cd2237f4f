#!/usr/bin/env python3
"""The help panel of the built program, under a window manager: what it asks to the byte, the blocks it fetches, what its
pane shows, and its keys."""
import time
import unittest

from managed import ManagedDisplay
from rig import QUIET, SCALE, waitFor
from screen import letters
from scripted import ScriptedCase
from style12 import PROMPT

CONSOLE, PANEL = "Brightrank - Client", "Help Panel"
INK = b"\x00\x80\xff"  # the default colour of the console's text, as the screen holds it
BARE = PROMPT.lstrip("\n\r")
NEXT = "Type [next] to see next page.\n\r" + BARE


def lines(count, first=1):
    return "".join(f"line {number} of the page\n\r" for number in range(first, first + count))


class HelpPanel(ScriptedCase):
    @classmethod
    def setUpClass(cls):
        cls.display = cls.enterClassContext(ManagedDisplay())

    def setUp(self):
        self.logOn(self.display)

    def typeInConsole(self, line):
        self.display.activate(CONSOLE)
        self.display.type(line)
        self.display.keys("Return")

    def openPanel(self, topic="seek"):
        self.typeInConsole(f"help {topic}")
        self.display.awaitActive(PANEL)
        self.server.awaitLine(f"Help {topic}")

    def inkRows(self):
        """How many rows of pixels of the pane hold letters."""
        left, top, width, height = self.display.areaOf(PANEL)
        picture = self.display.picture(left, top, width, height - 60 * SCALE)
        return sum(bool(letters(picture.row(y), INK)) for y in range(picture.height))

    def awaitNothing(self):
        time.sleep(QUIET)
        self.assertTrue(self.server.lines.empty(), "something was sent")

    def testHelpTypedOpensThePanelAndNothingElseGoesOut(self):
        self.openPanel()
        self.server.say(lines(3) + BARE)
        waitFor(lambda: self.inkRows() > 15 * SCALE, "the page")
        self.awaitNothing()

    def testBlocksAreFetchedWithNextAndShownTogether(self):
        self.openPanel()
        for block in range(3):
            self.server.say(lines(5, 5 * block + 1) + NEXT)
            self.server.awaitLine("Next")
            self.assertEqual(self.inkRows(), 0, "before the end")
        self.server.say(lines(1, 16) + BARE)
        waitFor(lambda: self.inkRows() > 100 * SCALE, "sixteen lines")
        self.awaitNothing()
        sent = bytes(self.server.sent).decode("latin-1")
        self.assertTrue(sent.endswith("Help seek\nNext\nNext\nNext\n"), sent)

    def testEnterAsksForTheNextTopicAndAutoClearEmptiesThePane(self):
        self.openPanel()
        self.server.say(lines(20) + BARE)
        waitFor(lambda: self.inkRows() > 100 * SCALE, "the page")
        self.display.keys("ctrl+a")
        self.display.type("match")
        self.display.keys("Return")
        self.server.awaitLine("Help match")
        waitFor(lambda: self.inkRows() == 0, "an empty pane")
        self.server.say("No help available on match.\n\r" + BARE)
        waitFor(self.inkRows, "the answer")

    def testTheKeysOfTheRow(self):
        self.openPanel()
        self.server.say(lines(20) + BARE)
        waitFor(lambda: self.inkRows() > 100 * SCALE, "the page")
        self.display.keys("alt+c")
        waitFor(lambda: self.inkRows() == 0, "an empty pane")
        self.display.keys("alt+g")
        self.server.awaitLine("Help seek")
        self.server.say(lines(1) + BARE)
        waitFor(self.inkRows, "the page")
        self.display.keys("alt+x")
        waitFor(lambda: self.display.numberNow(PANEL) is None, "the panel to be gone")

    def testThePageBeginsAtItsTopAndPagesTurnFromTheTopic(self):
        self.openPanel()
        self.server.say("\n\r" * 40 + lines(1) + "\n\r" * 40 + BARE)
        time.sleep(2 * QUIET)
        self.assertEqual(self.inkRows(), 0, "the top of the page")
        self.display.keys("Next")
        waitFor(self.inkRows, "the middle of the page")

    def testEscapeClosesItAndPlaceAndSizeAreKept(self):
        self.openPanel()
        self.display.put(PANEL, 60 * SCALE, 45 * SCALE)
        self.display.resize(PANEL, 800 * SCALE, 400 * SCALE)
        time.sleep(QUIET)  # until the program has heard of it
        self.display.keys("Escape")
        waitFor(lambda: self.display.numberNow(PANEL) is None, "the panel to be gone")
        kept = self.endClient().split("[Help]")[1]
        for line in "Left=900\n", "Top=675\n", "Width=12000\n", "Height=6000\n":
            self.assertIn(line, kept)


if __name__ == "__main__":
    unittest.main()
