#!/usr/bin/env python3
"""A user's first evening with the built program, from a machine without settings to the second start: by keyboard and
through the accessibility tree, against the practice server."""
import pathlib
import re
import shutil
import subprocess
import tempfile
import time
import unittest

from accessible import AccessibleDisplay, menusOf
from peers import Partner, PracticeServer, Wire
from rig import BUILD, QUIET, endProcess, nameFile, waitFor
from style12 import RELATION

CLIENT = "Brightrank - Client"
LEARNT = 1.3  # seconds of silence, behind which the program knows the server's prompt
AFTER_GRAPH = 2.2  # seconds from its first tick to its second, in which the console shows nothing
MINE, MY_MOVE = ("-1", "1"), "1"  # relations of a game to its player
PLACES = {"Seek Graph": (420, 60), "Help Panel": (60, 240), "History": (300, 330)}


class FirstEvening(unittest.TestCase):
    def setUp(self):
        self.display = self.enterContext(AccessibleDisplay())
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="brightrank-e2e-"))
        self.addCleanup(shutil.rmtree, self.folder, ignore_errors=True)
        self.server = PracticeServer()
        self.addCleanup(self.server.end)
        self.listen()
        self.process = None
        self.addCleanup(lambda: self.process and endProcess(self.process))

    def listen(self, port=0):
        self.wire = Wire(self.server.port, port)
        self.addCleanup(self.wire.end)

    # The program

    def start(self):
        surroundings = self.display.environment() | {"XDG_CONFIG_HOME": str(self.folder / "config")}
        self.process = subprocess.Popen([str(BUILD / "brightrank")], cwd=self.folder, env=surroundings)
        self.display.number("Brightrank - Board")

    def quit(self):
        self.choose("Connect", "Exit")
        self.assertEqual(self.process.wait(30), 0)
        self.process = None

    # What a user does and sees

    def entry(self, menu, name, title=CLIENT):
        return next(entry for above, entry in menusOf(self.display.window(title)) if (above, entry.name) == (menu, name))

    def choose(self, *entry):
        self.entry(*entry).press()

    def opened(self, title):
        self.display.awaitActive(title)
        return self.display.window(title)

    def awaitGone(self, title):
        waitFor(lambda: not self.display.windows(title), f"the end of {title!r}")

    def typeIn(self, title, line):
        self.display.activate(title)
        self.display.type(line)
        self.display.keys("Return")

    def awaitText(self, title, name, pattern):
        text = self.display.window(title).one("text", name)
        waitFor(lambda: re.search(pattern, text.text()), lambda: f"{pattern!r} in {text.text()[-400:]!r}")

    def awaitSent(self, line):
        waitFor(lambda: line + "\n" in self.wire.text(), lambda: f"{line!r} in {self.wire.text()!r}")

    def mine(self):
        """The positions of the own games."""
        return [fields for fields in self.wire.positions() if fields[RELATION] in MINE]

    # The evening

    def account(self):
        return {"Handle": "Pupil", "IP Address": "127.0.0.1", "Port": str(self.wire.port), "Button command 2": "who"}

    def setOptions(self):
        self.choose("Windows", "Options")
        options = self.opened("Options")
        for field, text in self.account().items():
            options.one("text", field).write(text)
        options.one("password text", "Password").write("practice")
        options.one("page tab", "Games").press()
        for box in "Pre-Move", "Confirm Resign / Draw", "Seek Off During Games":
            options.one("check box", box).press()
        options.one("push button", "OK").press()
        self.awaitGone("Options")

    def logOn(self):
        self.choose("Connect", "Use TimeSeal")
        self.choose("Connect", "Auto-Logon")
        self.choose("Connect", "FICS")
        self.awaitSent("Set Style 12")
        time.sleep(LEARNT)

    def playFromTheGraph(self):
        self.choose("Windows", "Seek Graph")
        waitFor(lambda: re.search(r"\([1-9]\d* Ads\)", self.display.window("Seek Graph").name), "the ads")
        time.sleep(AFTER_GRAPH)
        self.display.put("Seek Graph", *PLACES["Seek Graph"])
        self.display.activate("Seek Graph")
        self.display.keys("Home", "Return")
        waitFor(lambda: self.mine() and self.mine()[-1][RELATION] == MY_MOVE, "the own move")
        before = len(self.mine())
        self.typeIn(self.board(), "e7e5" if self.mine()[-1][8] == "B" else "e2e4")
        waitFor(lambda: len(self.mine()) > before + 1, "the answer")

    def board(self):
        """Its title, which says who plays."""
        return self.titles()[1]

    def titles(self):
        return [window.name for window in self.display.windows()]

    def chat(self):
        partner = Partner(self.server.port)
        self.addCleanup(partner.end)
        partner.say("tell Pupil Good evening")
        self.awaitText(CLIENT, "Console", "Rookery tells you: Good evening")
        self.choose("Windows", "Chat")
        self.opened("Chat Box")
        self.display.keys("Return")  # the proposal
        self.opened("Chat with Rookery")
        self.typeIn("Chat with Rookery", "And to you")
        partner.await_("Pupil tells you: And to you")
        partner.say("tell Pupil Well played")
        self.awaitText("Chat", "Conversation", "Well played")

    def resign(self):
        self.choose("Actions", "Resign", self.board())
        self.awaitText(CLIENT, "Console", "Pupil resigns")

    def saveFromHistory(self):
        self.typeIn(CLIENT, "history")
        games = self.opened("History for Pupil")
        waitFor(lambda: any("Sprout" in cell.name for cell in games.all()), "the game in the list")
        self.display.put("History for Pupil", *PLACES["History"])
        self.display.keys("shift+Tab", "Down", "shift+F10")
        self.display.awaitMenu()
        self.display.keys("Down", "Down", "Down", "Down", "Return")
        self.display.awaitActive("Save Game")
        path = self.folder / "evening.pgn"
        nameFile(self.display, path, lambda: self.display.activeTitle() != "Save Game")
        waitFor(lambda: path.exists() and "1. Nc3 e5" in path.read_text(), "the file")

    def readHelp(self):
        self.typeIn(CLIENT, "help manual")
        self.display.awaitActive("Help Panel")
        self.awaitText("Help Panel", "Help page", "^All commands\n(.*\n){300}")
        self.display.put("Help Panel", *PLACES["Help Panel"])

    def changeVariables(self):
        self.choose("Windows", "Variables")
        panel = self.opened("Variables")
        waitFor(lambda: panel.one("check box", "Shout").has("checked"), "the answer")
        panel.one("check box", "Shout").press()
        panel.one("push button", "OK").press()
        self.awaitSent("Set Shout")
        self.awaitGone("Variables")

    def areas(self):
        """Where the windows stand whose places are kept."""
        return {title: self.display.settled(title) for title in (CLIENT, *PLACES)}

    def startAgain(self, before):
        self.start()
        self.choose("Connect", "FICS")
        self.awaitSent("Set Style 12")
        time.sleep(LEARNT)
        self.opened("Seek Graph")
        self.choose("Windows", "History")
        self.opened("History")
        self.choose("Help", "FICS Help Panel")
        self.opened("Help Panel")
        self.assertEqual(self.areas(), before)

    def seeOptions(self):
        self.choose("Windows", "Options")
        options = self.opened("Options")
        self.assertEqual({field: options.one("text", field).text() for field in self.account()}, self.account())
        boxes = [options.one("check box", box).has("checked")
                 for box in ("Pre-Move", "Confirm Resign / Draw", "Seek Off During Games", "Drag Mode")]
        self.assertEqual(boxes, [True, False, False, True])
        options.one("push button", "Cancel").press()
        self.awaitGone("Options")

    def seeVariables(self):
        self.choose("Windows", "Variables")
        panel = self.opened("Variables")
        waitFor(lambda: panel.one("check box", "Tell").has("checked"), "the answer")
        self.assertFalse(panel.one("check box", "Shout").has("checked"))

    def testAllIsAsItWasLeft(self):
        self.start()
        self.setOptions()
        self.logOn()
        self.playFromTheGraph()
        self.chat()
        self.resign()
        self.saveFromHistory()
        self.readHelp()
        self.changeVariables()
        before = self.areas()
        self.quit()
        port = self.wire.port
        self.wire.end()
        self.listen(port)
        self.startAgain(before)
        ticks = [self.entry("Connect", name).has("checked") for name in ("Use TimeSeal", "Auto-Logon", "Auto-Connect")]
        self.assertEqual([*ticks, self.entry("Windows", "Seek Graph").has("checked")], [False, True, False, True])
        self.seeOptions()
        self.seeVariables()
        self.quit()


if __name__ == "__main__":
    unittest.main()
