#!/usr/bin/env python3
"""The seek graph of the built program, under a window manager and with a real pointer: dots that are clicked, the menu of
their seekers, and what is typed over it."""
import math
import time
import unittest

from managed import ManagedDisplay
from peers import PracticeServer, Wire
from rig import LOG_ON, QUIET, RIGHT, SCALE, Client, waitFor
from scripted import ScriptedServer
from style12 import PROMPT

CELL = 16  # pixels, of the graph in its designed size
WIDTH, HEIGHT = 520, 460
TITLE = "Seek Graph ("  # with the number of ads behind it

ADS = """ 11 1540 Anders(C)           5   0 rated   blitz                  0-9999 m
 12 1540 Berta              15   0 unrated standard               0-9999 
 13 ++++ Carla              30   0 unrated wild/fr                0-9999 
"""


class SeekServer(ScriptedServer):
    """Answers each "sought" as soon as it comes; the other lines are for the test."""

    def __init__(self):
        super().__init__()
        self.asked = 0

    def hear(self, moment, line):
        if line == "sought":
            self.asked += 1
            self.say(ADS.replace("\n", "\n\r") + f"{ADS.count(chr(10))} ads displayed.\n\r" + PROMPT.lstrip("\n\r"))
        else:
            super().hear(moment, line)


def placeOf(minutes, rating):
    """Where the dot of an ad stands in the graph, in pixels of the program."""
    scale = ((WIDTH * 15 - 150) / (CELL * 15) - 3) / math.log(60)
    return round(scale * math.log(minutes) + 3) * CELL, round(25 - max(rating - 600, 0) / 94) * CELL


ANDERS, BERTA, CARLA = placeOf(5, 1540), placeOf(15, 1540), placeOf(30, 0)


