// The real boxes, answered by key and button, and their replacement.
#include "platform/Boxes.h"

#include "platform/WaitUntil.h"

#include <QAbstractButton>
#include <QApplication>
#include <QColorDialog>
#include <QCursor>
#include <QFile>
#include <QFileDialog>
#include <QInputDialog>
#include <QMenu>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace {

// Hands the next modal box to `answer`; the test fails if none comes up.
class BoxesTest : public testing::Test {
protected:
    void next(const std::function<void(QWidget&)>& answer) {
        QObject::connect(&timer, &QTimer::timeout, &timer, [this, answer] {
            QWidget* box = QApplication::activeModalWidget();
            if (!box) return;
            timer.stop();
            timer.disconnect();
            ++answered;
            answer(*box);
        });
        timer.start(1);
    }

    template <typename Box>
    void nextBox(const std::function<void(Box&)>& answer) {
        next([answer](QWidget& widget) { answer(dynamic_cast<Box&>(widget)); });
    }

    void press(QMessageBox::StandardButton button) {
        nextBox<QMessageBox>([button](QMessageBox& box) { box.button(button)->click(); });
    }

    void nextFile(QFileDialog::AcceptMode mode) {
        nextBox<QFileDialog>([mode](QFileDialog& box) {
            EXPECT_EQ(box.acceptMode(), mode);
            EXPECT_EQ(box.nameFilters().front().toStdString(), "PGN Files (*.pgn)");
            QMetaObject::invokeMethod(&box, "accept");
        });
    }

    std::string inFolder(const char* name) const { return (folder.path() + u'/').toStdString() + name; }

    const QTemporaryDir folder;
    Boxes real;
    QTimer timer;
    int answered = 0;
};

} // namespace

TEST_F(BoxesTest, AMessageShowsTitleAndTextAsPlainTextOverItsParent) {
    QWidget parent;
    parent.show();
    nextBox<QMessageBox>([&](QMessageBox& box) {
        EXPECT_EQ(box.windowTitle().toStdString(), "Brightrank");
        EXPECT_EQ(box.text(), QString::fromLatin1("Server <b>not</b> found\n\xC4"));
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        EXPECT_EQ(box.parentWidget(), &parent);
        box.accept();
    });
    real.message(&parent, "Brightrank", "Server <b>not</b> found\n\xC4");
    EXPECT_EQ(answered, 1);
}

TEST_F(BoxesTest, ABoxOfAControlBelongsToItsWindow) {
    QWidget window;
    QWidget control(&window);
    nextBox<QMessageBox>([&](QMessageBox& box) {
        EXPECT_EQ(box.parentWidget(), &window);
        box.accept();
    });
    real.message(&control, "", "");
    EXPECT_EQ(answered, 1);
}

TEST_F(BoxesTest, YesNoGivesTrueOnYesAndFalseOnNoAndEscape) {
    press(QMessageBox::Yes);
    EXPECT_TRUE(real.yesNo(nullptr, "t", "Reconnect?"));
    press(QMessageBox::No);
    EXPECT_FALSE(real.yesNo(nullptr, "t", "Reconnect?"));
    nextBox<QMessageBox>([](QMessageBox& box) { box.reject(); });
    EXPECT_FALSE(real.yesNo(nullptr, "t", "Reconnect?"));
    EXPECT_EQ(answered, 3);
}

TEST_F(BoxesTest, ConfirmHasNoAsItsDefault) {
    nextBox<QMessageBox>([](QMessageBox& box) {
        EXPECT_EQ(box.defaultButton(), box.button(QMessageBox::No));
        QTest::keyClick(&box, Qt::Key_Return);
    });
    EXPECT_FALSE(real.confirm(nullptr, "t", "Resign"));
    press(QMessageBox::Yes);
    EXPECT_TRUE(real.confirm(nullptr, "t", "Resign"));
    EXPECT_EQ(answered, 2);
}

TEST_F(BoxesTest, OkCancelGivesTrueOnOkOnly) {
    press(QMessageBox::Ok);
    EXPECT_TRUE(real.okCancel(nullptr, "t", "x"));
    press(QMessageBox::Cancel);
    EXPECT_FALSE(real.okCancel(nullptr, "t", "x"));
}

