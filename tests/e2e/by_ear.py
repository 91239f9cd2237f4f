#!/usr/bin/env python3
"""An evening of somebody who does not see the screen and has no pointer: keys alone, and what an assistive tool hears and
reads. Options, log-on, a seek taken, a game to mate, a talk, the history, the game saved, read again and walked."""
import time
import unittest

from accessible import Ears
from evening import AFTER_GRAPH, CLIENT, LEARNT, MY_MOVE, Evening
from peers import Partner
from rig import QUIET, awaitLifting, nameFile, waitFor
from style12 import RELATION, START

WORDS = dict(zip("kqrbnp", ("king", "queen", "rook", "bishop", "knight", "pawn")))
SENTENCE = 0.05  # seconds in which what belongs together is heard


def wordsOf(rows):
    """What the squares of a position are called, from a8 to h1; as the server sends its rows."""
    return [f"{file}{8 - at}, " + ("empty" if code == "-" else
                                   f"{'white' if code.isupper() else 'black'} {WORDS[code.lower()]}")
            for at, row in enumerate(rows) for file, code in zip("abcdefgh", row)]


class ByEar(Evening):
    def setUp(self):
        super().setUp()
        self.ears = self.enterContext(Ears())

    # How the user finds his way

    def hears(self, key):
        """Presses a key, and gives the name of the thing that he then hears to be at."""
        self.ears.forget()
        with self.display.held(key):
            waitFor(self.ears.focus, lambda: f"something to be heard after {key}")
        time.sleep(SENTENCE)
        return self.ears.focus()

    def go(self, key, name, at=None):
        """Presses a key until he hears that he is at a thing whose name begins so, unless he is `at` it."""
        heard = [at or self.hears(key)]
        while not heard[-1].startswith(name):
            heard.append(self.hears(key))
            self.assertLess(len(heard), 60, f"{name!r} is not among {heard}")
        return heard[-1]

    def openMenu(self, letter):
        """A window that is just being activated may take its menu down again."""
        for _ in range(5):
            self.awaitQuiet()
            with self.display.held("alt"):
                self.display.keys(letter)
                time.sleep(QUIET)
            time.sleep(QUIET)
            if self.ears.focus() and self.ears.inside("popup menu"):
                return self.ears.focus()
        raise AssertionError(f"no menu at Alt+{letter}")

    def activate(self, title):
        """The program has taken the keyboard too when that is heard."""
        if self.display.activeTitle().startswith(title):
            return
        self.ears.forget()
        self.display.activate(title)
        waitFor(self.ears.focus, f"something to be heard of {title!r}")

    def awaitQuiet(self):
        """The windows have taken the keyboard from each other."""
        def quiet():
            self.ears.forget()
            time.sleep(2 * QUIET)
            return not self.ears.focus()

        waitFor(quiet, "an end of what is heard")

    def menu(self, letter, name):
        self.go("Down", name, self.openMenu(letter))
        self.hears("Return")

    def write(self, name, text):
        self.go("Tab", name)
        self.display.keys("ctrl+a")
        self.display.type(text)

    def tick(self, name):
        self.go("Tab", name)
        self.display.keys("space")

    # What he reads

    def table(self):
        return self.display.window(self.board()).one("table", "Chess board")

    def squares(self):
        return [cell.name for cell in self.table().children()]

    def reads(self, rows):
        """The squares on the board are those of a position of the server."""
        expected = wordsOf(rows)
        waitFor(lambda: self.squares() == expected,
                lambda: f"{sorted(set(expected) ^ set(self.squares()))} to be the same")

    # The evening

    def setOptions(self):
        self.menu("w", "Options")
        self.opened("Options")
        self.write("Handle", "Pupil")
        self.write("Password", "practice")
        self.write("IP Address", "127.0.0.1")
        self.write("Port", str(self.wire.port))
        self.hears("Return")
        self.awaitGone("Options")

    def logOn(self):
        for name in "Use TimeSeal", "Auto-Logon", "FICS":
            self.menu("c", name)
        self.awaitSent("Set Style 12")
        time.sleep(LEARNT)

    def takeSeek(self):
        self.partner = Partner(self.server.port)
        self.addCleanup(self.partner.end)
        self.partner.say("seek 10 0 unrated black")
        self.menu("w", "Seek Graph")
        self.opened("Seek Graph")
        waitFor(lambda: any(ad.name.startswith("Rookery") for ad in self.display.window("Seek Graph").all("list item")),
                "the ad among the seeks")
        self.assertIn("10 0", self.go("Right", "Rookery"))
        self.display.keys("Return")
        waitFor(self.mine, "the game")
        waitFor(lambda: self.board().startswith("Pupil"), lambda: f"a board of Pupil, not {self.board()!r}")
        self.display.awaitActive(self.board())

    def goTo(self, square):
        """From square to square of the board, by what is heard."""
        at = self.ears.focus()
        for key, steps in (("Left", ord(at[0]) - ord(square[0])), ("Down", int(at[1]) - int(square[1]))):
            for _ in range(abs(steps)):
                at = self.go(key if steps > 0 else {"Left": "Right", "Down": "Up"}[key], "")
        self.assertTrue(at.startswith(square), at)

    def byBoard(self, start, end):
        self.go("F6", "")
        self.goTo(start)
        self.display.keys("Return")
        waitFor(lambda: any(name.endswith("in hand") for name in self.squares()), "the piece in hand")
        self.goTo(end)
        self.display.keys("Return")

    def byTyping(self, move):
        self.display.type(move)
        self.display.keys("Return")

    def answered(self, move, spoken):
        """The partner's move is heard, wherever the keys are, and the board is the server's."""
        self.ears.forget()
        self.partner.say(move)
        waitFor(lambda: spoken in self.ears.descriptions(), lambda: f"{spoken!r} among {self.ears.descriptions()}")
        self.seen()

    def seen(self):
        """The server has taken the move, and what is read is its position."""
        told = waitFor(lambda: self.mine()[self.told:], "a position")[-1]
        self.told = len(self.mine())
        self.course.append(told[:8])
        self.reads(told[:8])
        side = "White" if told[8] == "W" else "Black"
        self.assertIn(f"{side} to move; White: king e1", self.table().description)

    def playToMate(self):
        self.assertEqual(self.mine()[-1][RELATION], MY_MOVE)
        self.course, self.told = [START], len(self.mine())
        self.reads(START)
        self.byTyping("e2e4")
        self.seen()
        self.answered("e7e5", "1.. e5")
        awaitLifting()
        self.byBoard("f1", "c4")
        self.seen()
        self.answered("b8c6", "2.. Nc6")
        self.byBoard("d1", "h5")
        self.seen()
        self.answered("g8f6", "3.. Nf6")
        for side in "White", "Black":
            clock = self.display.window(self.board()).one(name=f"{side}'s clock")
            self.assertRegex(clock.description, r"^ ?(10:00|9:\d\d)$")
        self.byTyping("Qxf7")
        self.awaitText(CLIENT, "Console", "Rookery checkmated")
        self.course.append(self.wire.positions()[-1][:8])
        self.reads(self.course[-1])
        self.assertTrue(self.table().description.startswith("4. Qxf7, checkmate; "))

    def talk(self):
        time.sleep(AFTER_GRAPH)  # it asks again now that the game is over
        self.partner.say("tell Pupil Well played")
        self.activate(CLIENT)
        self.awaitText(CLIENT, "Console", "Rookery tells you: Well played")
        self.menu("w", "Chat")
        self.opened("Chat Box")
        with self.display.held("Return"):  # the proposal
            self.opened("Chat with Rookery")
        self.byTyping("Thank you")
        self.partner.await_("Pupil tells you: Thank you")
        self.partner.say("tell Pupil Good night")
        self.awaitText("Chat", "Conversation", "Good night")
        self.display.closeByKey("Chat with Rookery")
        self.awaitGone("Chat")

    def save(self):
        self.activate(CLIENT)
        self.byTyping("history")
        games = self.opened("History for Pupil")
        waitFor(lambda: any("Rookery" in cell.name for cell in games.all()), "the game in the list")
        self.display.keys("shift+Tab", "Down", "shift+F10")
        self.go("Down", "Save PGN")
        with self.display.held("Return"):
            self.display.awaitActive("Save Game")
        self.path = self.folder / "evening.pgn"
        nameFile(self.display, self.path, lambda: self.display.activeTitle() != "Save Game")
        waitFor(lambda: self.path.exists() and "4. Qxf7" in self.path.read_text(), "the file")
        self.display.closeByKey("History for Pupil")
        self.awaitGone("History")

    def readAgain(self):
        self.activate(self.board())
        self.menu("f", "Read PGN")
        self.display.awaitActive("Open Game File")
        chooser = str(self.path)
        nameFile(self.display, self.path, lambda: self.display.windows(chooser))
        games = self.opened(chooser)
        waitFor(lambda: any(cell.name == "Rookery" for cell in games.all()), "the game in the list")
        with self.display.held("Return"):
            self.awaitGone(chooser)
            self.display.awaitActive(self.board())

    def walk(self):
        self.reads(START)
        self.go("Tab", "")
        while not self.ears.inside("table", "Moves"):
            self.go("Tab", "")
        for rows in self.course[1:]:
            self.display.keys("Right")
            self.reads(rows)
        for rows in self.course[-2::-1]:
            self.display.keys("Left")
            self.reads(rows)
        self.display.keys("End")
        self.reads(self.course[-1])
        self.display.keys("Home")
        self.reads(START)

    def testAnEveningWithoutScreenAndPointer(self):
        self.start()
        self.awaitQuiet()
        self.activate(CLIENT)
        self.setOptions()
        self.logOn()
        self.takeSeek()
        self.playToMate()
        self.talk()
        self.save()
        self.readAgain()
        self.walk()
        self.activate(CLIENT)
        self.go("Down", "Exit", self.openMenu("c"))
        with self.display.held("Return"):
            self.assertEqual(self.process.wait(30), 0)
        self.process = None


if __name__ == "__main__":
    unittest.main()
