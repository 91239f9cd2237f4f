#!/usr/bin/env python3
"""Every entry of every menu of the program, as the accessibility tree has them: none that cannot be chosen without a
reason, and what each of the others does. No pointer and no pictures."""
import pathlib
import time
import unittest

from accessible import AccessibleDisplay, menusOf
from rig import QUIET, waitFor
from scripted import ScriptedCase, ScriptedServer
from style12 import PROMPT

CLIENT, BOARD = "Brightrank - Client", "Brightrank - Board"

# What cannot be chosen while console and board stand and nothing is played, and why.
REASONS = {
    (CLIENT, "Connect", "BCC"): "is not shown",
    (CLIENT, "Connect", "TimeSeal"): "no such server",
    (CLIENT, "Connect", "ICC"): "no such server",
    (CLIENT, "Windows", "Board"): "a board is open",
    (BOARD, "File", "Store PGN"): "no game to store",
    (BOARD, "Actions", "Self Check"): "is not shown",
}
TICKS = [("Connect", "Use TimeSeal"), ("Connect", "Auto-Connect"), ("Connect", "Auto-Logon"), ("Console", "Block Mode"),
         ("Console", "Verbose Mode"), ("Console", "Tall Title Bars")]
PIECE_SETS = ["Bookup", "Quorl", "GNU"]
# Entries that show a window: the title, and what goes out meanwhile.
CONSOLE_WINDOWS = {
    ("Windows", "Seek Graph"): ("Seek Graph", ["Set Seek 0"]),
    ("Windows", "Match"): ("Match", []),
    ("Windows", "Chat"): ("Chat Box", []),
    ("Windows", "History"): ("History", []),
    ("Windows", "Variables"): ("Variables", ["Vars"]),
    ("Windows", "Notes"): ("Variables", ["Fi"]),
    ("Windows", "Options"): ("Options", []),
    ("Connect", "Other"): ("", []),
    ("Help", "Brightrank Help"): ("Brightrank Help", []),
    ("Help", "FICS Help Panel"): ("Help Panel", []),
    ("Help", "About"): ("Brightrank", []),
}
BOARD_WINDOWS = {
    ("File", "Read PGN"): ("Open Game File", []),
    ("Board", "Colors"): ("Board Colors", []),
    ("Actions", "Seek"): ("Seek", []),
    ("Actions", "Match"): ("Match", []),
    ("Actions", "Draw"): ("Brightrank", []),
    ("Actions", "Resign"): ("Brightrank", []),
    ("Actions", "Eval Player"): ("Evaluate Player", []),
    ("Interface", "Seek Graph"): ("Seek Graph", ["Set Seek 0"]),
    ("Interface", "Variables"): ("Variables", ["Vars"]),
    ("Interface", "Notes"): ("Variables", ["Fi"]),
    ("Interface", "Options"): ("Options", []),
    ("Help", "Brightrank Help"): ("Brightrank Help", []),
    ("Help", "FICS Help Panel"): ("Help Panel", []),
    ("Help", "About"): ("Brightrank", []),
}
ROLES = {"frame", "dialog", "alert"}  # those of windows; anything else is taken for a part of one
ANSWERS = {"sought": "0 ads displayed.", "Vars": "Prompt: fics% ", "Fi": "", "Set Seek 0": ""}
# Each of these has a test of its own below.
CONSOLE_OTHERS = [("Connect", "FICS"), ("Connect", "Close Connection"), ("Connect", "Exit"), ("Console", "Clear Screen"),
                  ("Windows", "Board"), ("Help", "Resgistry Dump")]
BOARD_OTHERS = [("File", "New Game"), ("File", "Exit"), ("Board", "Flip"), ("Board", "Clean"), ("Help", "Exit")]


class MenuServer(ScriptedServer):
    """Answers what a panel asks at once; how often the seek graph asks is not counted."""

    def hear(self, moment, line):
        if line in ANSWERS:
            self.say(f"{ANSWERS[line]}\n\r{PROMPT.lstrip()}")
        if line != "sought":
            super().hear(moment, line)


