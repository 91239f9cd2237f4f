// What an assistive tool reads and hears of a board.
#include "board/MouseWindowRig.h"
#include "platform/Spoken.h"

namespace {

class BoardSpoken : public MouseWindowRig {
protected:
    static QString described(frmChessBoard& board, const char* name = "picChess") {
        return spokenText(part(board, name), QAccessible::Description);
    }
};

} // namespace

TEST_F(BoardSpoken, EachArrivingMoveIsAnnouncedWithItsSignInWords) {
    const Announcements tool;
    const QString picChess = QStringLiteral("picChess");
    frmChessBoard& board = open();
    receive(board, {.relation = 0}, true);
    QCoreApplication::processEvents();
    EXPECT_TRUE(tool.heard.empty()) << "no move yet";
    receive(board, {.ranks = AfterE4, .turn = "B", .relation = 0, .moveNumber = 8, .pretty = "Bb5"});
    QCoreApplication::processEvents();
    EXPECT_EQ(tool.heard, std::vector{picChess});
    EXPECT_TRUE(described(board).startsWith(QStringLiteral("8. Bb5; Black to move; White: king e1")));
    receive(board, {.ranks = AfterE4E5, .turn = "W", .relation = 0, .moveNumber = 9, .pretty = "Qg5+"});
    QCoreApplication::processEvents();
    EXPECT_EQ(tool.heard, (std::vector{picChess, picChess}));
    EXPECT_TRUE(described(board).startsWith(QStringLiteral("8.. Qg5, check; White to move; White: ")));
}

TEST_F(BoardSpoken, APositionThatComesAgainIsNotAnnouncedAgain) {
    const Announcements tool;
    frmChessBoard& board = openMine();
    for (int times = 0; times < 2; ++times) {
        receive(board, {.ranks = AfterE4, .turn = "B", .relation = -1, .pretty = "e4"});
        QCoreApplication::processEvents();
    }
    EXPECT_EQ(tool.heard.size(), 1U);
}

TEST_F(BoardSpoken, OfMovesThatArriveTogetherTheLastOneIsAnnounced) {
    const Announcements tool;
    frmChessBoard& board = openMine();
    receive(board, {.ranks = AfterE4, .turn = "B", .relation = 0, .pretty = "e4"});
    receive(board, {.ranks = AfterE4E5, .turn = "W", .relation = 0, .moveNumber = 2, .pretty = "e5"});
    QCoreApplication::processEvents();
    EXPECT_EQ(tool.heard.size(), 1U) << "the board has one description to read";
    EXPECT_TRUE(described(board).startsWith(QStringLiteral("1.. e5; White to move; ")));
}

TEST_F(BoardSpoken, ABoardThatGoesBeforeItsAnnouncementIsNotHeard) {
    const Announcements tool;
    frmChessBoard& board = openMine();
    receive(board, {.ranks = AfterE4, .turn = "B", .relation = -1, .pretty = "e4"});
    delete &board;
    QCoreApplication::processEvents();
    EXPECT_TRUE(tool.heard.empty());
}

TEST_F(BoardSpoken, AToolThatReadsAtTheAnnouncementReadsWhoIsToMoveNow) {
    const Announcements puttingBack;
    QString read;
    announceDescription = [&read](QWidget* widget) { read = spokenText(*widget, QAccessible::Description); };
    frmChessBoard& board = openMine();
    receive(board, {.ranks = AfterE4, .turn = "B", .relation = -1, .pretty = "e4"});
    QCoreApplication::processEvents();
    EXPECT_TRUE(read.startsWith(QStringLiteral("1. e4; Black to move; White: king e1"))) << read.toStdString();
}

TEST_F(BoardSpoken, AQueuedPreMoveStandsBehindTheLastMove) {
    frmChessBoard& board = openWaiting();
    drag(board, "g1", "f3");
    ASSERT_TRUE(board.game.PreMoveSet);
    EXPECT_TRUE(described(board).startsWith(QStringLiteral("1. e4; pre-move g1 to f3; Black to move; White: ")));
    receiveAnswer(board);
    EXPECT_FALSE(described(board).contains(QStringLiteral("pre-move")));
}

TEST_F(BoardSpoken, WithoutAMoveTheSideToMoveStandsInFrontOfThePosition) {
    EXPECT_TRUE(described(openMine()).startsWith(QStringLiteral("White to move; White: king e1")));
}

TEST_F(BoardSpoken, TheLastMoveIsHeardWhereTheKeysAre) {
    frmChessBoard& board = openMine();
    EXPECT_EQ(described(board, "txtSend"), QString());
    receive(board, {.ranks = AfterE4E5, .turn = "W", .relation = 1, .moveNumber = 9, .pretty = "Qg5+"});
    EXPECT_EQ(described(board, "txtSend"), QStringLiteral("8.. Qg5, check"));
}

TEST_F(BoardSpoken, TheSecondsOfAClockAreNotAnnounced) {
    const Announcements tool;
    frmChessBoard& board = openMine();
    board.game.countSecond();
    QCoreApplication::processEvents();
    EXPECT_TRUE(tool.heard.empty());
    EXPECT_EQ(described(board, "lblTime(0)"), QStringLiteral("4:59"));
}

TEST_F(BoardSpoken, LabelsHaveNamesAndTheirTextsCanBeRead) {
    frmChessBoard& board = openMine();
    receive(board, {.ranks = AfterE4, .turn = "B", .relation = -1, .pretty = "e4"});
    board.game.zSetBughouse("<b1> game 12 white [PPN] black [Q]\r\n");
    EXPECT_EQ(described(board, "lblMove"), QStringLiteral("1. e4"));
    EXPECT_EQ(described(board, "lblBug(0)"), QStringLiteral("[PPN]"));
    EXPECT_EQ(described(board, "lblBug(1)"), QStringLiteral("[Q]"));
    EXPECT_EQ(spokenText(part(board, "lblMove"), QAccessible::Name), QStringLiteral("Last move"));
    EXPECT_EQ(spokenText(part(board, "lblBug(1)"), QAccessible::Name), QStringLiteral("Black's holdings"));
}

TEST_F(BoardSpoken, EveryPartThatTakesKeysHasAName) {
    frmChessBoard& board = open();
    for (QWidget* each : board.findChildren<QWidget*>()) {
        if (!(each->focusPolicy() & Qt::TabFocus)) continue;
        EXPECT_FALSE(spokenText(*each, QAccessible::Name).isEmpty()) << each->objectName().toStdString();
    }
    EXPECT_EQ(spokenText(part(board, "cmdScroll(2)"), QAccessible::Name), QStringLiteral("Stay at this position"));
}
