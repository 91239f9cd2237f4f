// The chooser of games: what it shows, how a game is chosen, and where it stands.
#include "platform/LoadedWindow.h"
#include "platform/ShownTip.h"
#include "platform/Spoken.h"
#include "platform/WaitUntil.h"
#include "records/PgnRig.h"
#include "records/frmPGN.h"

#include <QHeaderView>
#include <QPointer>
#include <QScreen>
#include <QTest>
#include <QToolTip>

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class PgnWindow : public testing::Test {
protected:
    PgnWindow() {
        modChess = {};
        openWindows.windows.clear();
        board->setGeometry(100, 50, 600, 500);
        board->show();
    }
    ~PgnWindow() override {
        delete board.data();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        modChess = {};
        openWindows.windows.clear();
    }

    frmPGN& open(int count) {
        for (int row = 1; row <= count; ++row) {
            games[row].White = "white " + std::to_string(row);
            games[row].Black = "black " + std::to_string(row);
            games[row].Event = "event " + std::to_string(row);
            games[row].Date = "2026.11." + std::to_string(row);
            games[row].Result = "1-0";
        }
        return show(count);
    }
    frmPGN& show(int count) {
        chooser = &frmPGN::showIt(*board, 7, "/games/J\xC3\xB8rgen.pgn", games, count);
        QObject::connect(chooser, &frmPGN::chosen, board, [this](int row) { chosen.push_back(row); });
        return *chooser;
    }
    QTreeWidget& grid() const { return *chooser->findChild<QTreeWidget*>(QStringLiteral("fxgPGN")); }
    QString shown(int row, int column) const { return grid().topLevelItem(row - 1)->text(column); }
    QRect cell(int row, int column) const { return grid().visualRect(grid().model()->index(row - 1, column)); }
    std::string text(int row, int column) const { return shown(row, column).toStdString(); }
    int current() const { return grid().indexOfTopLevelItem(grid().currentItem()) + 1; }
    std::vector<std::string> rowTexts(int row) const {
        std::vector<std::string> texts;
        for (int column = 0; column < grid().columnCount(); ++column) texts.push_back(text(row, column));
        return texts;
    }
    // Qt tells of a double click on a cell that was pressed just before.
    void doubleClick(int row, int column) {
        const QPoint point = cell(row, column).center();
        QTest::mouseClick(grid().viewport(), Qt::LeftButton, {}, point);
        QTest::mouseDClick(grid().viewport(), Qt::LeftButton, {}, point);
    }
    void press(Qt::Key key) { QTest::keyClick(&grid(), key); }
    bool closed() const { return loadedWindow<frmPGN>() == nullptr; }

    QPointer<QWidget> board{new QWidget};
    std::unique_ptr<PgnTable> owned = std::make_unique<PgnTable>();
    PgnTable& games = *owned;
    QPointer<frmPGN> chooser;
    std::vector<int> chosen;
};

} // namespace

// What it shows

TEST_F(PgnWindow, ItsCaptionIsTheFilesName) {
    EXPECT_EQ(open(1).windowTitle(), QString::fromUtf8("/games/J\xC3\xB8rgen.pgn"));
    EXPECT_EQ(chooser->frmCBid, 7);
}

TEST_F(PgnWindow, SixColumnsHaveTheirHeadingsAndTheirOrder) {
    open(3);
    std::vector<std::string> headings;
    for (int column = 0; column < grid().columnCount(); ++column) {
        headings.push_back(grid().headerItem()->text(column).toStdString());
    }
    EXPECT_THAT(headings, ElementsAre("", "White", "Black", "Event", "Date", "Res"));
    EXPECT_EQ(grid().topLevelItemCount(), 3);
    EXPECT_THAT(rowTexts(2), ElementsAre("2", "white 2", "black 2", "event 2", "2026.11.2", "1-0"));
}

