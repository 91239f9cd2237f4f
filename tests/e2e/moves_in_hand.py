#!/usr/bin/env python3
"""A move in hand and what may come between: buttons, the edge of the board, the end of game or program."""
from game import (QUEEN, QUIET, RIGHT, ROAD, ROOK, SENT_ON_THE_ROAD, PlayedByHand, awaitLifting, time, unittest,
                  waitFor)


class InHand(PlayedByHand):
    settings = {"AutoQueen": 0}

    def endGame(self):
        self.partner.say("resign")
        self.partner.await_("resigns")
        time.sleep(2 * QUIET)

    def takeBackTwo(self):
        def ask():
            self.wire.sayForUser("takeback 2")
            self.partner.await_("take back")
            self.partner.say("accept")
        self.awaitAnother(ask, "the takeback")

    def testTheRightButtonLeavesAPieceInHandAlone(self):
        self.begin()
        self.lift("e2")
        self.display.click(*self.screen.centre("e3"), RIGHT)
        self.awaitNothingMore()
        self.drop("e4")
        self.awaitSent("e2-e4")
        self.awaitPosition()

    def testAPieceLetGoOutsideTheWindowGoesBack(self):
        self.begin()
        before = self.screen.middles()
        self.lift("e2")
        self.display.move(5, 5)
        self.display.release()
        waitFor(lambda: self.screen.middles() == before, "the board as it was")
        self.assertEqual(self.sent(), self.withLists([]))
        self.move("e2", "e4")
        self.awaitSent("e2-e4")

    def testTheGameEndsWithAPieceInHand(self):
        self.begin()
        self.lift("e2")
        self.display.move(*self.screen.centre("e3"))
        self.endGame()
        self.drop("e4")
        self.awaitNothingMore()

    def testTheGameEndsInTheDelay(self):
        self.begin(Mouse_Slip=9)
        self.drag("e2", "e4")
        self.endGame()
        time.sleep(2.5)
        self.awaitNothingMore()

    def testTheGameEndsUnderThePromotionMenu(self):
        self.begin()
        self.play(*ROAD)
        self.drag("b7", "a8")
        self.display.awaitMenu()
        self.endGame()
        self.display.keys("Down", "Return")
        self.awaitNothingMore(*SENT_ON_THE_ROAD)

    def testANewGameUnderThePromotionMenuGetsNoMoveOfTheOldOne(self):
        self.begin()
        self.play(*ROAD)
        self.drag("b7", "a8")
        self.display.awaitMenu()
        self.endGame()
        self.awaitAnother(lambda: self.startGame(True, ""), "the new game's start")
        time.sleep(2 * QUIET)
        self.choose(QUEEN)
        self.awaitNothingMore(*SENT_ON_THE_ROAD)
        awaitLifting()
        self.awaitPosition()
        self.move("g1", "f3")
        self.awaitSent(*SENT_ON_THE_ROAD, "g1-f3")

    def testThePositionArrivesOnceMoreUnderThePromotionMenu(self):
        self.begin()
        self.play(*ROAD)
        self.drag("b7", "a8")
        self.display.awaitMenu()
        self.awaitAnother(lambda: self.wire.sayForUser("refresh"), "the refresh")
        time.sleep(QUIET)
        self.choose(ROOK)
        self.awaitSent(*SENT_ON_THE_ROAD, "b7-a8=R")
        self.answer("h6h5")

    def testATakebackUnderThePromotionMenuEndsTheMove(self):
        self.begin()
        self.play(*ROAD)
        self.drag("b7", "a8")
        self.display.awaitMenu()
        self.takeBackTwo()
        waitFor(lambda: self.screen.pieceOn("h7") == "p", "the pawn back on h7")
        self.choose(QUEEN)
        self.awaitNothingMore(*SENT_ON_THE_ROAD)
        self.awaitPosition()
        self.move("c6", "b7")
        self.awaitSent(*SENT_ON_THE_ROAD, "c6-b7")

    def testATakebackWithAPieceInHand(self):
        self.begin()
        self.play("e2e4", "e7e5")
        self.lift("e4")
        self.display.move(*self.screen.centre("e6"))
        self.takeBackTwo()
        waitFor(lambda: self.screen.pieceOn("e7") == "p", "the pawn back on e7")
        self.drop("e5")
        self.awaitNothingMore("e2-e4")
        self.awaitPosition()
        self.move("d2", "d4")
        self.awaitSent("e2-e4", "d2-d4")

    def testPromotionByTwoClicks(self):
        self.begin(Seek_Color=0)
        for move, answer in zip(ROAD[::2], ROAD[1::2]):
            self.moveByClicks(move[:2], move[2:])
            self.answer(answer)
        self.clicks("b7", "a8")
        self.choose(ROOK)
        self.awaitSent(*SENT_ON_THE_ROAD, "b7-a8=R")

    def testTheProgramEndsWithAMoveInHand(self):
        for state in ("lifted", "in delay", "menu"):
            with self.round(state=state):
                self.begin(Mouse_Slip=11 if state == "in delay" else 0)
                if state == "menu":
                    self.play(*ROAD)
                    self.drag("b7", "a8")
                    self.display.awaitMenu()
                else:
                    self.lift("e2")
                    self.display.move(*self.screen.centre("e4"))
                    if state == "in delay":
                        self.display.release()
                self.awaitNothingMore(*(SENT_ON_THE_ROAD if state == "menu" else ()))


class Waiting(PlayedByHand):
    settings = {"PreMove_OK": 1, "AutoQueen": 0}

    def testAPreMovedPromotionAsksWhenItIsPlayed(self):
        self.begin()
        self.play(*ROAD[:-1])
        self.drag("b7", "a8")
        self.display.move(*self.screen.centre("e5"))
        self.awaitNothingMore(*SENT_ON_THE_ROAD)
        self.awaitAnother(lambda: self.partner.say("h7h6"), "the opponent's move")
        self.display.awaitMenu()
        self.awaitNothingMore(*SENT_ON_THE_ROAD)
        self.choose(QUEEN)
        self.awaitSent(*SENT_ON_THE_ROAD, "b7-a8=Q")
        waitFor(lambda: self.wire.positions()[-1][0].startswith("Q"), "the queen on the server's board")
        self.awaitPosition()

    def testThePointerThatRestsWhereThePieceWasLetGoSendsThePreMove(self):
        self.begin()
        self.move("e2", "e4")
        self.drag("g1", "f3")
        self.awaitQueued("f3")
        self.partner.say("d7d6")
        self.awaitSent("e2-e4", "g1-f3")

    def testTheGameEndsWithAPreMoveQueued(self):
        self.begin()
        self.move("e2", "e4")
        self.drag("g1", "f3")
        self.awaitQueued("f3")
        self.partner.say("resign")
        self.partner.await_("resigns")
        time.sleep(QUIET)
        self.awaitNothingMore("e2-e4")


if __name__ == "__main__":
    unittest.main(verbosity=2)
