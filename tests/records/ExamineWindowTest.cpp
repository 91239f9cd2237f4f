// The panel that evaluates a player: what its buttons send, its box of the game, what it keeps, and where it stands.
#include "platform/Boxes.h"
#include "platform/LoadedWindow.h"
#include "platform/Spoken.h"
#include "platform/WaitUntil.h"
#include "records/frmExamine.h"

#include "common/modChess.h"

#include <QElapsedTimer>
#include <QPointer>
#include <QScreen>
#include <QTest>
#include <QTimer>

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class ExamineWindow : public testing::Test {
protected:
    ExamineWindow() {
        modChess = {};
        openWindows.windows.clear();
        board->setGeometry(100, 50, 400, 300);
        board->show(); // else it has no frame
        boxes.fileSave = [this](QWidget* parent, const std::string&, const std::string&, const std::string& filter) {
            dialogs.push_back(filter);
            dialogParent = parent;
            if (whileSaving) whileSaving();
            return file;
        };
    }
    ~ExamineWindow() override {
        delete panel.data();
        delete board.data();
        boxes = Boxes();
        modChess = {};
        openWindows.windows.clear();
    }

    frmExamine& open(std::int32_t id = 7) {
        panel = &frmExamine::showIt(roads, id);
        return *panel;
    }
    template <typename Part>
    Part& part(const char* name) const {
        return *panel->findChild<Part*>(QString::fromLatin1(name));
    }
    void press(const char* name) { part<QPushButton>(name).click(); }
    void set(const char* name, const char* text) { part<QLineEdit>(name).setText(QString::fromLatin1(text)); }
    std::string text(const char* name) const { return part<QLineEdit>(name).text().toStdString(); }
    int bar() const { return part<QScrollBar>("vscGame").value(); }
    std::string frame() const { return part<QGroupBox>("frmGame").title().toStdString(); }

    QPointer<QWidget> board{new QWidget};
    std::vector<std::string> sent;
    std::vector<std::string> dialogs;
    QPointer<QWidget> dialogParent;
    std::optional<std::string> file = "/games/new.pgn";
    std::function<void()> whileSaving;
    std::string handle = "anders";
    ExamineRoads roads{
        .board = [this](std::int32_t id) { return id == 7 ? board.data() : nullptr; },
        .handle = [this] { return handle; },
        .zSendMsg = [this](const std::string& text) { sent.push_back(text); },
        .zGetMoves =
            [this](std::int16_t relation, const std::string& arguments) {
                sent.push_back("moves " + std::to_string(relation) + " " + arguments + " for " +
                               std::to_string(modChess.MovesTarget));
            },
    };
    QPointer<frmExamine> panel;
};

} // namespace

// Opening

TEST_F(ExamineWindow, IsCaptionedAndHoldsTheUsersHandleAndGame0) {
    open();
    EXPECT_EQ(panel->windowTitle(), QStringLiteral("Evaluate Player"));
    EXPECT_EQ(text("txtHandle"), "anders");
    EXPECT_EQ(part<QLineEdit>("txtHandle").cursorPosition(), 6);
    EXPECT_FALSE(part<QLineEdit>("txtHandle").hasSelectedText()) << "what is typed goes behind it";
    EXPECT_EQ(text("txtGame"), "0");
    EXPECT_EQ(bar(), 0);
    EXPECT_EQ(frame(), "Game");
    EXPECT_EQ(part<QGroupBox>("fraShow").title(), QStringLiteral("Show Player's"));
    EXPECT_EQ(panel->frmCBx, 7);
}

TEST_F(ExamineWindow, TheUsersHandleTakesThePlaceOfTheKeptOne) {
    modChess.ExamineHandle = "berta";
    open();
    EXPECT_EQ(text("txtHandle"), "anders");
    delete panel.data();
    handle.clear();
    open();
    EXPECT_EQ(text("txtHandle"), "") << "even if he has none";
}

TEST_F(ExamineWindow, TheKeptGameComesBack) {
    modChess.ExamineGame = "17";
    open();
    EXPECT_EQ(text("txtGame"), "17");
    EXPECT_EQ(bar(), 17);
    EXPECT_EQ(frame(), "Game 17");
}