TEST_F(BoxesTest, InputGivesTheTextOrNothingOnCancel) {
    nextBox<QInputDialog>([](QInputDialog& box) {
        EXPECT_EQ(box.windowTitle().toStdString(), "Alternate Server");
        EXPECT_EQ(box.labelText().toStdString(), "Enter IP, Port");
        EXPECT_EQ(box.textValue().toStdString(), "proposal");
        box.setTextValue(QString::fromLatin1("h\xF6st,1"));
        box.accept();
    });
    EXPECT_EQ(real.input(nullptr, "Enter IP, Port", "Alternate Server", "proposal"), "h\xF6st,1");
    nextBox<QInputDialog>([](QInputDialog& box) { box.reject(); });
    EXPECT_EQ(real.input(nullptr, "p", "t", ""), std::nullopt);
    nextBox<QInputDialog>([](QInputDialog& box) { box.accept(); });
    EXPECT_EQ(real.input(nullptr, "p", "t", ""), "") << "an empty answer is an answer";
}

TEST_F(BoxesTest, ColoursCountRedInTheLowestByte) {
    nextBox<QColorDialog>([](QColorDialog& box) {
        EXPECT_EQ(box.currentColor(), QColor(0x31, 0x22, 0x13));
        box.setCurrentColor(QColor(1, 2, 3));
        box.accept();
    });
    EXPECT_EQ(real.colour(nullptr, 0x132231), 0x030201);
    nextBox<QColorDialog>([](QColorDialog& box) { box.reject(); });
    EXPECT_EQ(real.colour(nullptr, 0), std::nullopt);
}

TEST_F(BoxesTest, AFileToSaveComesBackWithItsPath) {
    nextFile(QFileDialog::AcceptSave);
    EXPECT_EQ(real.fileSave(nullptr, "Save", inFolder("new.pgn"), "PGN Files (*.pgn)"), inFolder("new.pgn"));
}

TEST_F(BoxesTest, ANameTypedWithoutAnEndingGetsThatOfTheFilter) {
    const auto typed = [this](const char* name, const char* filter) {
        nextBox<QFileDialog>([name](QFileDialog& box) {
            box.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(QString::fromLatin1(name));
            QMetaObject::invokeMethod(&box, "accept");
        });
        return real.fileSave(nullptr, "Save", inFolder("new.pgn"), filter);
    };
    EXPECT_EQ(typed("mine", "PGN Files (*.pgn)"), inFolder("mine.pgn"));
    EXPECT_EQ(typed("mine.txt", "PGN Files (*.pgn)"), inFolder("mine.txt"));
    EXPECT_EQ(typed("mine", "All Files (*)"), inFolder("mine"));
}

