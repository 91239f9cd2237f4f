#!/usr/bin/env python3
"""Whole games played with the pointer on the built program; what the server receives is compared byte for byte."""
from game import BISHOP, KNIGHT, QUEEN, ROAD, ROOK, SENT_ON_THE_ROAD, PlayedByHand, unittest, waitFor


class GamesByDragging(PlayedByHand):
    def testAGameIsWonByMate(self):
        self.begin()
        self.play("e2e4", "e7e5", "f1c4", "b8c6", "d1h5", "g8f6")
        self.drag("h5", "f7")
        self.partner.await_(r"\{Game \d+ \(Pupil vs\. Rookery\) Rookery checkmated\} 1-0")
        self.awaitSent("e2-e4", "f1-c4", "d1-h5", "h5-f7")
        self.awaitPosition()

    def testBlackPlaysFromHisOwnSide(self):
        self.begin(white=False)
        self.play("f2f3", "e7e5", "g2g4")
        self.drag("d8", "h4")
        self.partner.await_("Rookery checkmated")
        self.awaitSent("e7-e5", "d8-h4")
        self.awaitPosition()

    def testCastlingOnTheKingsSide(self):
        self.begin()
        self.play("e2e4", "e7e5", "g1f3", "b8c6", "f1c4", "f8c5", "e1g1", "d7d6")
        self.assertEqual(self.screen.read()[7], "RNBQ-RK-")
        self.awaitSent("e2-e4", "g1-f3", "f1-c4", "e1-g1")

    def testCastlingOnTheQueensSideBothPlayers(self):
        self.begin()
        self.play("d2d4", "d7d5", "c1f4", "c8f5", "b1c3", "b8c6", "d1d2", "d8d7", "e1c1", "e8c8", "h2h3")
        self.assertEqual(self.screen.read()[7], "--KR-BNR")
        self.assertEqual(self.screen.read()[0], "--kr-bnr")
        self.awaitSent("d2-d4", "c1-f4", "b1-c3", "d1-d2", "e1-c1", "h2-h3")

    def testEnPassant(self):
        self.begin()
        self.play("e2e4", "a7a6", "e4e5", "d7d5", "e5d6", "a6a5")
        self.assertEqual(self.screen.read()[:3], ["rnbqkbnr", "-pp-pppp", "---P----"])
        self.awaitSent("e2-e4", "e4-e5", "e5-d6")

    def testTheOpponentCapturesEnPassant(self):
        self.begin(white=False)
        self.play("e2e4", "a7a6", "e4e5", "f7f5", "e5f6", "e7f6", "a2a3")
        self.assertEqual(self.screen.read()[2:4], ["p----p--", "--------"])
        self.awaitSent("a7-a6", "f7-f5", "e7-f6")

    def testOneGameOfBothCastlingsEnPassantAndTwoPromotions(self):
        self.begin(AutoQueen=0)
        self.play("d2d4", "d7d5", "b1c3", "g8f6", "c1f4", "e7e6", "d1d2", "f8e7", "e1c1", "e8g8", "e2e4", "h7h6",
                  "e4e5", "f6d7", "h2h4", "f7f5", "e5f6", "d7b6", "f6e7", "a7a6")
        self.promote("e7", "f8", KNIGHT)
        self.answer("g8f8")
        self.play("h4h5", "a6a5", "g2g4", "a5a4", "g4g5", "a4a3", "g5h6", "a3b2", "c1b1", "f8e8", "h6g7", "b8a6")
        self.promote("g7", "g8", QUEEN)
        self.answer("e8d7")
        self.partner.say("resign")
        self.partner.await_("Rookery resigns")
        self.awaitSent("d2-d4", "b1-c3", "c1-f4", "d1-d2", "e1-c1", "e2-e4", "e4-e5", "h2-h4", "e5-f6", "f6-e7",
                       "e7-f8=N", "h4-h5", "g2-g4", "g4-g5", "g5-h6", "c1-b1", "h6-g7", "g7-g8=Q+")
        self.assertEqual(self.screen.read(), ["r-bq--Q-", "-ppk----", "nn--p---", "---p---P", "---P-B--", "--N-----",
                                              "PpPQ-P--", "-K-R-BNR"])

    def testAMoveThatTheServerRefusesIsTakenBackByTheNextPosition(self):
        self.begin()
        self.play("e2e4", "e7e5", "f2f4", "d8h4")
        self.drag("d2", "d3")  # leaves the king in check: the board lets it through
        self.awaitSent("e2-e4", "f2-f4", "d2-d3")
        waitFor(lambda: self.screen.pieceOn("d3") == "P", "the pawn on d3")
        self.awaitAnother(lambda: self.wire.sayForUser("refresh"), "the refresh")
        self.awaitPosition()
        self.move("e1", "e2")
        self.awaitSent("e2-e4", "f2-f4", "d2-d3", "e1-e2")

    def testAnIllegalMoveSendsNothingAndThePieceReturns(self):
        self.begin()
        self.drag("e2", "e5")
        self.drag("b1", "b3")
        self.move("e2", "e4")
        self.awaitSent("e2-e4")


class Promotions(PlayedByHand):
    settings = {"AutoQueen": 0}

    def testPromotionToAKnight(self):
        self.begin()
        self.play(*ROAD)
        self.promote("b7", "a8", KNIGHT)
        self.awaitSent(*SENT_ON_THE_ROAD, "b7-a8=N")
        self.answer("h6h5")
        self.assertEqual(self.screen.read()[0][0], "N")

    def testPromotionToAQueenWithCheck(self):
        self.begin()
        self.play(*ROAD[:-1], "d8d7")
        self.promote("b7", "c8", QUEEN)
        self.awaitSent(*SENT_ON_THE_ROAD, "b7-c8=Q+")
        waitFor(lambda: self.wire.positions()[-1][0].startswith("rnQ"), "the queen on the server's board")
        self.awaitPosition()

    def testPromotionToARookAndABishop(self):
        for entry, letter in ((ROOK, "R"), (BISHOP, "B")):
            with self.round(piece=letter):
                self.begin()
                self.play(*ROAD)
                self.promote("b7", "a8", entry)
                self.awaitSent(*SENT_ON_THE_ROAD, f"b7-a8={letter}")
                self.answer("h6h5")
                self.assertEqual(self.screen.read()[0][0], letter)

    def testBlackPromotesToAKnightWithCheck(self):
        self.begin(white=False)
        self.play("e2e4", "d7d5", "h2h3", "d5e4", "d2d3", "e4d3", "e1d2", "d3c2", "d2c3")
        self.promote("c2", "b1", KNIGHT)
        self.answer("c3b3")
        self.assertEqual(self.screen.read()[7], "RnBQ-BNR")
        self.awaitSent("d7-d5", "d5-e4", "e4-d3", "d3-c2", "c2-b1=N+")

    def testAutoQueenAsksNothing(self):
        self.begin(AutoQueen=1)
        self.play(*ROAD)
        self.drag("b7", "a8")
        self.awaitSent(*SENT_ON_THE_ROAD, "b7-a8=Q")
        self.answer("h6h5")


if __name__ == "__main__":
    unittest.main(verbosity=2)