TEST_F(ExamineWindow, OpenedAgainItIsTheSameAndForTheOtherBoard) {
    open();
    set("txtHandle", "carla");
    panel->move(20, 20);
    frmExamine& again = frmExamine::showIt(roads, 9);
    EXPECT_EQ(&again, panel);
    EXPECT_EQ(panel->frmCBx, 9);
    EXPECT_EQ(text("txtHandle"), "carla");
    EXPECT_EQ(panel->pos(), QPoint(20, 20)) << "it stays where it is";
    EXPECT_EQ(openWindows.count("frmExamine"), 1);
}

TEST_F(ExamineWindow, TheProgramCanUnloadIt) {
    open();
    openWindows.unload("frmExamine");
    EXPECT_EQ(openWindows.count("frmExamine"), 0);
    EXPECT_EQ(loadedWindow<frmExamine>(), nullptr);
}

// Commands

TEST_F(ExamineWindow, TheFourListsAreAskedForByHandle) {
    open();
    set("txtHandle", "Berta");
    for (const char* name : {"cmdHistory", "cmdJournal", "cmdStored", "cmdStats"}) press(name);
    EXPECT_THAT(sent, ElementsAre("history Berta", "journal Berta", "stored Berta", "fi Berta"));
}

TEST_F(ExamineWindow, MovesAndMailNameTheGameToo) {
    open();
    set("txtHandle", "Berta");
    set("txtGame", "12");
    press("cmdMoves");
    press("cmdMail");
    press("cmdUnEx");
    EXPECT_THAT(sent, ElementsAre("smoves Berta 12", "Mailstored Berta 12", "unex"));
}

TEST_F(ExamineWindow, ItsButtonsHaveTheirCaptions) {
    open();
    const std::vector<std::pair<const char*, const char*>> captions{
        {"cmdHistory", "History"}, {"cmdJournal", "Journal"}, {"cmdStored", "Stored"}, {"cmdStats", "Stats"},
        {"cmdMoves", "Moves"},     {"cmdMail", "MailStored"}, {"cmdGame", "Examine"},  {"cmdUnEx", "UnExamine"},
        {"cmdPGN", "Save PGN"},    {"cmdExit", "Exit"}};
    for (const auto& [name, caption] : captions) {
        EXPECT_EQ(part<QPushButton>(name).text().remove(u'&').toStdString(), caption);
    }
    EXPECT_EQ(panel->findChildren<QPushButton*>().size(), 10);
}

TEST_F(ExamineWindow, ExamineLeavesTheGameBeforeAndWaits550Milliseconds) {
    open();
    bool ran = false;
    QTimer::singleShot(100, panel, [&] {
        ran = true;
        EXPECT_THAT(sent, ElementsAre("unex"));
    });
    QElapsedTimer time;
    time.start();
    press("cmdGame");
    EXPECT_GE(time.elapsed(), 550);
    EXPECT_TRUE(ran) << "the message loop runs meanwhile";
    EXPECT_THAT(sent, ElementsAre("unex", "ex anders 0"));
}

TEST_F(ExamineWindow, ExamineSendsWhatStandsInTheBoxesAfterTheWait) {
    open();
    QTimer::singleShot(50, panel, [this] { set("txtHandle", "carla"); });
    press("cmdGame");
    EXPECT_THAT(sent, ElementsAre("unex", "ex carla 0"));
}

TEST_F(ExamineWindow, ThatIsClosedDuringTheWaitSendsWhatStoodThere) {
    open();
    set("txtGame", "5");
    QTimer::singleShot(50, panel, [this] { delete panel.data(); });
    press("cmdGame");
    EXPECT_TRUE(panel.isNull());
    EXPECT_THAT(sent, ElementsAre("unex", "ex anders 5"));
}

TEST_F(ExamineWindow, ABreakThatWasPastedIsABlank) {
    open();
    set("txtHandle", "a\nquit");
    press("cmdStats");
    EXPECT_THAT(sent, ElementsAre("fi a quit"));
}

// Save PGN

TEST_F(ExamineWindow, SavePgnAsksForTheMovesForAFile) {
    open();
    set("txtHandle", "Berta");
    set("txtGame", "A");
    press("cmdPGN");
    EXPECT_THAT(dialogs, ElementsAre("PGN Files (*.pgn)"));
    EXPECT_EQ(dialogParent, board) << "the dialog is the board's";
    EXPECT_EQ(modChess.MovesFile, "/games/new.pgn");
    EXPECT_THAT(sent, ElementsAre("moves 100 Berta A for -1"));
}