class SeekGraph(unittest.TestCase):
    def setUp(self):
        self.display = self.enterContext(ManagedDisplay())
        self.server = SeekServer()
        self.addCleanup(self.server.end)
        self.client = Client(self.display, self.server.port, Seek_Graph="True", Seek_Off=0)
        self.addCleanup(self.endClient)
        self.server.logOn()
        self.server.awaitLine("Set Seek 0")
        self.display.number(f"{TITLE}3 Ads)")

    def endClient(self):
        return None if self.client.log.closed else self.client.end()

    def at(self, place):
        """That place of the graph on the screen."""
        left, top, *_ = self.display.areaOf(TITLE)
        return left + place[0] * SCALE, top + place[1] * SCALE

    def openMenu(self, place):
        self.display.click(*self.at(place), RIGHT)
        return self.display.awaitMenu()

    def choose(self, place, key):
        self.openMenu(place)
        self.display.keys(key)
        self.display.awaitNoMenu()

    def awaitNothing(self):
        time.sleep(QUIET)
        self.assertTrue(self.server.lines.empty(), "something was sent")

    def testItHasItsDesignedSizeInTheCorner(self):
        self.assertEqual(self.display.sizeOf(TITLE), (WIDTH * SCALE, HEIGHT * SCALE))
        self.assertEqual(self.display.settled(TITLE).corner, (0, 0))

    def testADotClickedPlaysItsAd(self):
        for place, number in (ANDERS, 11), (CARLA, 13), (BERTA, 12):
            self.display.click(*self.at(place))
            self.server.awaitLine(f"Play {number}")

    def testBesideTheDotsNothingIsSent(self):
        for beside in (ANDERS[0] + CELL // 2 + 1, ANDERS[1]), (ANDERS[0], ANDERS[1] - CELL // 2 - 1), (4, 4):
            self.display.click(*self.at(beside))
            self.display.click(*self.at(beside), RIGHT)
        self.awaitNothing()
        self.assertFalse(self.display.menus())

    def testTheEntriesOfTheMenuToTheByte(self):
        for key, line in ("f", "fi Anders"), ("a", "ass Anders"), ("p", "Play Anders"):
            self.choose(ANDERS, key)
            self.server.awaitLine(line)

    def testMatchOfTheMenuChallengesTheSeeker(self):
        self.choose(CARLA, "m")
        self.display.awaitActive("Match")
        self.display.keys("Return")
        self.server.awaitLine("Match Carla 0 0 u ")

    def testAMenuThatIsDismissedSendsNothing(self):
        self.openMenu(BERTA)
        self.display.keys("Escape")
        self.display.awaitNoMenu()
        self.awaitNothing()

    def testWhatIsTypedOverItGoesOutFromTheConsolesLine(self):
        self.display.activate(TITLE)
        self.display.type("t")
        self.display.awaitActive("Brightrank - Client")
        self.display.type("ell Anders hi")
        self.display.keys("Return")
        self.server.awaitLine("tell Anders hi")

    def testArrowKeysAndEnterPlayAnAd(self):
        self.display.activate(TITLE)
        self.display.keys("Right", "Right", "Return")
        self.server.awaitLine("Play 12")

    def testAPollAfterResizingSnapsItToWholeCells(self):
        self.display.resize(TITLE, 400 * SCALE, 370 * SCALE)
        waitFor(lambda: self.display.sizeOf(TITLE) == (400 * SCALE, (25 * 12 + 6 + 52) * SCALE), "whole cells of 12")

    def testClosedByItsUserItAsksNoMore(self):
        self.display.closeByKey(TITLE)
        asked = self.server.asked
        time.sleep(2.5)
        self.assertEqual(self.server.asked, asked)

    def testTheTickAndThePlaceAreKept(self):
        self.display.put(TITLE, 60 * SCALE, 45 * SCALE)
        time.sleep(QUIET)  # until the program has heard of it
        store = self.endClient()
        self.assertIn("Seek_Graph=True", store)
        kept = store.split("[Seek]")[1]
        self.assertIn("Left=900\n", kept)
        self.assertIn("Top=675\n", kept)

    def testMinimisedItGoesBackToItsPlaceForTheStore(self):
        self.display.put(TITLE, 60 * SCALE, 45 * SCALE)
        time.sleep(QUIET)  # until the program has heard of it
        self.display.minimise(TITLE)
        kept = self.endClient().split("[Seek]")[1]
        for line in "Left=900\n", "Top=675\n", f"Width={WIDTH * 15}\n", f"Height={HEIGHT * 15}\n":
            self.assertIn(line, kept)

    def testItsMenuGoesWithItWhenTheConnectionEnds(self):
        self.openMenu(ANDERS)
        self.server.end()
        self.display.awaitNoMenu()
        waitFor(lambda: not self.display.numberNow(TITLE), "the graph to go")
        self.assertIn("Seek_Graph=True", self.endClient())


SPROUT = placeOf(3, 1050)  # " 1 1050 Sprout(C)  3  0 unrated blitz", a computer player of the practice server


class GameFromTheGraph(unittest.TestCase):
    """With the practice server, whose ads are taken by those behind them."""

    def setUp(self):
        self.display = self.enterContext(ManagedDisplay())
        practice = PracticeServer()
        self.addCleanup(practice.end)
        self.wire = Wire(practice.port)
        self.addCleanup(self.wire.end)

    def begin(self, seekOff):
        client = Client(self.display, self.wire.port, Seek_Graph="True", Seek_Off=seekOff)
        self.addCleanup(client.end)
        waitFor(lambda: self.shows(25), "the ads")
        self.assertEqual(self.wire.text(), LOG_ON + "Set Seek 0\nsought\n")

    def shows(self, ads):
        return self.display.numberNow(f"{TITLE}{ads} Ads)")

    def clickTheDot(self):
        left, top, *_ = self.display.areaOf(TITLE)
        self.display.click(left + SPROUT[0] * SCALE, top + SPROUT[1] * SCALE)
        waitFor(self.wire.positions, "a game")
        names = self.wire.positions()[0][16:18]
        self.assertEqual(sorted(names), ["Pupil", "Sprout"])
        self.display.number(names[0])
        self.assertIn("Play 1\n", self.wire.text())

    def resign(self):
        self.wire.sayForUser("resign")
        waitFor(lambda: b"resigns}" in self.wire.received, "the end of the game")

    def testADotClickedBeginsAGameWhileTheGraphIsAwayAndItsEndBringsItBack(self):
        self.begin(seekOff=1)
        self.clickTheDot()
        waitFor(lambda: not self.display.numberNow(TITLE), "the graph to go")
        asked = self.wire.text().count("sought")
        time.sleep(2.5)
        self.assertEqual(self.wire.text().count("sought"), asked)
        self.resign()
        waitFor(lambda: self.shows(25), "the graph with the ad that is open again")
        self.assertEqual(self.wire.text().count("Set Seek 0"), 2)

    def testWithoutSeekOffTheGraphStaysBesideTheGameAndTheAdIsGone(self):
        self.begin(seekOff=0)
        self.clickTheDot()
        waitFor(lambda: self.shows(24), "one ad less")
        self.resign()
        waitFor(lambda: self.shows(25), "the ad to be open again")
        self.assertEqual(self.wire.text().count("Set Seek 0"), 1)


if __name__ == "__main__":
    unittest.main()