TEST_F(PgnWindow, ItsColumnsAreAsWideAsPrescribedAndReadableInEveryFont) {
    const std::vector<int> twips{300, 1500, 1500, 1500, 1020, 990};
    const QFont usual = QApplication::font();
    for (const int points : {6, 8, 20}) {
        QApplication::setFont(QFont(usual.family(), points));
        games[1].Date = "2026.11.22";
        show(1);
        for (int column = 0; column < 6; ++column) {
            EXPECT_GE(grid().columnWidth(column), twips[static_cast<std::size_t>(column)] / 15) << points;
            if (points > 6) continue;
            EXPECT_EQ(grid().columnWidth(column), twips[static_cast<std::size_t>(column)] / 15);
        }
        const QFontMetrics metrics(grid().font());
        EXPECT_GT(grid().columnWidth(4), metrics.horizontalAdvance(QStringLiteral("2026.11.22"))) << points;
        EXPECT_GT(grid().columnWidth(0), metrics.horizontalAdvance(QStringLiteral("99"))) << points;
        EXPECT_GE(cell(1, 0).height(), metrics.height()) << points;
    }
    QApplication::setFont(usual);
}

TEST_F(PgnWindow, NumbersDatesAndResultsAreShownWholeInEveryFont) {
    const QFont usual = QApplication::font();
    for (const int points : {8, 11, 14, 20}) {
        QApplication::setFont(QFont(usual.family(), points));
        games[99].Date = "2026.11.22";
        games[99].Result = "1/2-1/2";
        open(98);
        for (const int count : {99, 100}) {
            show(count);
            for (const int column : {0, 4, 5}) {
                const QModelIndex index = grid().model()->index(column == 0 ? count - 1 : 98, column);
                QStyleOptionViewItem cell;
                cell.initFrom(&grid());
                EXPECT_LE(grid().itemDelegate()->sizeHint(cell, index).width(), grid().columnWidth(column))
                    << points << " points, column " << column;
            }
        }
    }
    QApplication::setFont(usual);
}

TEST_F(PgnWindow, DateAndResultAreCentredAndTheOthersAreNot) {
    open(1);
    for (int column = 0; column < 6; ++column) {
        const bool centred = (grid().topLevelItem(0)->textAlignment(column) & Qt::AlignHCenter) != 0;
        EXPECT_EQ(centred, column >= 4) << column;
    }
}

TEST_F(PgnWindow, AFileWithoutGamesGivesTheHeadingAlone) {
    open(0);
    EXPECT_EQ(grid().topLevelItemCount(), 0);
    press(Qt::Key_Return);
    EXPECT_FALSE(closed()) << "there is nothing to choose";
    press(Qt::Key_Escape);
    EXPECT_THAT(chosen, ElementsAre(0));
}

TEST_F(PgnWindow, BytesAreShownAsLatin1AndLongTextsToTheirStart) {
    games[1].White = "J\xC3\xB8rgen";
    games[1].Black = std::string(1000000, 'x');
    games[1].Event = std::string("a\0b", 3);
    show(1);
    EXPECT_EQ(shown(1, 1), QString::fromLatin1("J\xC3\xB8rgen"));
    EXPECT_EQ(shown(1, 2).size(), 500);
    EXPECT_EQ(shown(1, 3).size(), 3);
}

TEST_F(PgnWindow, ATextThatIsCutIsShownAsAPlainToolTip) {
    games[1].White = "<b>a name that is wider than its column</b>";
    games[1].Black = "Berta";
    show(1);
    const auto tipOf = [this](int column) {
        const QPoint point = cell(1, column).center();
        QHelpEvent help(QEvent::ToolTip, point, grid().viewport()->mapToGlobal(point));
        QCoreApplication::sendEvent(grid().viewport(), &help);
        return QToolTip::isVisible() ? QToolTip::text() : QString();
    };
    EXPECT_EQ(tipOf(1), QStringLiteral("<b>a name that is wider than its column</b>"));
    ASSERT_NE(shownTip(), nullptr);
    EXPECT_EQ(shownTip()->textFormat(), Qt::PlainText);
    QToolTip::hideText();
    EXPECT_TRUE(waitUntil([] { return !QToolTip::isVisible(); }));
    EXPECT_EQ(tipOf(2), QString());
}

TEST_F(PgnWindow, ScreenReadersFindTheTableItsHeadingsAndItsCells) {
    open(2);
    EXPECT_EQ(spokenText(grid(), QAccessible::Name), QStringLiteral("Games of the file"));
    EXPECT_NE(spokenText(grid(), QAccessible::Description), QString());
    auto* table = QAccessible::queryAccessibleInterface(&grid())->tableInterface();
    EXPECT_EQ(table->rowCount(), 2);
    EXPECT_EQ(table->columnCount(), 6);
    EXPECT_EQ(table->cellAt(1, 1)->text(QAccessible::Name), QStringLiteral("white 2"));
    EXPECT_EQ(table->columnDescription(5), QStringLiteral("Res"));
}

