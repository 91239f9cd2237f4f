// A board closes, or another, or all with the program, while the user has a hand on it: a piece in hand, a menu or a
// question up. Updates of all the other boards go on meanwhile.
#include "session/ManyBoardsRig.h"

#include "board/BoardRig.h"
#include "common/Squares.h"
#include "common/modChess.h"
#include "platform/ChosenEntry.h"
#include "platform/LoadedWindow.h"
#include "settings/MouseSlips.h"
#include "view/frmBoardColors.h"

#include <QAction>
#include <QApplication>
#include <QContextMenuEvent>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <array>
#include <tuple>

namespace {

constexpr int Others = 39; // boards with watched games; the fortieth is the one in use
constexpr int Played = 77;

enum class Use {
    PieceInHand,
    SlipDelay,
    PromotionMenu,
    PromotionOfDelay,
    DropMenu,
    BarMenu,
    LineMenu,
    Question,
    CloseQuestion,
    CloseInPress,
    ColourBox
};
enum class Victim { Itself, Another, All, TheProgram };

class BoardsInUse : public ManyBoards, public testing::WithParamInterface<std::tuple<Use, Victim>> {
protected:
    // A game of the user's on a board of its own, ready for his move.
    void openPlayed(const std::string& ranks) {
        line.ranks = ranks;
        line.game = Played;
        read("\n\r" + line.text("\n\rfics% "));
        board = rig.boardOf(Played);
        ASSERT_TRUE(board);
        board->game.tmrNoPlay(); // the time in which no piece can be lifted is over
        modChess.DragMode = 1;
    }

    QPoint at(const std::string& square) const {
        const auto& view = *board->findChild<BoardView*>(QStringLiteral("picChess"));
        const int side = view.geometry().SquarePixels;
        const int position = view.geometry().DisplaySquare[zSquareNumber(square)];
        const QPoint inside(position % 8 * side + side / 2 + BoardView::BorderPixels,
                            (7 - position / 8) * side + side / 2 + BoardView::BorderPixels);
        return view.mapTo(board.data(), inside);
    }
    // By the window system's road, so that the toolkit's own memory of the mouse is in it.
    void drag(const char* from, const char* to, bool drop = true) {
        QWindow* window = board->windowHandle();
        QTest::mousePress(window, Qt::LeftButton, {}, at(from));
        QTest::mouseMove(window, at(to));
        QCoreApplication::processEvents();
        if (drop) QTest::mouseRelease(window, Qt::LeftButton, {}, at(to));
    }

    // On the board, or on the console when it has gone with the button still down.
    void release(Qt::MouseButton button, const char* square) {
        const bool there = board && board->isVisible();
        QWindow* window = there ? board->windowHandle() : rig.client->windowHandle();
        QTest::mouseRelease(window, button, {}, there ? at(square) : QPoint(50, 150));
    }

    void rightClick() {
        QTest::mousePress(board->windowHandle(), Qt::RightButton, {}, at("e4"));
        release(Qt::RightButton, "e4");
    }

    // Runs `whileUp` as soon as a menu or a box is on the screen.
    void onceUp(bool boxOnly = false) {
        QObject::connect(&look, &QTimer::timeout, &look, [this, boxOnly] {
            const bool menu = !boxOnly && QApplication::activePopupWidget();
            if (!menu && !QApplication::activeModalWidget()) return;
            look.stop();
            whileUp();
        });
        look.start(1);
    }