TEST_F(BoxesTest, AFileToOpenComesBackWithItsPath) {
    QFile file(QString::fromStdString(inFolder("old.pgn")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    nextFile(QFileDialog::AcceptOpen);
    EXPECT_EQ(real.fileOpen(nullptr, "Open", inFolder("old.pgn"), "PGN Files (*.pgn)"), inFolder("old.pgn"));
}

TEST_F(BoxesTest, AFolderComesBackWithItsPath) {
    nextBox<QFileDialog>([](QFileDialog& box) { QMetaObject::invokeMethod(&box, "accept"); });
    EXPECT_EQ(real.folder(nullptr, "Folder", folder.path().toStdString()), folder.path().toStdString());
}

TEST_F(BoxesTest, NoFileAndNoFolderComesBackOnCancel) {
    const auto cancel = [this] { nextBox<QFileDialog>([](QFileDialog& box) { box.reject(); }); };
    cancel();
    EXPECT_EQ(real.fileOpen(nullptr, "Open", inFolder("old.pgn"), "All Files (*)"), std::nullopt);
    cancel();
    EXPECT_EQ(real.fileSave(nullptr, "Save", inFolder("new.pgn"), "All Files (*)"), std::nullopt);
    cancel();
    EXPECT_EQ(real.folder(nullptr, "Folder", folder.path().toStdString()), std::nullopt);
}

TEST_F(BoxesTest, ABoxWhoseParentDiesMeanwhileAnswersNo) {
    auto* parent = new QWidget;
    next([&](QWidget&) { delete parent; });
    EXPECT_FALSE(real.yesNo(parent, "t", "x"));
    auto* second = new QWidget;
    next([&](QWidget&) { delete second; });
    EXPECT_EQ(real.input(second, "p", "t", "x"), std::nullopt);
}

// A board that closes takes the dialog along over which its colour box is up.
TEST_F(BoxesTest, ADialogOfTheToolkitWhoseParentDiesMeanwhileGivesNothing) {
    const auto underParent = [this](const auto& box) {
        auto* parent = new QWidget;
        next([parent](QWidget&) { delete parent; });
        return box(parent);
    };
    const std::string start = inFolder("x.pgn");
    const std::string filter = "PGN Files (*.pgn)";
    EXPECT_EQ(underParent([&](QWidget* over) { return real.colour(over, 0x102030); }), std::nullopt);
    EXPECT_EQ(underParent([&](QWidget* over) { return real.fileOpen(over, "t", start, filter); }), std::nullopt);
    EXPECT_EQ(underParent([&](QWidget* over) { return real.fileSave(over, "t", start, filter); }), std::nullopt);
    EXPECT_EQ(underParent([&](QWidget* over) { return real.folder(over, "t", start); }), std::nullopt);
    EXPECT_EQ(answered, 4);
}

// The dialog's question stands on the dialog's stack.
TEST_F(BoxesTest, AWindowThatDiesUnderTheQuestionOfItsFileDialogTakesBothAlong) {
    QFile file(QString::fromStdString(inFolder("old.pgn")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    auto* parent = new QWidget;
    parent->show();
    next([this, parent](QWidget& dialog) {
        next([parent](QWidget& question) {
            EXPECT_NE(dynamic_cast<QMessageBox*>(&question), nullptr);
            delete parent;
        });
        QMetaObject::invokeMethod(&dialog, "accept");
    });
    EXPECT_EQ(real.fileSave(parent, "Save", inFolder("old.pgn"), "PGN Files (*.pgn)"), std::nullopt);
    EXPECT_EQ(answered, 2);
}

TEST_F(BoxesTest, ATestReplacesABoxByItsNextAnswer) {
    const Boxes before = boxes;
    boxes.yesNo = [](QWidget*, const std::string&, const std::string& text) { return text == "Sure?"; };
    EXPECT_TRUE(boxes.yesNo(nullptr, "", "Sure?"));
    boxes = before;
}

// Popup menus

namespace {

// A menu of two entries, and what it was answered with.
class PopupTest : public testing::Test {
protected:
    void ask() {
        real.popup(menu, [this](QAction* chosen) {
            EXPECT_FALSE(menu.isVisible()) << "the menu is down by then";
            answers.push_back(chosen ? chosen->text().toStdString() : "none");
        });
    }
    bool isUp() {
        return waitUntil([this] { return menu.isVisible(); });
    }
    bool isAnswered() {
        return waitUntil([this] { return !answers.empty(); });
    }
    void askAndPress(Qt::Key key) {
        ask();
        ASSERT_TRUE(isUp());
        QTest::keyClick(&menu, key);
        ASSERT_TRUE(isAnswered());
    }

    using Answers = std::vector<std::string>;
    Boxes real;
    QMenu menu;
    QAction* one = menu.addAction(QStringLiteral("&One"));
    QAction* two = menu.addAction(QStringLiteral("&Two"));
    Answers answers;
};

} // namespace

TEST_F(PopupTest, TheMenuComesUpFromTheMessageLoopOnly) {
    ask();
    EXPECT_FALSE(menu.isVisible());
    EXPECT_TRUE(isUp());
    menu.hide();
}

TEST_F(PopupTest, AKeyAnswersWithItsEntryWhichHasAnnouncedItselfByThen) {
    Answers announced;
    QObject::connect(two, &QAction::triggered, &menu, [&] {
        EXPECT_TRUE(answers.empty());
        announced.emplace_back("&Two");
    });
    askAndPress(Qt::Key_T);
    EXPECT_EQ(announced, answers);
}

TEST_F(PopupTest, AClickAnswersWithItsEntry) {
    ask();
    ASSERT_TRUE(isUp());
    QTest::mouseClick(&menu, Qt::LeftButton, {}, menu.actionGeometry(two).center());
    EXPECT_TRUE(isAnswered());
    EXPECT_EQ(answers, Answers{"&Two"});
}

TEST_F(PopupTest, EscapeAnswersWithNone) {
    askAndPress(Qt::Key_Escape);
    EXPECT_EQ(answers, Answers{"none"});
}

TEST_F(PopupTest, TheAnswerComesFromTheMessageLoopAndNotFromTheMenusOwnEvent) {
    ask();
    ASSERT_TRUE(isUp());
    QTest::keyClick(&menu, Qt::Key_O);
    EXPECT_FALSE(menu.isVisible());
    EXPECT_TRUE(answers.empty());
    EXPECT_TRUE(isAnswered());
    EXPECT_EQ(answers, Answers{"&One"});
}

TEST_F(PopupTest, OneMenuServesAgainAndAgain) {
    for (const Qt::Key key : {Qt::Key_O, Qt::Key_Escape, Qt::Key_T}) {
        const std::size_t before = std::exchange(answers, {}).size();
        askAndPress(key);
        EXPECT_LE(before, 1U);
    }
    EXPECT_EQ(answers, Answers{"&Two"});
}

TEST_F(PopupTest, ItComesUpAtThePointer) {
    for (const QPoint& place : {QPoint(120, 70), QPoint(200, 111)}) {
        ask();
        QCursor::setPos(place); // where it is when the menu shows
        ASSERT_TRUE(isUp());
        EXPECT_EQ(menu.pos(), place);
        menu.hide();
        EXPECT_TRUE(isAnswered());
        answers.clear();
    }
}

TEST_F(PopupTest, AskedForTwiceBeforeItShowsItAnswersTheLastOnly) {
    real.popup(menu, [](QAction*) { ADD_FAILURE() << "overtaken"; });
    askAndPress(Qt::Key_O);
    runFor(20);
    EXPECT_EQ(answers, Answers{"&One"});
    EXPECT_FALSE(menu.isVisible());
}

TEST_F(PopupTest, AskedForAgainWhileItIsUpItShowsAnewAndAnswersTheLastOnly) {
    QCursor::setPos(120, 70);
    real.popup(menu, [](QAction*) { ADD_FAILURE() << "overtaken"; });
    ASSERT_TRUE(isUp());
    QCursor::setPos(200, 111);
    ask();
    EXPECT_FALSE(menu.isVisible());
    ASSERT_TRUE(isUp());
    EXPECT_EQ(menu.pos(), QPoint(200, 111));
    runFor(20);
    EXPECT_TRUE(answers.empty());
    QTest::keyClick(&menu, Qt::Key_T);
    EXPECT_TRUE(isAnswered());
    EXPECT_EQ(answers, Answers{"&Two"});
}

TEST_F(PopupTest, AnAnswerMayAskAgain) {
    real.popup(menu, [this](QAction*) { ask(); });
    ASSERT_TRUE(isUp());
    menu.hide();
    ASSERT_TRUE(isUp());
    QTest::keyClick(&menu, Qt::Key_O);
    EXPECT_TRUE(isAnswered());
    EXPECT_EQ(answers, Answers{"&One"});
}

TEST_F(PopupTest, NothingIsLeftBehindTheAnswer) {
    const auto children = menu.children();
    const auto kept = std::make_shared<int>();
    {
        const std::function<void(QAction*)> ofTheCaller = [this, kept](QAction*) { answers.emplace_back("one"); };
        real.popup(menu, ofTheCaller);
    }
    EXPECT_GT(kept.use_count(), 1);
    ASSERT_TRUE(isUp());
    menu.hide();
    EXPECT_TRUE(isAnswered());
    EXPECT_TRUE(waitUntil([&] { return kept.use_count() == 1; }));
    EXPECT_EQ(menu.children(), children);
    one->trigger();
    menu.popup(QPoint());
    menu.hide();
    runFor(20);
    EXPECT_EQ(answers, Answers{"one"}) << "what the menu does unasked is no answer";
}

TEST_F(PopupTest, AMenuThatDiesBeforeItShowsWhileItIsUpOrBeforeItsAnswerNeverAnswers) {
    for (const int deaths : {0, 1, 2}) {
        auto* mortal = new QMenu;
        mortal->addAction(QStringLiteral("&One"));
        real.popup(*mortal, [](QAction*) { ADD_FAILURE() << "the menu has gone"; });
        if (deaths > 0) {
            ASSERT_TRUE(waitUntil([mortal] { return mortal->isVisible(); }));
        }
        if (deaths > 1) QTest::keyClick(mortal, Qt::Key_O);
        delete mortal;
        runFor(20);
        EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    }
}