TEST_F(ExamineWindow, SavePgnWithoutAFileLeavesTheTarget) {
    open();
    modChess.MovesTarget = 12;
    modChess.MovesFile = "before";
    file.reset();
    press("cmdPGN");
    EXPECT_THAT(sent, IsEmpty());
    EXPECT_EQ(modChess.MovesTarget, 12);
    EXPECT_EQ(modChess.MovesFile, "");
}

TEST_F(ExamineWindow, SavePgnWithoutItsBoardDoesNothing) {
    open();
    modChess.MovesFile = "before";
    panel->frmCBx = 8;
    press("cmdPGN");
    EXPECT_THAT(dialogs, IsEmpty());
    EXPECT_EQ(modChess.MovesFile, "before");
    EXPECT_THAT(sent, IsEmpty());
}

TEST_F(ExamineWindow, ThatGoesWhileItsDialogIsUpAsksForNothing) {
    open();
    whileSaving = [this] { delete panel.data(); };
    press("cmdPGN");
    EXPECT_THAT(sent, IsEmpty());
    EXPECT_EQ(modChess.MovesTarget, 0);
}

// The game

TEST_F(ExamineWindow, TheFrameFollowsTheGame) {
    open();
    set("txtGame", "12");
    EXPECT_EQ(frame(), "Game 12");
    set("txtGame", "x1");
    EXPECT_EQ(frame(), "Game X1");
}

TEST_F(ExamineWindow, ALetterBecomesACapitalAndLeavesTheBar) {
    open();
    set("txtGame", "7");
    part<QLineEdit>("txtGame").selectAll();
    QTest::keyClicks(&part<QLineEdit>("txtGame"), QStringLiteral("a"));
    EXPECT_EQ(text("txtGame"), "A");
    EXPECT_EQ(bar(), 7);
    QTest::keyClicks(&part<QLineEdit>("txtGame"), QStringLiteral("bc"));
    EXPECT_EQ(text("txtGame"), "ABC") << "typing goes on behind it";
}

TEST_F(ExamineWindow, ANumberUpTo99MovesTheBar) {
    open();
    for (const int number : {1, 42, 99, 0}) {
        set("txtGame", std::to_string(number).c_str());
        EXPECT_EQ(bar(), number);
        EXPECT_EQ(text("txtGame"), std::to_string(number));
    }
}

TEST_F(ExamineWindow, ANumberBeyondTheBarStaysInTheBox) {
    open();
    set("txtGame", "42");
    for (const char* number : {"100", "-1", "99.5", "1e9"}) {
        set("txtGame", number);
        EXPECT_EQ(text("txtGame"), number);
        EXPECT_EQ(bar(), 42);
    }
}

TEST_F(ExamineWindow, TheBarWritesItsNumberIntoTheBox) {
    open();
    part<QScrollBar>("vscGame").triggerAction(QAbstractSlider::SliderSingleStepAdd);
    EXPECT_EQ(text("txtGame"), "1");
    part<QScrollBar>("vscGame").setValue(57);
    EXPECT_EQ(text("txtGame"), "57");
    EXPECT_EQ(part<QLineEdit>("txtGame").cursorPosition(), 2);
    EXPECT_EQ(part<QScrollBar>("vscGame").minimum(), 0);
    EXPECT_EQ(part<QScrollBar>("vscGame").maximum(), 99);
}

TEST_F(ExamineWindow, AnEmptyBoxCountsAs0) {
    open();
    set("txtGame", "");
    EXPECT_EQ(text("txtGame"), "") << "the bar stood there already";
    EXPECT_EQ(frame(), "Game ");
    set("txtGame", "5");
    set("txtGame", "");
    EXPECT_EQ(bar(), 0);
    EXPECT_EQ(text("txtGame"), "0") << "the bar writes where it has gone";
}

// Exit

TEST_F(ExamineWindow, ExitKeepsBothTexts) {
    open();
    set("txtHandle", "Berta");
    set("txtGame", "B");
    press("cmdExit");
    EXPECT_EQ(modChess.ExamineHandle, "Berta");
    EXPECT_EQ(modChess.ExamineGame, "B");
    EXPECT_EQ(loadedWindow<frmExamine>(), nullptr);
    EXPECT_THAT(sent, IsEmpty());
}

