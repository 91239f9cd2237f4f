#!/usr/bin/env python3
"""Every box and window that a menu opens is up when the program is asked to end: it ends in order and saves."""
import re
import unittest

from rig import SCALE, Client, Display, waitFor
from screen import Screen
from scripted import ScriptedServer
from style12 import START, style12

BOARD, GAME, CONSOLE = "Brightrank - Board", "Skipper - Harbour    [60 0]", "Brightrank - Client"


class BoxesFromMenus(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.display = cls.enterClassContext(Display())

    def begin(self, **settings):
        self.server = ScriptedServer()
        self.addCleanup(self.server.end)
        self.client = Client(self.display, self.server.port, **settings)
        self.ended = False
        self.addCleanup(lambda: self.ended or self.client.end())
        waitFor(Screen(self.display).find, "the board")

    def focusBoard(self, title=BOARD):
        window = self.display.awaitWindow(title)
        screen = Screen(self.display)
        waitFor(lambda: screen.find(window), "the board")
        self.display.click(*screen.centre("e5"))
        return self.display.awaitFocus(window)

    def focusConsole(self):
        window = next(each for each in self.display.windows() if each.title.startswith(CONSOLE))
        self.display.click(window.left + 120 * SCALE, window.top + window.height - 28 * SCALE)
        return self.display.awaitFocus(window)

    def choose(self, menu, *keys):
        """An entry by the keys of its menu."""
        self.display.keys(menu)
        self.display.awaitMenu()
        self.display.keys(*keys)

    def end(self):
        """The program's own values are in the store, and those of the windows that are open."""
        self.ended = True
        store = self.client.end()
        self.assertRegex(store, r"\[Client\](?:\n[^\[]+)*\nXP_Style=False\n")
        self.assertRegex(store, r"\[Board\]\n")
        return store

    def fromTheBoard(self, menu, key, title):
        self.begin()
        self.focusBoard()
        self.choose(menu, key)
        self.display.awaitWindow(title)
        return self.end()

    def fromTheConsole(self, menu, keys, title):
        self.begin()
        self.focusConsole()
        self.choose(menu, *keys)
        self.display.awaitWindow(title)
        return self.end()

    def testDraw(self):
        self.fromTheBoard("alt+a", "d", "Brightrank")

    def testResign(self):
        self.fromTheBoard("alt+a", "r", "Brightrank")

    def testTheBoardsAbout(self):
        self.fromTheBoard("alt+h", "a", "Brightrank")

    def testTheBoardsHelp(self):
        self.fromTheBoard("alt+h", "b", "Brightrank Help")

    def testTheColours(self):
        self.fromTheBoard("alt+b", "c", "Board Colors")

    def testTheBoardsSeekAndMatch(self):
        for key, title in (("s", "Seek"), ("m", "Match")):
            with self.subTest(entry=title):
                store = self.fromTheBoard("alt+a", key, title)
                self.assertRegex(store, r"\[Match\]\n")
                self.doCleanups()

    def testTheQuestionBeforeABoardCloses(self):
        for keys in (("alt+f", "e"), ("alt+h", "e")):
            with self.subTest(keys=keys):
                self.begin()
                self.server.logOn()
                self.server.say(style12(START, relation=1))
                self.focusBoard(GAME)
                self.choose(*keys)
                self.display.awaitWindow("Game in progress")
                self.end()
                self.doCleanups()

    def testTheConsolesAbout(self):
        self.fromTheConsole("alt+h", "a", "Brightrank")

    def testTheConsolesHelp(self):
        self.fromTheConsole("alt+h", "b", "Brightrank Help")

    def testAnotherServer(self):
        self.fromTheConsole("alt+c", ("Down", "Return"), "Alternate Server")  # the second entry

    def testTheMissingRelay(self):
        self.begin(Use_Timeseal="True", Auto_Connect="False")
        self.focusConsole()
        self.choose("alt+c", "f")
        self.display.awaitWindow("Brightrank")
        self.end()

    def testTheQuestionOfAChatBox(self):
        self.fromTheConsole("alt+w", ("h",), "Chat Box")

    def testTheConsolesMatch(self):
        self.fromTheConsole("alt+w", ("m",), "Match")

    def testABoardForOneThatWasClosed(self):
        self.begin()
        closed = self.focusBoard()
        self.choose("alt+f", "e")
        self.display.awaitGone(closed)
        self.focusConsole()
        self.choose("alt+w", "b")
        self.display.awaitWindow(BOARD)
        self.end()

    def testABoxOpenedWithThePointer(self):
        """Actions, Draw: the menus stand in a row, the entries in a column."""
        self.begin()
        window = self.focusBoard()
        self.display.keys("alt+a")
        menu = self.display.awaitMenu()
        self.display.keys("Escape", "Escape")
        self.display.awaitNoMenu()
        self.display.click(menu.left + 10 * SCALE, window.top + 10 * SCALE)
        menu = self.display.awaitMenu()
        line, entry = 8 * SCALE, (menu.height - 12 * SCALE) / 5  # pixels
        self.display.click(menu.left + 20 * SCALE, menu.top + 2 * entry + line + entry / 2)
        self.display.awaitWindow("Brightrank")
        self.end()


if __name__ == "__main__":
    unittest.main(verbosity=2)
