#!/usr/bin/env python3
"""The lists of games of the built program, under a window manager and with a real pointer: what opens their window, what
its buttons ask, and what the menu of a row sends."""
import time
import unittest

from managed import ManagedDisplay
from rig import QUIET, RIGHT, SCALE
from scripted import ScriptedCase
from style12 import PROMPT

ROW = 3  # the one that is picked, from 0

GAMES = "                  Opponent      Type         ECO End Date\n" + "".join(
    f"{60 + number}: + 1677 B 1595 SacredVision  [ sr 30  30] B07 Res Sat Aug 16, 19:15 EST 2003\n" for number in range(10))
SLOTS = "    White         Rating  Black         Rating  Type         ECO End Result\n" + "".join(
    f"%{number:02}: tentacle      2291    larsa         2050    [ lr  1   2] D35 Rep 1/2-1/2\n" for number in range(1, 11))
STORED = "    C Opponent       On Type          Str  M    ECO Date\n" + "".join(
    f" {number}: W PyChess{number}        Y [psu  2  12] 39-39 W3   C20 Sun Jan 11, 17:40 ??? 2009\n" for number in range(10))


class HistoryLists(ScriptedCase):
    def setUp(self):
        self.logOn(self.enterContext(ManagedDisplay()))

    def typeInConsole(self, line):
        self.display.activate("Brightrank - Client")
        self.display.type(line)
        self.display.keys("Return")

    def answer(self, title, rows):
        """Ends up with the list on the screen."""
        self.server.say((f"{title}:\n" + rows).replace("\n", "\n\r") + PROMPT.lstrip("\n\r"))
        self.display.awaitActive(title)
        time.sleep(QUIET)

    def openHistory(self):
        self.typeInConsole("hi Foo")
        self.server.awaitLine("History Foo")
        self.answer("History for Foo", GAMES)

    def openList(self, key, command, title, rows):
        self.openHistory()
        self.display.keys(key)
        self.server.awaitLine(f"{command} Foo")
        self.answer(f"{title} for Foo", rows)

    def openJournal(self):
        self.openList("alt+j", "Journal", "Journal", SLOTS)

    def openStored(self):
        self.openList("alt+s", "Stored", "Stored games", STORED)

    def row(self, number):
        """Its middle; the ten rows end twelve pixels or less above the window's lower edge."""
        left, top, width, height = self.display.areaOf(self.display.activeTitle())
        margin, line = 11 * SCALE, 14 * SCALE
        return left + width // 3, top + height - margin - line * (9 - number) - line // 2

    def openMenu(self, number=ROW):
        self.display.click(*self.row(number), RIGHT)
        return self.display.awaitMenu()

    def choose(self, *keys):
        """An entry of the open menu, by the keys that lead to it."""
        self.display.keys(*keys)
        self.display.awaitNoMenu()

    def entry(self, number):
        return ["Down"] * number + ["Return"]

    def awaitNothing(self):
        time.sleep(QUIET)
        self.assertTrue(self.server.lines.empty(), "something was sent")

    def testHistoryTypedOpensTheWindowAndNothingElseGoesOut(self):
        self.openHistory()
        self.awaitNothing()

    def testHistoryAloneIsTheOwnOne(self):
        self.typeInConsole("history")
        self.server.awaitLine("History Pupil")

    def testControlHOpensItWithTheOwnHandleAndItsButtonsAsk(self):
        self.display.activate("Brightrank - Client")
        self.display.keys("ctrl+h")
        self.display.awaitActive("History")
        time.sleep(QUIET)
        self.awaitNothing()
        for key, command in ("alt+h", "History"), ("alt+j", "Journal"), ("alt+s", "Stored"):
            self.display.keys(key)
            self.server.awaitLine(f"{command} Pupil")
            self.server.say("Sorry.\n\r" + PROMPT.lstrip("\n\r"))
            self.display.awaitActive("Brightrank")
            self.display.keys("Return")  # of the box, which says that there are none
            self.display.awaitActive("Stored games" if command == "Stored" else command)

    def testReturnInThePlayerAsksForTheHistory(self):
        self.openJournal()
        self.display.keys("alt+p", "ctrl+a")
        self.display.type("Bar")
        self.display.keys("Return")
        self.server.awaitLine("History Bar")

    def testADoubleClickReviewsTheRowUnderIt(self):
        self.openHistory()
        self.display.click(*self.row(ROW))
        self.display.click(*self.row(ROW))
        self.server.awaitLine("smoves Foo 63")
        self.awaitNothing()

    def testEnterReviewsTheChosenRow(self):
        self.openHistory()
        self.display.keys("shift+Tab", "Down", "Return")  # from the player back to the list
        self.server.awaitLine("smoves Foo 61")

    def testTheMenuOfAHistoryToTheByte(self):
        self.openHistory()
        for keys, line in ((self.entry(1), "ex Foo 63"), (self.entry(3), "smoves Foo 63"),
                           (self.entry(5), "Mailstored Foo 63"), (["Up", "Right", "Down", "Return"], "jsave B Foo 63"),
                           (self.entry(2), "smoves Foo 63")):
            self.openMenu()
            self.choose(*keys)
            self.server.awaitLine(line)
        self.awaitNothing()

    def testTheMenuOfStoredGamesNamesTheOpponent(self):
        self.openStored()
        for number, line in (1, "ex Foo PyChess3"), (3, "smoves Foo PyChess3"), (5, "Mailstored Foo PyChess3"):
            self.openMenu()
            self.choose(*self.entry(number))
            self.server.awaitLine(line)

    def testRemoveAsksWithNoAsItsDefault(self):
        self.openJournal()
        for key in "Return", "alt+y":
            self.openMenu()
            self.choose("Up", "Return")
            self.display.awaitActive("Brightrank")
            self.awaitNothing()
            self.display.keys(key)
            self.display.awaitActive("Journal for Foo")
        self.server.awaitLine("jkill D")
        self.awaitNothing()

    def testSavePgnAsksForAFileFirst(self):
        self.openHistory()
        self.openMenu()
        self.choose(*self.entry(4))
        self.display.awaitActive("Save Game")
        self.awaitNothing()
        self.display.keys("Escape")
        self.display.awaitActive("History for Foo")
        self.awaitNothing()

    def testTheMenuKeyOpensItAtTheRow(self):
        self.openHistory()
        self.display.keys("shift+Tab", "Down")
        for key in "Menu", "shift+F10":
            self.display.keys(key)
            menu = self.display.awaitMenu()
            self.assertLess(abs(menu.top - self.row(1)[1]), 24 * SCALE)
            self.choose(*self.entry(1))
            self.server.awaitLine("ex Foo 61")

    def testAMenuThatIsDismissedSendsNothing(self):
        self.openHistory()
        self.openMenu()
        self.choose("Escape")
        self.awaitNothing()

    def testItsPlaceIsKept(self):
        self.openHistory()
        self.display.put("History for Foo", 60 * SCALE, 45 * SCALE)
        time.sleep(QUIET)  # until the program has heard of it
        self.display.keys("alt+x")
        kept = self.endClient().split("[History]")[1]
        self.assertIn("Left=900\n", kept)
        self.assertIn("Top=675\n", kept)


if __name__ == "__main__":
    unittest.main()
