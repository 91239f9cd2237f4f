#!/usr/bin/env python3
"""A talk in a chat box of the built program: opened for whoever has told something, and answered by typing."""
from game import QUIET, SCALE, PlayedByHand, time, unittest, waitFor


class Windows:
    """The console and the boxes on a display of the test's."""

    def look(self, window):
        return self.display.picture(window.left, window.top, window.width, window.height).data

    def text(self, window):
        """The console's lines as they look; the caret below them blinks."""
        return self.display.picture(window.left, window.top, window.width, window.height * 3 // 4).data

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


if __name__ == "__main__":
    unittest.main(verbosity=2)
