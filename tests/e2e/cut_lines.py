#!/usr/bin/env python3
"""The line is cut in the midst of what a server says, and the program goes on to another server; a line that nobody cuts
and that nothing passes any more. By keyboard and through the accessibility tree."""
import os
import pathlib
import re
import time
import unittest

from accessible import AccessibleDisplay, menusOf
from peers import Partner, PracticeServer
from proxy import Proxy
from rig import LIMIT, LOG_ON, QUIET, Client, awaitStill, waitFor
from style12 import PROMPT

CLIENT, BOARD = "Brightrank - Client", "Brightrank - Board"
CLOSED = CLIENT + "     Closed"
LEARNT = 1.3  # seconds of silence, behind which the program knows the server's prompt
HELD = 3  # seconds after which text without a prompt is shown
CAPTURES = 5  # seconds after which an answer is no longer waited for
WATCHED = 60  # seconds after which the system gives a silent line up
WHOLE_MINUTE = "BRIGHTRANK_WHOLE_MINUTE" in os.environ


def timersOf(port):
    """Of the program's connection to that port: the kernel's timer, 2 for the one that looks whether the other end is
    there, and in how many seconds it is due."""
    for line in pathlib.Path("/proc/net/tcp").read_text().splitlines()[1:]:
        fields = line.split()
        if int(fields[2].split(":")[1], 16) == port and fields[3] == "01":
            timer, due = (int(number, 16) for number in fields[5].split(":"))
            return timer, due / os.sysconf("SC_CLK_TCK")
    return None


def linesOf(delivered):
    """Of what the program was given, without prompts and what is as short as one."""
    text = re.sub(rb"\xff[\xfb-\xfe].", b"", delivered).decode("latin-1").replace(PROMPT.strip() + " ", "")
    return [line for line in re.split(r"[\r\n]+", text) if len(line) > 16]


class OverAProxy(unittest.TestCase):
    """The program, logged on over a line with these faults."""

    def begin(self, serverPort, **faults):
        self.line = Proxy(serverPort, **faults)
        self.addCleanup(self.line.end)
        self.client = Client(self.display, self.line.port)
        self.addCleanup(self.client.end)
        self.awaitLogOn()

    def awaitLogOn(self):
        waitFor(lambda: self.line.text() == LOG_ON, lambda: f"the log-on and not {self.line.text()!r}")
        waitFor(lambda: b"tyle 12 set" in self.line.received, "the answer")
        time.sleep(LEARNT)
        waitFor(self.promptShows, "the prompt to be learnt")

    # What a user does and sees

    def promptShows(self):
        return any(label.name.strip() in (PROMPT.strip(), "***") for label in self.display.window(CLIENT).all("label"))

    def choose(self, menu, name):
        next(entry for above, entry in menusOf(self.display.window(CLIENT)) if (above, entry.name) == (menu, name)).press()

    def typeIn(self, line):
        self.display.activate(CLIENT)
        self.display.type(line)
        self.display.keys("Return")

    def console(self):
        return self.display.window(CLIENT).one("text", "Console").text()


class Answers(OverAProxy):
    """Panels show over a bad line what they show over a good one."""
    PANELS = ("History for Rookery", "Help Panel", "Variables", "Seek Graph", "Rookery")  # the last is a game to review

    @classmethod
    def setUpClass(cls):
        cls.display = cls.enterClassContext(AccessibleDisplay())
        cls.server = PracticeServer()
        cls.addClassCleanup(cls.server.end)
        white, black = Partner(cls.server.port), Partner(cls.server.port, "Tester")
        white.say("match Tester 10 0 u white")
        black.await_("Challenge")
        black.say("accept")
        for player in white, black:
            player.await_("<12> ")
        for mover, other, move, pretty in ((white, black, "e2e4", "e4"), (black, white, "e7e5", "e5"),
                                           (white, black, "g1f3", "Nf3")):
            mover.say(move)
            other.await_(f"[)] {pretty} ")
        black.say("resign")
        white.await_("Tester resigns")
        white.end()
        black.end()

    def texts(self, title):
        """All that an assistive tool finds in the window."""
        window = self.display.window(title)
        return [(node.role, node.name, node.has("checked"), node.text() if node.role == "text" else "")
                for node in window.all()]

    def settled(self, title):
        return awaitStill(lambda: self.texts(title), repr(title))

    def shownOver(self, **faults):
        self.begin(self.server.port, **faults)
        self.line.sayForUser("set seek 1")  # the graph of an earlier program has unset it
        waitFor(lambda: b"seek ads." in self.line.received, "the answer")
        time.sleep(2 * QUIET)
        self.typeIn("history Rookery")
        self.display.awaitActive("History for Rookery")
        games = self.display.window("History for Rookery")
        waitFor(lambda: any("Tester" in cell.name for cell in games.all()),
                "the game in the list")
        self.display.keys("shift+Tab", "Home", "Return")
        waitFor(lambda: self.display.windows("Rookery"), "the board with the game")
        self.typeIn("help seek")
        self.display.awaitActive("Help Panel")
        page = self.display.window("Help Panel").one("text", "Help page")
        waitFor(lambda: len(page.text()) > 200, "the page")
        self.choose("Windows", "Variables")
        self.display.awaitActive("Variables")
        panel = self.display.window("Variables")
        waitFor(lambda: panel.one("check box", "Shout").has("checked"), "the variables")
        self.choose("Windows", "Seek Graph")
        waitFor(lambda: re.search(r"\([1-9]\d* Ads\)", self.display.window("Seek Graph").name), "the ads")
        found = {title: self.settled(title) for title in self.PANELS}
        self.doCleanups()
        return found

    def testComeOutAsOverAGoodLine(self):
        good = self.shownOver()
        for title, texts in good.items():
            self.assertGreater(len(texts), 5, title)
        bad = self.shownOver(piece=1, delay=0.3, jitter=0.2)
        for title, texts in good.items():
            self.assertEqual(bad[title], texts, title)


