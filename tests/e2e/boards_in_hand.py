#!/usr/bin/env python3
"""A piece or a menu in hand on one of forty boards, while that board or another one is closed."""
import time
import unittest

from dialogs import Dialog
from forty import FORTY, FortyBoards
from rig import QUIET, RIGHT, awaitLifting, waitFor
from style12 import START, style12

OWN = 90  # number of the game in which the user moves
TITLE = "Pupil - Harbour    [60 0]"
BEFORE_PROMOTION = ["--------", "P-------", "--------", "----k---", "--------", "----K---", "--------", "--------"]
HOLDINGS = f"\n\r<b1> game {OWN} white [NPP] black [Q]\n\rfics% "
PLAYED, EXAMINED = 1, 2  # relations


class OneInHand(FortyBoards):
    def showOwn(self, rows, relation):
        self.own = rows
        self.server.say(style12(rows, game=OWN, white="Pupil", relation=relation))
        self.awaitCommand(f"moves {OWN}" if relation == PLAYED else f"smoves {FORTY}")  # behind "moves 40"
        self.layOut(OWN, TITLE)
        awaitLifting()
        self.screen = self.boards[OWN][1]
        waitFor(lambda: self.screen.read() == rows, "the own game")

    def lift(self, square):
        self.display.move(*self.screen.centre(square))
        self.display.press()

    def carry(self, start, end):
        self.lift(start)
        self.display.move(*self.screen.centre(end))

    def openPromotion(self):
        self.carry("a7", "a8")
        self.display.release()
        self.display.awaitMenu()

    def openDrop(self):
        self.server.say(HOLDINGS)
        time.sleep(QUIET)
        self.display.click(*self.screen.centre("d4"), RIGHT)
        self.display.awaitMenu()

    def awaitOwnClosed(self, *commands):
        for command in commands:
            self.awaitCommand(command)
        self.forget(OWN)
        self.display.awaitNoMenu()
        self.display.release()
        self.display.move(*self.boards[20][1].centre("e4"))
        self.round()
        self.awaitAll()

    def answerQuestion(self, key):
        question = Dialog.find(self.display, "Game in progress")
        self.round()
        question.answer(key)

    def testAnExaminedBoardIsClosedWithAPieceInHand(self):
        self.showOwn(START, EXAMINED)
        self.carry("e2", "e3")
        self.round()
        self.close(OWN)
        self.awaitOwnClosed("unex")

    def testAnExaminedBoardIsClosedUnderItsPromotionMenu(self):
        self.showOwn(BEFORE_PROMOTION, EXAMINED)
        self.openPromotion()
        self.round()
        self.close(OWN)
        self.awaitOwnClosed("unex")

    def testAnExaminedBoardIsClosedUnderItsDropMenu(self):
        self.showOwn(START, EXAMINED)
        self.openDrop()
        self.round()
        self.close(OWN)
        self.awaitOwnClosed("unex")

    def testAPlayedBoardIsClosedWithAPieceInHand(self):
        self.showOwn(START, PLAYED)
        self.carry("e2", "e3")
        self.close(OWN)
        self.answerQuestion("Return")
        self.awaitOwnClosed()

    def testAPlayedBoardIsClosedUnderItsPromotionMenu(self):
        self.showOwn(BEFORE_PROMOTION, PLAYED)
        self.openPromotion()
        self.close(OWN)
        self.answerQuestion("Return")
        self.awaitOwnClosed()

    def testOthersAreClosedWhileAPieceIsInHand(self):
        self.showOwn(START, PLAYED)
        self.carry("e2", "e3")
        self.closeOthers()
        self.display.move(*self.screen.centre("e4"))
        self.display.release()
        self.awaitCommand("e2-e4")
        self.awaitAll()

    def testOthersAreClosedUnderThePromotionMenu(self):
        self.showOwn(BEFORE_PROMOTION, PLAYED)
        self.openPromotion()
        self.closeOthers()
        self.display.keys("Down", "Down", "Return")
        self.awaitCommand("a7-a8=R")
        self.awaitAll()

    def testOthersAreClosedUnderTheDropMenu(self):
        self.showOwn(START, PLAYED)
        self.openDrop()
        self.closeOthers()
        self.display.keys("Up", "Return")
        self.awaitCommand("P@d4")
        self.awaitAll()

    def closeOthers(self):
        for number in self.dice.sample(range(1, 41), 5):
            self.round()
            self.awaitAll()
            self.close(number)
            self.awaitCommand(f"unob {number}")
            self.forget(number)


if __name__ == "__main__":
    unittest.main(verbosity=2)