TEST_F(PgnWindow, ItCannotBeEdited) {
    open(1);
    press(Qt::Key_F2);
    QTest::keyClicks(&grid(), QStringLiteral("x"));
    EXPECT_EQ(text(1, 1), "white 1");
}

// Choosing

TEST_F(PgnWindow, WhileItIsOpenTheChoiceIsMinus1) {
    open(2);
    EXPECT_EQ(modChess.PgnChoice, -1);
    EXPECT_EQ(openWindows.count("frmPGN"), 1);
}

TEST_F(PgnWindow, ADoubleClickChoosesItsRow) {
    open(20);
    doubleClick(3, 2);
    EXPECT_TRUE(closed());
    EXPECT_EQ(modChess.PgnChoice, 3);
    EXPECT_THAT(chosen, ElementsAre(3));
}

TEST_F(PgnWindow, AClickAloneSelectsTheWholeRow) {
    open(20);
    QTest::mouseClick(grid().viewport(), Qt::LeftButton, {}, cell(5, 4).center());
    EXPECT_FALSE(closed());
    EXPECT_EQ(grid().selectionModel()->selectedIndexes().size(), 6);
    EXPECT_EQ(current(), 5);
}

TEST_F(PgnWindow, TheKeyboardWalksAndEnterChooses) {
    open(20);
    EXPECT_EQ(current(), 1) << "the first game stands ready";
    EXPECT_EQ(chooser->focusWidget(), &grid());
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    EXPECT_THAT(chosen, ElementsAre(3));
    open(20);
    press(Qt::Key_End);
    press(Qt::Key_Enter);
    EXPECT_THAT(chosen, ElementsAre(3, 20));
}

TEST_F(PgnWindow, EveryOtherWayOfClosingChoosesNone) {
    open(2);
    press(Qt::Key_Escape);
    EXPECT_EQ(modChess.PgnChoice, 0);
    open(2).close();
    EXPECT_EQ(modChess.PgnChoice, 0);
    open(2);
    openWindows.unload("frmPGN");
    EXPECT_EQ(modChess.PgnChoice, 0);
    EXPECT_THAT(chosen, ElementsAre(0, 0, 0));
    EXPECT_TRUE(closed());
}

TEST_F(PgnWindow, TheBoardTakesItAlong) {
    open(2);
    delete board.data();
    EXPECT_EQ(modChess.PgnChoice, 0);
    EXPECT_EQ(openWindows.count("frmPGN"), 0);
    EXPECT_TRUE(chooser.isNull());
}

TEST_F(PgnWindow, ASecondOneClosesTheFirstWithoutAChoice) {
    open(5);
    const QPointer<frmPGN> first = chooser;
    open(3);
    EXPECT_THAT(chosen, ElementsAre(0));
    EXPECT_EQ(modChess.PgnChoice, -1);
    EXPECT_EQ(openWindows.count("frmPGN"), 1);
    EXPECT_NE(first, chooser);
    EXPECT_EQ(grid().topLevelItemCount(), 3);
}

// Its place

TEST_F(PgnWindow, ItStandsAtTheBoardsLeftEdge700TwipsBelowItsTop) {
    open(2);
    EXPECT_EQ(chooser->pos(), board->pos() + QPoint(0, 700 / 15));
}

TEST_F(PgnWindow, ItIsKeptOnTheBoardsScreen) {
    for (QScreen* screen : QGuiApplication::screens()) {
        const QRect area = screen->availableGeometry();
        for (const QPoint corner : {area.topLeft() - QPoint(50, 80), area.bottomRight() - QPoint(60, 60)}) {
            board->setScreen(screen);
            board->move(corner);
            open(30);
            EXPECT_TRUE(board->screen()->availableGeometry().contains(chooser->frameGeometry()))
                << screen->name().toStdString();
        }
    }
}

TEST_F(PgnWindow, ItsColumnsFitWithoutScrolling) {
    open(50);
    EXPECT_TRUE(waitUntil([this] { return grid().viewport()->width() > 0; }));
    EXPECT_GE(grid().viewport()->width(), grid().header()->length());
}