class EveryMenu(ScriptedCase):
    Server = MenuServer

    def setUp(self):
        self.logOn(self.enterContext(AccessibleDisplay()))

    def entry(self, title, menu, name):
        return next(entry for above, entry in menusOf(self.display.window(title))
                    if (above, entry.name) == (menu, name))

    def choose(self, title, menu, name):
        self.entry(title, menu, name).press()

    def titles(self):
        return [window.name for window in self.display.windows()]

    def sent(self, lines):
        """These and no others go out, in any order."""
        found = sorted(self.server.lines.get(timeout=30)[1] for _ in lines)
        self.assertEqual(found, sorted(lines))

    def closeAllBut(self, titles):
        """A window that opened another one closes behind that."""
        while others := [title for title in self.titles() if title not in titles]:
            self.display.closeByKey(others[-1])
            waitFor(lambda: others[-1] not in self.titles(), lambda: f"{others[-1]!r} not to be among {self.titles()}")

    def disabled(self):
        return {(window.name.split("     ")[0], menu, entry.name) for window in self.display.windows()
                for menu, entry in menusOf(window) if not entry.has("enabled")}

    def opens(self, title, entries):
        standing = self.titles()
        for (menu, name), (opened, lines) in entries.items():
            with self.subTest(menu=menu, entry=name):
                self.choose(title, menu, name)
                waitFor(lambda: [each for each in self.titles() if each not in standing and each.startswith(opened)],
                        lambda: f"{opened!r} among {self.titles()}")
                self.sent(lines)
                self.assertLessEqual({window.role for window in self.display.windows()}, ROLES)
                self.closeAllBut(standing)

    def testNothingIsDisabledWithoutAReason(self):
        self.assertEqual(self.disabled(), set(REASONS))

    def testEveryEntryOfTheConsoleIsInOneOfTheLists(self):
        named = [(menu, entry.name) for menu, entry in menusOf(self.display.window(CLIENT)) if entry.has("enabled")]
        self.assertEqual(sorted([*named, ("Windows", "Board")]), sorted([*TICKS, *CONSOLE_WINDOWS, *CONSOLE_OTHERS]))

    def testEveryEntryOfABoardIsInOneOfTheLists(self):
        named = [(menu, entry.name) for menu, entry in menusOf(self.display.window(BOARD)) if entry.has("enabled")]
        sets = [("Board", name) for name in PIECE_SETS]
        self.assertEqual(sorted(named), sorted([*sets, *BOARD_WINDOWS, *BOARD_OTHERS]))

    def testTheEntriesOfTheConsoleThatShowAWindow(self):
        self.opens(CLIENT, CONSOLE_WINDOWS)

    def testTheEntriesOfABoardThatShowAWindow(self):
        self.opens(BOARD, BOARD_WINDOWS)

    def testTicksTurnAtEachChoice(self):
        for menu, name in TICKS:
            with self.subTest(entry=name):
                before = self.entry(CLIENT, menu, name).has("checked")
                for expected in not before, before:
                    self.choose(CLIENT, menu, name)
                    waitFor(lambda: self.entry(CLIENT, menu, name).has("checked") == expected, f"the tick of {name}")

    def testOnePieceSetIsTicked(self):
        for name in PIECE_SETS:
            self.choose(BOARD, "Board", name)
            waitFor(lambda: self.entry(BOARD, "Board", name).has("checked"), f"the tick of {name}")
            ticked = [each for each in PIECE_SETS if self.entry(BOARD, "Board", each).has("checked")]
            self.assertEqual(ticked, [name])

    def testClearScreenEmptiesTheConsole(self):
        console = self.display.window(CLIENT).one("text", "Console")
        self.assertIn("Style 12 set.", console.text())
        self.choose(CLIENT, "Console", "Clear Screen")
        waitFor(lambda: console.text() == "", "an empty console")

    def testCloseConnectionEndsItAndFicsBeginsItAnew(self):
        self.choose(CLIENT, "Connect", "Close Connection")
        waitFor(lambda: "Connected" not in self.titles()[0], lambda: f"its end, not {self.titles()}")
        self.choose(CLIENT, "Connect", "FICS")
        waitFor(lambda: "Connected" in self.titles()[0], lambda: f"a connection, not {self.titles()}")

    def testExitEndsTheProgram(self):
        self.choose(CLIENT, "Connect", "Exit")
        self.assertEqual(self.client.process.wait(30), 0)

    def testEitherExitOfABoardClosesItAndBoardOpensAnother(self):
        for menu in "File", "Help":
            self.choose(BOARD, menu, "Exit")
            waitFor(lambda: len(self.titles()) == 1, "the board to close")
            self.choose(CLIENT, "Windows", "Board")
            self.display.window(BOARD)

    def testTheDumpOfTheSettingsIsAFile(self):
        self.choose(CLIENT, "Help", "Resgistry Dump")
        waitFor(pathlib.Path(self.client.folder, "regdump.txt").exists, "the file")

    def testFlipTurnsTheBoardAndCleanKeepsIt(self):
        left, top, width, height = self.display.areaOf(BOARD)

        def picture():
            time.sleep(QUIET)
            return self.display.picture(left, top, width, height).data

        before = picture()
        self.choose(BOARD, "Board", "Flip")
        flipped = picture()
        self.assertNotEqual(flipped, before)
        self.choose(BOARD, "Board", "Clean")
        self.assertEqual(picture(), flipped)
        self.choose(BOARD, "Board", "Flip")
        self.assertEqual(picture(), before)

    def testNewGameTakesTheTitleAway(self):
        self.choose(BOARD, "File", "New Game")
        self.display.window("New Board")
        self.assertNotIn(BOARD, self.titles())


if __name__ == "__main__":
    unittest.main()
