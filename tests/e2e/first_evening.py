#!/usr/bin/env python3
"""A user's first evening with the built program, from a machine without settings to the second start: by keyboard and
through the accessibility tree, against the practice server."""
import re
import time
import unittest

from evening import AFTER_GRAPH, CLIENT, LEARNT, MY_MOVE, Evening
from peers import Partner
from rig import nameFile, waitFor
from style12 import RELATION

PLACES = {"Seek Graph": (420, 60), "Help Panel": (60, 240), "History": (300, 330)}


class FirstEvening(Evening):
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

    def chat(self):
        partner = Partner(self.server.port)
        self.addCleanup(partner.end)
        partner.say("tell Pupil Good evening")
        self.awaitText(CLIENT, "Console", "Rookery tells you: Good evening")
        self.choose("Windows", "Chat")
        self.opened("Chat Box")
        with self.display.held("Return"):  # the proposal
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
        self.display.keys("Down", "Down", "Down", "Down")
        with self.display.held("Return"):
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
