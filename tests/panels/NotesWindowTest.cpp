// The panel of the user's finger notes: what it shows, what it marks, and what its buttons do.
#include "panels/PanelWindowRig.h"

#include <QScreen>

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

namespace {

struct NotesWindow : PanelWindowRig {
    frmNotes& answered() {
        frmNotes& panel = opened<frmNotes>();
        answerNotes({"First", "Second", "", "Fourth"});
        return panel;
    }
};

} // namespace

TEST_F(NotesWindow, OpenedItIsOnTheScreenAtOnceAndAsksFromTheMessageLoop) {
    modChess.NotesText.fill("old");
    open<frmNotes>();
    EXPECT_TRUE(window->isVisible());
    EXPECT_THAT(asked, IsEmpty());
    ASSERT_TRUE(waitUntil([this] { return asked.size() == 2; }));
    EXPECT_THAT(asked, ElementsAre("state 7", "Fi"));
    EXPECT_EQ(modChess.NotesText[4], "");
    EXPECT_EQ(bytesOf(window->windowTitle()), "Variables");
    EXPECT_EQ(text("txtNote(0)"), "");
}

TEST_F(NotesWindow, AnAnswerFillsTheTenLines) {
    answered();
    EXPECT_EQ(text("txtNote(0)"), "First");
    EXPECT_EQ(text("txtNote(2)"), "");
    EXPECT_EQ(text("txtNote(3)"), "Fourth");
    EXPECT_EQ(marked(), "");
    modChess.NotesText[0] = "of the next capture";
    press("cmdCurrent");
    EXPECT_EQ(text("txtNote(0)"), "First") << "the panel has a copy of its own";
}

TEST_F(NotesWindow, AnotherTextMarksItsLabelAndTheSameOneUnmarksIt) {
    answered();
    type("txtNote(3)", "fourth");
    EXPECT_TRUE(red("lblNote(3)"));
    EXPECT_EQ(marked(), "txtNote(3) ");
    type("txtNote(3)", "Fourth");
    EXPECT_FALSE(red("lblNote(3)"));
    type("txtNote(9)", "Tenth");
    type("txtNote(0)", "");
    EXPECT_EQ(marked(), "txtNote(0) txtNote(9) ");
    press("cmdCurrent");
    EXPECT_EQ(marked(), "");
    EXPECT_EQ(text("txtNote(9)"), "");
}

TEST_F(NotesWindow, InADarkPaletteTheMarkIsALighterRed) {
    answered();
    type("txtNote(9)", "Tenth");
    QPalette dark;
    dark.setColor(QPalette::Window, QColor(40, 40, 40));
    window->setPalette(dark);
    EXPECT_EQ(part<QLabel>("lblNote(9)").palette().color(QPalette::WindowText), QColor(255, 128, 128));
}

TEST_F(NotesWindow, OKSendsTheEditedLinesWithPausesAndCloses) {
    answered();
    type("txtNote(9)", "Tenth");
    type("txtNote(0)", "");
    type("txtNote(2)", "Third");
    const auto begin = std::chrono::steady_clock::now();
    press("cmdOK");
    const double took = std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
    EXPECT_THAT(asked, ElementsAre("Set 1 ", "Set 3 Third", "Set 10 Tenth"));
    EXPECT_GE(took, 3 * 0.22);
    EXPECT_EQ(openWindows.count("frmNotes"), 0);
}

TEST_F(NotesWindow, WhatIsPastedWithLineEndsIsOneLine) {
    answered();
    field("txtNote(1)").setText(QStringLiteral("a\nquit\rb"));
    press("cmdOK");
    EXPECT_THAT(asked, ElementsAre("Set 2 a quit b"));
}

TEST_F(NotesWindow, CancelAndEscapeSendNothing) {
    answered();
    type("txtNote(9)", "Tenth");
    press("cmdCancel");
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    answered();
    type("txtNote(9)", "Tenth");
    QTest::keyClick(&field("txtNote(9)"), Qt::Key_Escape);
    EXPECT_THAT(asked, IsEmpty());
    EXPECT_EQ(openWindows.count("frmNotes"), 0);
}

TEST_F(NotesWindow, AnAnswerWithoutAPanelLoadsOneThatIsNotShownAndAsksOnce) {
    answerNotes({"First"});
    window = loadedWindow<frmNotes>();
    ASSERT_FALSE(window.isNull());
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(text("txtNote(0)"), "First");
    ASSERT_TRUE(waitUntil([this] { return asked.size() == 2; }));
    answerNotes({"First"});
    runFor(50);
    EXPECT_THAT(asked, ElementsAre("state 7", "Fi"));
    EXPECT_FALSE(window->isVisible());
}

