#!/usr/bin/env python3
"""The server's variables and the finger notes of the built program, under a window manager and with a real pointer: what
opens their panels, what these ask, and what OK sends."""
import time
import unittest

from managed import ManagedDisplay
from rig import QUIET, SCALE
from scripted import ScriptedCase
from style12 import PROMPT

PAUSE = 0.22  # seconds behind each command
TITLE = "Variables"  # of both panels

VARS = """Variable settings of Pupil:

time=2      private=0     shout=1         pin=0           style=12
inc=12      jprivate=0    cshout=1        notifiedby=0    flip=0
rated=1     automail=0    kiblevel=0      availmin=0      bell=0
ropen=1     pgn=0         tell=0          availmax=0      width=79
simopen=0   tourney=0     Lang=English                    Prompt: fics%\x20

"""
NOTES = """Finger of Pupil:

 1: The first note
 2: The second note
10: The tenth note

"""


class ServerVariables(ScriptedCase):
    def setUp(self):
        self.logOn(self.enterContext(ManagedDisplay()))

    def openPanel(self, key, question, answer):
        """Ends up with its fields filled."""
        self.display.activate("Brightrank - Client")
        self.display.keys("alt+w", key)
        self.server.awaitLine(question)
        self.answer(answer)
        self.display.awaitActive(TITLE)
        time.sleep(QUIET)

    def answer(self, text):
        self.server.say(text.replace("\n", "\n\r") + PROMPT.lstrip("\n\r"))

    def openVars(self):
        self.openPanel("v", "Vars", VARS)

    def openNotes(self):
        self.openPanel("n", "Fi", NOTES)

    def clickButton(self, fromRight):
        """Of OK, Current and Cancel, which stand in the lower right corner, each 80 pixels wide or so; the last is 0.
        Gives the moment just before."""
        left, top, width, height = self.display.settled(TITLE) and self.display.areaOf(TITLE)
        moment = time.perf_counter()
        self.display.click(left + width - (11 + 40 + 86 * fromRight) * SCALE, top + height - 22 * SCALE)
        return moment

    def awaitClosed(self):
        self.display.awaitActive("Brightrank")

    def awaitNothing(self):
        time.sleep(QUIET)
        self.assertTrue(self.server.lines.empty(), "something was sent")

    def awaitPaused(self, start, *lines):
        """These come, with a pause behind each. A packet may be late, so the pauses count from `start`, which is before
        the first one."""
        for pauses, line in enumerate(lines):
            self.assertGreaterEqual(self.server.awaitLine(line) - start, pauses * PAUSE)

    def testWhatIsChangedGoesOutInOrderWithPauses(self):
        self.openVars()
        self.display.keys("alt+t", "ctrl+a")
        self.display.type("5")
        self.display.keys("alt+h", "ctrl+a")
        self.display.type("30")
        self.display.keys("alt+s", "space", "Down", "Down", "space")  # the first switch, and the third
        self.display.keys("alt+p", "ctrl+a")
        self.display.type("go>")
        self.awaitNothing()
        self.awaitPaused(self.clickButton(2), "Set Time 5", "Set Height 30", "Set Rated", "Set ROpen", "Set Prompt go>")
        self.awaitClosed()
        self.awaitNothing()

    def testANumberTypedAsItIsSendsNothing(self):
        self.openVars()
        self.display.keys("alt+h", "ctrl+a")
        self.display.type("0")
        self.display.keys("Return")
        self.awaitClosed()
        self.awaitNothing()

    def testCurrentTakesTheChangesBack(self):
        self.openVars()
        self.display.keys("alt+i", "ctrl+a")
        self.display.type("3")
        self.display.keys("alt+s", "space")
        self.clickButton(1)
        time.sleep(QUIET)
        self.clickButton(2)
        self.awaitClosed()
        self.awaitNothing()

    def testCancelAndEscapeSendNothing(self):
        for close in lambda: self.clickButton(0), lambda: self.display.keys("Escape"):
            self.openVars()
            self.display.keys("alt+t")
            self.display.type("9")
            close()
            self.awaitClosed()
        self.awaitNothing()

    def testNotesThatAreEditedGoOutAndAnEmptiedOneWithItsBlank(self):
        self.openNotes()
        self.display.keys("alt+1", "ctrl+a", "BackSpace")
        self.display.keys("alt+3")
        self.display.type("Third")
        self.display.keys("alt+0", "End")
        self.display.type("!")
        self.awaitPaused(self.clickButton(2), "Set 1 ", "Set 3 Third", "Set 10 The tenth note!")
        self.awaitClosed()
        self.awaitNothing()

    def testTheSecondPanelAsksBehindTheAnswerOfTheFirst(self):
        self.display.activate("Brightrank - Client")
        self.display.keys("alt+w", "v")
        self.server.awaitLine("Vars")
        self.display.activate("Brightrank - Client")
        self.display.keys("alt+w", "n")
        self.awaitNothing()
        self.answer(VARS)
        self.server.awaitLine("Fi")

    def testTheProgramEndsWhileChangesAreSent(self):
        self.openVars()
        for letter in "tikuowh":
            self.display.keys(f"alt+{letter}")
            self.display.type("9")
        self.display.keys("Return")
        self.server.awaitLine("Set Time 29")
        self.endClient()
        self.assertLess(self.server.whole().count("Set "), 5)

    def testItsPlaceIsKept(self):
        self.openVars()
        self.display.put(TITLE, 60 * SCALE, 45 * SCALE)
        time.sleep(QUIET)  # until the program has heard of it
        self.display.keys("Escape")
        self.awaitClosed()
        kept = self.endClient().split("[ICS_Vars]")[1]
        self.assertIn("Left=900\n", kept)
        self.assertIn("Top=675\n", kept)


if __name__ == "__main__":
    unittest.main()
