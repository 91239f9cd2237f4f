// Saving a board's game: when the entry can be chosen, the dialog, and what is written.
#include "board/BoardWindowRig.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class BoardSaving : public BoardWindowRig {
protected:
    BoardSaving() {
        boxes.fileSave = [this](QWidget*, const std::string&, const std::string& start, const std::string& filter) {
            asked.push_back("save in " + start + " " + filter);
            if (whileAsking) whileAsking();
            return chosen;
        };
    }

    static void listOf(const std::string& white) {
        modChess.MovesRecord = {};
        modChess.MovesRecord.White = white;
        modChess.MovesRecord.Black = "Berta";
        modChess.MovesRecord.Header = white + " (1500) vs. Berta (1600) --- Thu Oct 14, 20:36 PDT 2010\r\n";
        modChess.MovesRecord.WhiteMoves[1] = "e4";
        modChess.MovesRecord.LastMove = 0.5F;
    }
    static void review(frmChessBoard& board, const std::string& white = "Anders") {
        listOf(white);
        modChess.MovesTarget = -2;
        board.game.zReviewGame();
    }
    static void save(frmChessBoard& board) {
        entry(board, "mnuSavePGN").trigger();
        QCoreApplication::processEvents(); // answered once the menu is down
    }
    std::vector<std::string> whites() const {
        std::vector<std::string> names;
        for (const auto& [file, record] : written) names.push_back(file + ": " + record.White);
        return names;
    }

    std::optional<std::string> chosen = "/tmp/games.pgn";
    std::function<void()> whileAsking;
};

} // namespace

TEST_F(BoardSaving, ANewBoardHasNothingToSave) { EXPECT_FALSE(entry(open(), "mnuSavePGN").isEnabled()); }

TEST_F(BoardSaving, ARecordTakenOverMayBeSavedAndANewGameMayNot) {
    frmChessBoard& board = open();
    review(board);
    EXPECT_TRUE(entry(board, "mnuSavePGN").isEnabled());
    entry(board, "mnuNew").trigger();
    EXPECT_FALSE(entry(board, "mnuSavePGN").isEnabled());
}

TEST_F(BoardSaving, TheListOfALiveGameMayBeSavedAlsoWhenTheGameHasEnded) {
    frmChessBoard& board = open();
    position(board.game, 0);
    listOf("Anders");
    modChess.MovesTarget = 12;
    board.game.zParseMoves();
    board.game.zEndParms();
    EXPECT_TRUE(entry(board, "mnuSavePGN").isEnabled());
    save(board);
    EXPECT_THAT(whites(), ElementsAre("/tmp/games.pgn: Anders"));
}

TEST_F(BoardSaving, TheDialogBeginsInTheFolderOfGameFilesAndLeavesItAsItIs) {
    modChess.PGNPath = "/tmp/chess";
    frmChessBoard& board = open();
    review(board);
    save(board);
    EXPECT_THAT(asked, ElementsAre("save in /tmp/chess PGN Files (*.pgn)"));
    EXPECT_EQ(modChess.PGNPath, "/tmp/chess");
}

TEST_F(BoardSaving, ACancelledDialogWritesNothing) {
    chosen.reset();
    frmChessBoard& board = open();
    review(board);
    save(board);
    EXPECT_EQ(asked.size(), 1U);
    EXPECT_THAT(written, IsEmpty());
    EXPECT_EQ(modChess.MovesTarget, -2);
}

TEST_F(BoardSaving, WhatIsSavedIsTheBoardsOwnRecordAndNotTheLatestOne) {
    frmChessBoard& board = open();
    review(board, "Anders");
    frmChessBoard& other = open();
    review(other, "Carl");
    save(board);
    save(other);
    EXPECT_THAT(whites(), ElementsAre("/tmp/games.pgn: Anders", "/tmp/games.pgn: Carl"));
}

TEST_F(BoardSaving, AGameThatBeginsUnderTheDialogIsNotTheOneThatIsSaved) {
    frmChessBoard& board = open();
    review(board, "Anders");
    whileAsking = [&] { review(board, "Carl"); };
    save(board);
    EXPECT_THAT(whites(), ElementsAre("/tmp/games.pgn: Anders"));
}

TEST_F(BoardSaving, ABoardThatClosesUnderTheDialogHasItsGameSavedAllTheSame) {
    frmChessBoard& board = open();
    review(board);
    whileAsking = [&] {
        board.close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    };
    save(board);
    EXPECT_THAT(whites(), ElementsAre("/tmp/games.pgn: Anders"));
}

TEST_F(BoardSaving, TakingOverAGameIsPrintedAndHeard) {
    frmChessBoard& board = open();
    review(board);
    EXPECT_THAT(printed, ElementsAre("\r\n" + modChess.MovesRecord.Header));
    EXPECT_EQ(title(board), "Anders (1500) vs. Berta (1600) - Reviewing");
    EXPECT_EQ(label(board, "stbGame(2)"), "Anders - Berta     ");
}