    // Everything that is in use now gets the next positions, and then what closes closes.
    void whileUp() {
        ++reached;
        read(nextOfAll() + "\n\r" + line.text("\n\rfics% "));
        expectFaces();
        ASSERT_TRUE(board);
        const auto use = std::get<Use>(GetParam());
        EXPECT_EQ(board->game.hand.Dragging, use == Use::PieceInHand || use == Use::SlipDelay) << "in use up to now";
        closeVictim();
        if (std::get<Victim>(GetParam()) == Victim::Another) answer();
    }
    void closeVictim() {
        switch (std::get<Victim>(GetParam())) {
        case Victim::Itself:
            unload(*board);
            break;
        case Victim::Another:
            unload(*rig.boardOf(games.back().number()));
            games.pop_back();
            break;
        case Victim::All:
            while (!rig.boards().empty()) unload(*rig.boards().back());
            games.clear();
            break;
        case Victim::TheProgram:
            rig.client->close();
            games.clear();
            break;
        }
    }
    // As the program closes a window.
    static void unload(const frmChessBoard& closing) {
        for (const OpenWindow& open : openWindows.windows) {
            if (open.window != &closing) continue;
            const auto close = open.unload;
            close();
            return;
        }
    }
    // What is up is answered as a user would.
    static void answer() {
        if (auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget())) {
            menu->actions().front()->trigger();
            menu->close();
        } else if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
            box->button(box->standardButtons() & QMessageBox::Yes ? QMessageBox::Yes : QMessageBox::Ok)->click();
        }
    }

    // Returns when the use is over.
    void use() {
        switch (std::get<Use>(GetParam())) {
        case Use::PieceInHand:
            useHand(0);
            break;
        case Use::SlipDelay:
            useHand(9);
            break;
        case Use::PromotionMenu:
            onceUp();
            drag("a7", "a8");
            untilReached();
            break;
        case Use::PromotionOfDelay: // which the right button ends
            modChess.MouseSlip = 11;
            onceUp();
            drag("a7", "a8");
            rightClick();
            untilReached();
            break;
        case Use::DropMenu:
            board->game.zSetBughouse("<b1> game 77 white [QPPP] black [RB]");
            onceUp();
            rightClick();
            untilReached();
            break;
        case Use::BarMenu:
            clickBar("mnuFile");
            break;
        case Use::LineMenu:
            openLineMenu();
            break;
        case Use::Question:
            boxes.yesNo = Boxes().yesNo;
            boxes.confirm = Boxes().confirm;
            onceUp();
            board->findChild<QPushButton*>(QStringLiteral("cmdDraw"))->click();
            break;
        case Use::CloseQuestion:
            boxes.okCancel = Boxes().okCancel;
            onceUp();
            board->close();
            break;
        case Use::CloseInPress: // the right button is still down when the question comes, behind a menu
            boxes.okCancel = Boxes().okCancel;
            board->game.zSetBughouse("<b1> game 77 white [QPPP] black [RB]");
            QTest::mousePress(board->windowHandle(), Qt::RightButton, {}, at("e4"));
            EXPECT_TRUE(waitUntil([] { return QApplication::activePopupWidget() != nullptr; }));
            onceUp(true);
            board->close();
            release(Qt::RightButton, "e4");
            break;
        case Use::ColourBox:
            boxes.colour = Boxes().colour;
            chooseEntry(*board->findChild<QAction*>(QStringLiteral("mnuColors")));
            onceUp();
            loadedWindow<frmBoardColors>()->findChild<QPushButton*>(QStringLiteral("cmdColor(1)"))->click();
            break;
        }
    }
    // No menu keeps whoever opens it waiting.
    void clickBar(const char* name) {
        onceUp();
        QMenuBar* bar = board->menuBar();
        const QAction* entry = board->findChild<QMenu*>(QString::fromLatin1(name))->menuAction();
        const QPoint middle = bar->actionGeometry(const_cast<QAction*>(entry)).center();
        QTest::mouseClick(board->windowHandle(), Qt::LeftButton, {}, bar->mapTo(board.data(), middle));
        untilReached();
    }
    void untilReached() {
        EXPECT_TRUE(waitUntil([this] { return reached == 1; }));
    }
    void openLineMenu() {
        onceUp();
        auto* txtSend = board->findChild<QWidget*>(QStringLiteral("txtSend"));
        QContextMenuEvent event(QContextMenuEvent::Keyboard, txtSend->rect().center(), txtSend->mapToGlobal(QPoint()));
        QCoreApplication::sendEvent(txtSend, &event);
        untilReached();
    }
    void useHand(std::int16_t slip) {
        modChess.MouseSlip = slip;
        drag("a7", "b8", slip != 0);
        whileUp();
        if (slip != 0) {
            runFor(slipDelay(slip));
        } else {
            release(Qt::LeftButton, "b8");
        }
    }
    // What goes to the server when the use comes to its end.
    static std::string sentBy(Use use) {
        switch (use) {
        case Use::PieceInHand:
        case Use::SlipDelay:
            return "a7-b8";
        case Use::PromotionMenu:
        case Use::PromotionOfDelay:
            return "a7-a8=Q+";
        case Use::DropMenu:
            return "Q@e4";
        case Use::Question:
            return "Draw";
        default:
            return "";
        }
    }

    LineOf line{.relation = 1};
    QPointer<frmChessBoard> board;
    QTimer look;
    int reached = 0;
};

std::string nameOf(const testing::TestParamInfo<std::tuple<Use, Victim>>& info) {
    static const std::array uses{"PieceInHand", "SlipDelay", "PromotionMenu", "PromotionOfDelay", "DropMenu", "BarMenu",
                                 "LineMenu",    "Question",  "CloseQuestion", "CloseInPress",     "ColourBox"};
    static const std::array victims{"ItselfCloses", "AnotherCloses", "AllClose", "TheProgramCloses"};
    return std::string(uses.at(static_cast<std::size_t>(std::get<Use>(info.param)))) +
           victims.at(static_cast<std::size_t>(std::get<Victim>(info.param)));
}

} // namespace

TEST_P(BoardsInUse, NothingIsHarmed) {
    openAll(Others);
    const Use wanted = std::get<Use>(GetParam());
    const bool promoting = wanted == Use::PromotionMenu || wanted == Use::PromotionOfDelay;
    openPlayed(promoting ? "----k--- P------- -------- -------- -------- -------- -------- ----K---"
                         : "-n--k--- B------- -------- -------- -------- -------- -------- ----K---");
    ASSERT_EQ(rig.boards().size(), std::size_t{Forty});
    use();
    runFor(50);
    EXPECT_EQ(reached, 1);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    const auto [use, victim] = GetParam();
    const bool gone = victim != Victim::Another || use == Use::CloseQuestion || use == Use::CloseInPress;
    EXPECT_EQ(board.isNull(), gone);
    const bool sent = victim == Victim::Another && !sentBy(use).empty();
    EXPECT_TRUE(!sent || serverGot(sentBy(use)));
    for (const char* word : {"a7", "Q@", "Draw"}) {
        EXPECT_TRUE(sent || rig.server.received.find(word) == std::string::npos) << word;
    }
    if (victim == Victim::TheProgram) return;
    read(nextOfAll());
    expectFaces();
}

INSTANTIATE_TEST_SUITE_P(
    Such, BoardsInUse,
    testing::Combine(testing::Values(Use::PieceInHand, Use::SlipDelay, Use::PromotionMenu, Use::PromotionOfDelay,
                                     Use::DropMenu, Use::BarMenu, Use::LineMenu, Use::Question, Use::CloseQuestion,
                                     Use::CloseInPress, Use::ColourBox),
                     testing::Values(Victim::Itself, Victim::Another, Victim::All, Victim::TheProgram)),
    nameOf);