TEST_F(NotesWindow, BehindTheOtherPanelsAnswerItAsks) {
    busy = true;
    frmICSVars& first = showPanel<frmICSVars>(roads);
    open<frmNotes>();
    QTimer::singleShot(60, window, [this] {
        EXPECT_THAT(asked, IsEmpty());
        busy = false;
    });
    ASSERT_TRUE(waitUntil([this] { return asked.size() == 4; }));
    EXPECT_THAT(asked, UnorderedElementsAre("state 3", "Vars", "state 7", "Fi"));
    delete &first;
}

TEST_F(NotesWindow, ALongNoteShowsItsBeginning) {
    opened<frmNotes>();
    answerNotes({std::string(200, 'x')});
    EXPECT_EQ(field("txtNote(0)").cursorPosition(), 0);
    EXPECT_EQ(text("txtNote(0)").size(), 200U);
}

TEST_F(NotesWindow, EveryByteOfANoteIsShownAndUnmarked) {
    opened<frmNotes>();
    std::string bytes;
    for (int code = 1; code < 256; ++code) bytes += static_cast<char>(code);
    std::erase(bytes, '\r');
    std::erase(bytes, '\n');
    answerNotes({bytes});
    EXPECT_EQ(text("txtNote(0)"), bytes);
    field("txtNote(0)").end(false);
    field("txtNote(0)").insert(QStringLiteral("x"));
    EXPECT_TRUE(red("lblNote(0)"));
    field("txtNote(0)").backspace();
    EXPECT_EQ(marked(), "");
}

TEST_F(NotesWindow, ItStandsWhereItWasLeftAndWritesItsPlace) {
    stored("Notes", "Left", "1500");
    stored("Notes", "Top", "900");
    opened<frmNotes>();
    EXPECT_EQ(window->pos(), QPoint(100, 60));
    window->move(120, 80);
    press("cmdCancel");
    EXPECT_EQ(kept("Notes", "Left"), "1800");
    EXPECT_EQ(kept("Notes", "Top"), "1200");
}

TEST_F(NotesWindow, BeforeTheFirstSaveItsOlderFileIsRead) {
    QFile file(QStringLiteral("notes.def"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("1500,900\r\n");
    file.close();
    opened<frmNotes>();
    EXPECT_EQ(window->pos(), QPoint(100, 60));
}

TEST_F(NotesWindow, AtEverySizeOfTheFontAllIsWholeOnALowScreenAndATypicalNoteFits) {
    const QFont before = QApplication::font();
    for (const int points : {8, 9, 11, 14, 20}) {
        QFont font = before;
        font.setPointSize(points);
        QApplication::setFont(font);
        answered();
        EXPECT_LE(window->width(), 1024) << points;
        EXPECT_LE(window->height(), 600 - 30) << points;
        for (const QWidget* each : window->findChildren<QWidget*>()) {
            EXPECT_GE(each->width(), each->minimumSizeHint().width()) << points << each->objectName().toStdString();
            EXPECT_GE(each->height(), each->minimumSizeHint().height()) << points << each->objectName().toStdString();
        }
        const QLineEdit& note = field("txtNote(0)");
        const int typical = note.fontMetrics().horizontalAdvance(
            QStringLiteral("Current project: opening lines for black against 1. e4"));
        EXPECT_GE(note.width(), std::min(typical, window->screen()->availableSize().width() - 160)) << points;
        delete window.data();
    }
    QApplication::setFont(before);
}

TEST_F(NotesWindow, TabLeadsThroughTheLinesAndTheButtonsAndEachHasAName) {
    answered();
    window->activateWindow();
    field("txtNote(0)").setFocus();
    for (int index = 0; index < 10; ++index) {
        EXPECT_EQ(window->focusWidget()->objectName(), QStringLiteral("txtNote(%1)").arg(index));
        EXPECT_EQ(window->focusWidget()->accessibleName(), QStringLiteral("Note %1").arg(index + 1));
        QTest::keyClick(window->focusWidget(), Qt::Key_Tab);
    }
    EXPECT_EQ(window->focusWidget()->objectName(), QStringLiteral("cmdOK"));
    EXPECT_EQ(part<QLabel>("lblNote(9)").text().remove(u'&'), QStringLiteral("10"));
}
