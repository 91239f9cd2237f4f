#!/usr/bin/env python3
"""Commands that are given with buttons, menus and dialogs of the built program, to their exact bytes."""
from dialogs import Dialog
from game import QUIET, SCALE, PlayedByHand, time, unittest, waitFor
from screen import Screen

BUTTON_ROW = 10  # pixels from the board's lower edge up to the middle of the buttons
RESIGN, DRAW = 30, 75  # pixels from the window's right edge


class DrawAndResign(PlayedByHand):
    def press(self, button):
        """One of the buttons at the lower right, whose row ends where the board ends."""
        window = self.board()
        self.display.click(window.left + window.width - button * SCALE,
                           self.screen.top + 8 * self.screen.side - BUTTON_ROW * SCALE)

    def answerQuestion(self, key):
        Dialog.find(self.display, "Brightrank").answer(key)

    def testADrawIsOfferedByItsButton(self):
        self.begin(Confirm_Resign=0)
        self.play("e2e4", "e7e5")
        self.press(DRAW)
        self.awaitSent("e2-e4", "Draw")
        self.partner.await_("Pupil offers you a draw")
        self.partner.say("accept")
        self.partner.await_("drawn by mutual agreement")

    def testADrawIsOfferedWhenTheQuestionIsAnsweredWithYes(self):
        self.begin()
        self.press(DRAW)
        self.display.awaitWindow("Brightrank")
        self.awaitNothingMore()
        self.answerQuestion("alt+y")
        self.awaitSent("Draw")
        self.partner.await_("Pupil offers you a draw")

    def testNothingIsSentWhenTheQuestionIsAnsweredWithNo(self):
        self.begin()
        for button in (DRAW, RESIGN):
            self.press(button)
            self.answerQuestion("alt+n")
            self.awaitNothingMore()
        self.move("e2", "e4")
        self.awaitSent("e2-e4")

    def testTheUserResignsWhenTheQuestionIsAnsweredWithYes(self):
        self.begin()
        self.move("e2", "e4")
        self.press(RESIGN)
        self.display.awaitWindow("Brightrank")
        self.awaitNothingMore("e2-e4")
        self.answerQuestion("alt+y")
        self.awaitSent("e2-e4", "Resign")
        self.partner.await_("Pupil resigns")

    def testTheOpponentMovesUnderTheQuestion(self):
        self.begin()
        self.move("e2", "e4")
        self.press(RESIGN)
        self.display.awaitWindow("Brightrank")
        self.awaitAnother(lambda: self.partner.say("e7e5"), "the opponent's move")
        self.answerQuestion("alt+n")
        self.awaitPosition()
        self.move("g1", "f3")
        self.awaitSent("e2-e4", "g1-f3")


class Challenges(PlayedByHand):
    """The rows of the dialogs' fields, from the top and then from the left."""

    OPPONENT, MINUTES, INCREMENT = range(3)
    SEEK_MINUTES, LOWEST, SEEK_INCREMENT, HIGHEST = range(4)

    def open(self, title, key):
        """Actions, Match or Seek, of the board that shows before any game."""
        screen = Screen(self.display)
        waitFor(screen.find, "the board")
        self.display.click(*screen.centre("e4"))
        self.display.awaitDialog("Brightrank - Board")
        self.display.keys("alt+a")
        self.display.awaitMenu()
        self.display.keys(key)
        return Dialog.find(self.display, title)

    def challenge(self):
        return self.open("Match", "m")

    def seek(self):
        return self.open("Seek", "s")

    def testAChallengeIsComposedAndAccepted(self):
        self.logOn()
        dialog = self.challenge()
        dialog.write(self.OPPONENT, "Rookery")
        dialog.write(self.MINUTES, "5")
        dialog.click("Rated")
        dialog.click("OK")
        self.awaitSent("Match Rookery 5 0 r ")
        self.display.awaitGone(dialog.window)
        self.partner.await_("Challenge: Pupil")
        self.partner.say("accept")
        waitFor(self.wire.positions, "the game")
        self.awaitList()
        self.assertEqual(self.wire.positions()[-1][16:18], ["Pupil", "Rookery"])

    def testAChallengeToAVariantWithAColor(self):
        self.logOn()
        dialog = self.challenge()
        dialog.write(self.OPPONENT, "Rookery")
        dialog.write(self.MINUTES, "5")
        dialog.pick("Type", 1)
        dialog.pick("Color", 1)
        dialog.click("OK")
        self.awaitSent("Match Rookery 5 0 Crazyhouse u White ")
        self.partner.await_("Challenge: ")

    def testAChallengeByKeysAlone(self):
        self.logOn()
        self.challenge()
        self.display.type("Rookery")
        self.display.keys("alt+m", "ctrl+a")
        self.display.type("3")
        self.display.keys("alt+i", "ctrl+a")
        self.display.type("12")
        self.display.keys("alt+r")
        time.sleep(QUIET)  # a box that is ticked by its key takes a tenth of a second
        self.display.keys("Return")
        self.awaitSent("Match Rookery 3 12 r ")
        self.partner.await_("Challenge: Pupil")

    def testAChallengeWithTheServersSettings(self):
        self.logOn()
        dialog = self.challenge()
        dialog.write(self.OPPONENT, "Rookery")
        dialog.click("Use Server Setting")
        dialog.click("OK")
        self.awaitSent("Match Rookery ")
        self.partner.await_("Challenge: Pupil")

    def testACancelledChallengeSendsNothing(self):
        self.logOn()
        dialog = self.challenge()
        dialog.write(self.OPPONENT, "Rookery")
        dialog.click("Cancel")
        self.display.awaitGone(dialog.window)
        self.awaitNothingMore()

    def testASeekIsComposed(self):
        self.logOn()
        dialog = self.seek()
        for field, text in ((self.SEEK_MINUTES, "3"), (self.LOWEST, "0"), (self.HIGHEST, "9999")):
            dialog.write(field, text)
        dialog.click("Rated")
        dialog.click("OK")
        self.awaitSent("Seek 3 0 r 0-9999")
        self.display.awaitGone(dialog.window)

    def testASeekOfAVariantWithAColorAndARange(self):
        self.logOn()
        dialog = self.seek()
        for field, text in ((self.SEEK_MINUTES, "2"), (self.SEEK_INCREMENT, "12"), (self.LOWEST, "1500"),
                            (self.HIGHEST, "1800")):
            dialog.write(field, text)
        dialog.pick("Type", 16)
        dialog.pick("Color", 2)
        dialog.click("OK")
        self.awaitSent("Seek 2 12 Wild fr u Black 1500-1800")


if __name__ == "__main__":
    unittest.main(verbosity=2)
