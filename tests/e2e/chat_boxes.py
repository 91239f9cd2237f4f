#!/usr/bin/env python3
"""A talk in a chat box of the built program: opened for whoever has told something, and answered by typing."""
from game import QUIET, SCALE, PlayedByHand, time, unittest, waitFor
from rig import LOG_ON, Client, Display
from screen import Screen, letters
from scripted import ScriptedServer
from style12 import PROMPT

TELL = b"\x00\x00\xff"  # the default colour of tells, as the screen holds it


class Windows:
    """The console and the boxes on a display of the test's."""

    def look(self, window):
        return self.display.picture(window.left, window.top, window.width, window.height).data

    def upper(self, window):
        """The picture of its lines without the typing line, in which the caret blinks."""
        return self.display.picture(window.left, window.top, window.width, window.height * 3 // 4)

    def text(self, window):
        """Its lines as they look."""
        return self.upper(window).data

    def focusConsole(self):
        """Clicks its typing line, which stands at the lower left."""
        window = next(each for each in self.display.windows() if each.title.startswith("Brightrank - Client"))
        self.display.click(window.left + 120 * SCALE, window.top + window.height - 28 * SCALE)
        return window

    def openBox(self, title):
        """Shift+F9 asks for the buddy and proposes whoever or what channel has told something last."""
        self.focusConsole()
        self.display.keys("shift+F9")
        question = self.display.awaitDialog("Chat Box")
        self.display.keys("Return")
        self.display.awaitGone(question)
        box = self.display.awaitWindow(title)
        self.focusBox(box)
        return box

    def focusBox(self, box):
        """Clicks its typing line."""
        self.display.click(box.left + box.width // 2, box.top + box.height - 20 * SCALE)


class ChatBox(Windows, PlayedByHand):
    def openBoxFor(self, handle):
        return self.openBox(f"Chat with {handle}")

    def tell(self, text):
        self.partner.say(f"tell Pupil {text}")
        waitFor(lambda: f"Rookery tells you: {text}".encode() in self.wire.received, "the tell")
        time.sleep(QUIET)

    def testABoxOpenedByATellAnswersItsSender(self):
        self.logOn()
        self.tell("good evening")
        self.openBoxFor("Rookery")
        self.display.type("hello to you")
        self.awaitNothingMore()
        self.display.keys("Return")
        self.awaitSent("Tell Rookery hello to you")
        self.partner.await_("Pupil tells you: hello to you")

    def shiftF9OnTheBoard(self, screen):
        self.display.click(*screen.centre("h8"))
        self.display.awaitDialog("Brightrank - Board")
        self.display.keys("shift+F9")

    def testShiftF9OnABoardOpensTheBoxOfTheLatestTellerAndThenRaisesIt(self):
        self.logOn()
        self.tell("good evening")
        screen = Screen(self.display)
        waitFor(screen.find, "the board")
        self.shiftF9OnTheBoard(screen)
        question = self.display.awaitDialog("Chat Box")
        self.display.keys("Return")
        self.display.awaitGone(question)
        box = self.display.awaitWindow("Chat with Rookery")
        self.shiftF9OnTheBoard(screen)
        self.display.awaitFocus(box)
        self.assertEqual(self.display.windows("Chat Box"), [])
        self.assertEqual(len(self.display.windows("Chat with Rookery")), 1)
        self.awaitNothingMore()

    def testATellShowsInItsBoxAndNotInTheConsole(self):
        self.logOn()
        self.tell("good evening")
        box = self.openBoxFor("Rookery")
        console = self.focusConsole()
        time.sleep(QUIET)
        boxBefore, consoleBefore = self.look(box), self.text(console)
        self.tell("are you there?")
        waitFor(lambda: self.look(box) != boxBefore, "the tell in the box")
        self.awaitNothingMore()
        self.assertEqual(self.text(console), consoleBefore)

    def testAnotherUsersTellStaysInTheConsole(self):
        self.logOn()
        self.tell("good evening")
        box = self.openBoxFor("Rookery")
        console = self.focusConsole()
        time.sleep(QUIET)
        boxBefore, consoleBefore = self.look(box), self.text(console)
        self.wire.sayForUser("tell Pupil I am here myself")
        waitFor(lambda: self.text(console) != consoleBefore, "the tell in the console")
        self.awaitNothingMore()
        self.assertEqual(self.look(box), boxBefore)

    def testAWholeTellCommandTypedInTheBoxGoesOutAsItIs(self):
        self.logOn()
        self.tell("good evening")
        self.openBoxFor("Rookery")
        self.display.type("tell Rookery plainly")
        self.display.keys("Return")
        self.awaitSent("tell Rookery plainly")
        self.partner.await_("Pupil tells you: plainly")

    def testAnEmptyNameOpensNoBox(self):
        self.logOn()
        self.tell("good evening")
        self.focusConsole()
        self.display.keys("shift+F9")
        self.display.awaitDialog("Chat Box")
        self.display.keys("BackSpace", "Return")
        waitFor(lambda: not [each for each in self.display.windows() if each.title.startswith("Chat")],
                "the box to close")
        self.awaitNothingMore()

    def testAGameGoesOnBesideTheBox(self):
        self.begin()
        self.move("e2", "e4")
        self.tell("a pity")
        self.openBoxFor("Rookery")
        self.display.type("why?")
        self.answer("e7e5")
        self.display.keys("Return")
        self.awaitSent("e2-e4", "Tell Rookery why?")
        self.partner.await_("Pupil tells you: why?")
        self.move("g1", "f3")
        self.awaitSent("e2-e4", "Tell Rookery why?", "g1-f3")


class LinesOfTheServer(Windows, unittest.TestCase):
    """The server's lines come one by one, as the test gives them."""

    @classmethod
    def setUpClass(cls):
        cls.display = cls.enterClassContext(Display())

    def setUp(self):
        self.server = ScriptedServer()
        self.addCleanup(self.server.end)
        self.client = Client(self.display, self.server.port)
        self.expected = ""
        self.addCleanup(self.endClient)
        self.server.logOn()
        time.sleep(QUIET)

    def endClient(self):
        self.client.end()
        self.assertEqual(self.server.whole(), LOG_ON + self.expected)

    def beginWithABox(self, tell, title):
        """That tell has opened a box, and the keys are with the console again."""
        self.console = self.focusConsole()
        before = self.text(self.console)
        self.server.say(f"\n\r{tell}{PROMPT}")
        waitFor(lambda: self.text(self.console) != before, f"{tell!r} in the console")
        self.box = self.openBox(title)
        self.focusConsole()
        time.sleep(QUIET)

    def awaitIn(self, changing, still, *lines):
        """The server's lines, which come at once, change the look of one window and not the tells in the other."""
        before = [self.text(changing), self.tells(still)]
        self.server.say("".join(f"\n\r{line}" for line in lines) + PROMPT)
        waitFor(lambda: self.text(changing) != before[0], f"{lines} in {changing.title!r}")
        time.sleep(QUIET)
        self.assertEqual(self.tells(still), before[1])

    def tells(self, window):
        """The rows of pixels in which letters of a tell stand."""
        picture = self.upper(window)
        return {y: picture.row(y) for y in range(picture.height) if letters(picture.row(y), TELL)}

    def testAChannelHasABox(self):
        self.beginWithABox("Rookery(50): good evening", "Chat on 50")
        self.awaitIn(self.box, self.console, "Rookery(50): are you there?")
        self.focusBox(self.box)
        self.display.type("here")
        self.display.keys("Return")
        self.server.awaitLine("Tell 50 here")
        self.expected = "Tell 50 here\n"

    def testAnotherChannelStaysInTheConsole(self):
        self.beginWithABox("Rookery(50): good evening", "Chat on 50")
        self.awaitIn(self.console, self.box, "Rookery(51): are you there?")

    def testTheRestOfATellGoesToItsBox(self):
        self.beginWithABox("Rookery tells you: good evening", "Chat with Rookery")
        tell, lowest = "Rookery tells you: one", []
        for lines in ([tell], [tell], [tell, "\\   one"]):
            self.awaitIn(self.box, self.console, *lines)
            lowest.append(max(self.tells(self.box)))
        self.assertEqual(lowest[2] - lowest[1], 2 * (lowest[1] - lowest[0]))

    def testTheRestThatComesLaterStaysInTheConsole(self):
        self.beginWithABox("Rookery tells you: good evening", "Chat with Rookery")
        self.awaitIn(self.box, self.console, "Rookery tells you: a long story")
        self.awaitIn(self.console, self.box, "\\   and its end")

    def testTheNextTellBehindAClosedBoxGoesToTheConsole(self):
        self.beginWithABox("Rookery tells you: good evening", "Chat with Rookery")
        self.display.closeWindow(self.box)
        self.display.awaitGone(self.box)
        before = self.text(self.console)
        self.server.say("\n\rRookery tells you: a long story\n\r\\   and its end" + PROMPT)
        waitFor(lambda: self.text(self.console) != before, "the tell in the console")
        self.assertEqual(self.display.windows("Chat with Rookery"), [])


if __name__ == "__main__":
    unittest.main(verbosity=2)