class CutLines(OverAProxy):
    def setUp(self):
        self.display = self.enterContext(AccessibleDisplay())
        self.servers = [PracticeServer(), PracticeServer()]
        for server in self.servers:
            self.addCleanup(server.end)
        self.begin(self.servers[0].port)

    def partner(self):
        partner = Partner(self.servers[0].port if not self.line.before else self.servers[1].port)
        self.addCleanup(partner.end)
        return partner

    def startGame(self):
        """With the user's side to move; gives his partner."""
        partner, before = self.partner(), len(self.line.positions())
        partner.say("match Pupil 10 0 u black")
        partner.await_("Issuing")
        self.line.sayForUser("accept")
        waitFor(lambda: len(self.line.positions()) > before, "the first position")
        waitFor(lambda: "moves " in self.line.text(), "the question for its moves")
        waitFor(self.playing, "the board")
        time.sleep(QUIET)
        return partner

    def playing(self):
        """A board says who plays."""
        return [window for window in self.display.windows() if "Rookery" in window.name]

    def awaitInConsole(self, text, seconds=LIMIT):
        waitFor(lambda: text in self.console(), lambda: f"{text!r} in {self.console()[-600:]!r}", seconds)

    # What has to be behind a cut

    def awaitClosed(self):
        """The caption says so, and no box asks for anything."""
        self.line.awaitCut()
        waitFor(lambda: self.display.windows(CLOSED), lambda: f"{CLOSED!r} and not {[w.name for w in self.display.windows()]}")
        self.assertEqual([window.name for window in self.display.windows() if window.name == "Brightrank"], [])

    def assertNothingLost(self):
        """All that has come is in the console, in order."""
        place, text = 0, self.console()
        for line in linesOf(self.line.received):
            found = text.find(line, place)
            self.assertGreaterEqual(found, 0, f"{line!r} in {text[place:]!r}")
            place = found + len(line)

    def goOnElsewhere(self):
        """Another server, to which the program logs on as to the first one, and where it plays."""
        self.line.leadTo(self.servers[1].port)
        before = len(self.console())
        self.choose("Connect", "FICS")
        waitFor(lambda: self.line.before, "the connection")
        self.awaitLogOn()
        text = self.console()[before:]
        for line in linesOf(self.line.received):
            self.assertIn(line, text)
        partner = self.startGame()
        self.typeIn("e2e4")
        partner.await_("<12> .* P/e2-e4 ")
        partner.say("e7e5")
        waitFor(lambda: "P/e7-e5" in str(self.line.positions()[-1]), "the answer")
        partner.say("tell Pupil Welcome back")
        self.awaitInConsole("Rookery tells you: Welcome back")
        self.assertEqual(self.line.text().count("Set Style 12"), 1)

    def testInTheMiddleOfALineItsFrontIsShown(self):
        self.line.cutBehind(b"Rookery tells you: The line will br")
        self.partner().say("tell Pupil The line will break here")
        self.awaitClosed()
        self.awaitInConsole("Rookery tells you: The line will br", HELD + 5)
        self.assertNothingLost()
        self.goOnElsewhere()

    def testInTheMiddleOfARecordTheGameEnds(self):
        self.choose("Console", "Verbose Mode")  # records too
        self.startGame()
        self.line.cutBehind(b"<12> rnbqkbnr pppppppp -------- -------- ----P")
        self.typeIn("e2e4")
        self.awaitClosed()
        waitFor(lambda: not self.playing(), "the game's end")
        self.awaitInConsole("<12> rnbqkbnr pppppppp -------- -------- ----P", HELD + 5)
        self.assertNothingLost()
        self.goOnElsewhere()

    def testInTheMiddleOfAnAnswerThePanelGivesUp(self):
        self.line.cutBehind(b"Variable settings of Pupil")
        self.choose("Windows", "Variables")
        waitFor(lambda: "Vars\n" in self.line.text(), "the question")
        self.awaitClosed()
        time.sleep(CAPTURES)
        self.goOnElsewhere()

    def testASilentLineIsWatchedByTheSystem(self):
        timer, due = waitFor(lambda: timersOf(self.line.port), "the connection")
        self.assertEqual(timer, 2)
        self.assertLessEqual(due, 30)

    @unittest.skipUnless(WHOLE_MINUTE, "takes a minute and more")
    def testALineThatSwallowsEverythingIsGivenUpAndAnotherCanBeHad(self):
        for said in None, "who":
            with self.subTest(said=said):
                begun = time.monotonic()
                self.line.goDeaf()
                if said:
                    self.typeIn(said)
                waitFor(lambda: self.display.activeTitle() == "Brightrank", "the box", 2 * WATCHED)
                print(f"{said}: {time.monotonic() - begun:.1f} s", flush=True)
                with self.display.held("Return"):
                    waitFor(lambda: self.display.activeTitle() != "Brightrank", "the box to go")
                waitFor(lambda: self.display.windows(CLOSED), CLOSED)
                self.assertNothingLost()
                self.choose("Connect", "FICS")
                self.awaitLogOn()


if __name__ == "__main__":
    unittest.main(verbosity=2)