TEST_F(ExamineWindow, ClosedInAnotherWayItKeepsNothing) {
    open();
    set("txtGame", "B");
    panel->close();
    EXPECT_EQ(modChess.ExamineGame, "");
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    open();
    QTest::keyClick(&part<QLineEdit>("txtHandle"), Qt::Key_Escape);
    EXPECT_EQ(modChess.ExamineHandle, "");
    EXPECT_EQ(loadedWindow<frmExamine>(), nullptr);
}

// The keyboard and screen readers

TEST_F(ExamineWindow, EnterPressesTheButtonInFocusAndNoOther) {
    open();
    QTest::keyClick(&part<QLineEdit>("txtHandle"), Qt::Key_Return);
    EXPECT_THAT(sent, IsEmpty());
    part<QPushButton>("cmdStats").setFocus();
    QTest::keyClick(&part<QPushButton>("cmdStats"), Qt::Key_Return);
    EXPECT_THAT(sent, ElementsAre("fi anders"));
}

TEST_F(ExamineWindow, TabReachesEveryControl) {
    open();
    std::vector<QWidget*> reached;
    QWidget* first = &part<QLineEdit>("txtHandle");
    QWidget* next = first;
    do {
        if ((next->focusPolicy() & Qt::TabFocus) != 0) reached.push_back(next);
        next = next->nextInFocusChain();
    } while (next != first);
    EXPECT_EQ(reached.size(), 13U);
}

TEST_F(ExamineWindow, NoTwoControlsShareALetter) {
    open();
    std::map<QChar, int> letters;
    const auto count = [&letters](const QString& caption) {
        const auto place = caption.indexOf(u'&');
        if (place >= 0) ++letters[caption[place + 1].toLower()];
    };
    for (const auto* button : panel->findChildren<QPushButton*>()) count(button->text());
    for (const auto* label : panel->findChildren<QLabel*>()) count(label->text());
    EXPECT_EQ(letters.size(), 12U);
}

TEST_F(ExamineWindow, ScreenReadersHearWhatEachControlIs) {
    open();
    EXPECT_EQ(spokenText(part<QLineEdit>("txtHandle"), QAccessible::Name), QStringLiteral("Handle"));
    EXPECT_EQ(spokenText(part<QLineEdit>("txtGame"), QAccessible::Name), QStringLiteral("Game"));
    EXPECT_EQ(spokenText(part<QScrollBar>("vscGame"), QAccessible::Name), QStringLiteral("Game number"));
    EXPECT_EQ(spokenText(part<QPushButton>("cmdUnEx"), QAccessible::Name), QStringLiteral("UnExamine"));
}

// Its place

TEST_F(ExamineWindow, StandsBesideItsBoardOrWithinItAndOnItsScreen) {
    for (QScreen* screen : QGuiApplication::screens()) {
        const QRect area = screen->availableGeometry();
        board->setScreen(screen);
        const auto placeBeside = [&](const QRect& at) {
            delete panel.data();
            board->setGeometry(at);
            open();
            const QRect frame = panel->frameGeometry();
            EXPECT_TRUE(board->screen()->availableGeometry().contains(frame))
                << screen->name().toStdString() << ": " << frame.x() << " " << frame.y() << " " << frame.width() << " "
                << frame.height();
            return panel->frameGeometry();
        };
        const QSize size(area.width() / 2, area.height() / 2);
        const QRect left(area.topLeft(), size);
        EXPECT_GT(placeBeside(left).left(), left.right()) << "to the right of it";
        EXPECT_EQ(placeBeside(left).top(), left.top());
        const QRect right(area.topRight() - QPoint(size.width(), 0), size);
        EXPECT_LT(placeBeside(right).right(), right.left()) << "to the left of it";
        const QRect whole = placeBeside(area);
        EXPECT_TRUE(area.contains(whole)) << "within it";
        placeBeside({area.bottomLeft() - QPoint(0, 40), size});
        placeBeside({area.topLeft() - QPoint(300, 300), size});
        placeBeside({area.topLeft() - QPoint(size.width() + 100, 0), size});
    }
}

TEST_F(ExamineWindow, WithoutItsBoardItOpensAllTheSame) {
    open(8);
    press("cmdStats");
    EXPECT_THAT(sent, ElementsAre("fi anders"));
}
