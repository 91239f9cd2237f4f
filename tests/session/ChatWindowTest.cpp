// A chat box as a window: its question, place, look, layout and keys.
#include "session/ChatWindowRig.h"

#include "settings/WindowSettings.h"

#include <QAccessible>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QInputDialog>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTextBrowser>

using std::string;

namespace {

class ChatWindow : public ChatWindowRig {
protected:
    void save(const char* key, const char* text) { values->texts[{"Chat", key}] = text; }
    void saved(const char* left, const char* top) {
        set("Registry_OK", "Yes");
        save("Left", left);
        save("Top", top);
        save("Width", "7500");
        save("Height", "6000");
    }
    static constexpr QSize Designed{420, 300};
};

QColor colorAt(Console& console, int position) {
    console.flush();
    QTextCursor cursor(console.document());
    cursor.setPosition(position + 1);
    return cursor.charFormat().foreground().color();
}

} // namespace

// The question

TEST_F(ChatWindow, ABoxAsksForItsBuddyAMomentAfterItOpened) {
    start();
    modChess.TellTarget = "Bob";
    client->session.zNewChat();
    ASSERT_EQ(chats().size(), 1U);
    EXPECT_TRUE(messages.empty());
    EXPECT_EQ(chats()[0]->box.xBuddy, "");
    EXPECT_EQ(caption(*chats()[0]), "Chat");
    EXPECT_EQ(chats()[0]->findChild<QTimer*>(QStringLiteral("tmrStart"))->interval(), 200);
    ASSERT_TRUE(waitUntil([this] { return !messages.empty(); }));
    EXPECT_EQ(messages[0], "Chat Box: Chat with /Bob");
    runFor(300);
    EXPECT_EQ(messages.size(), 1U) << "once only";
}

TEST_F(ChatWindow, TheQuestionStandsRightOfAndBelowTheCorner) {
    saved("1500", "750");
    start();
    openChat("Bob");
    EXPECT_EQ(askedAt, QPoint(100 + 28, 50 + 14));
}

TEST_F(ChatWindow, TheAnswerNamesTheBoxAndTheTypingLineGetsTheFocus) {
    start();
    const frmChat& chat = openChat("bo");
    EXPECT_EQ(chat.box.xBuddy, "bo");
    EXPECT_EQ(caption(chat), "Chat with bo");
    EXPECT_EQ(chat.focusWidget(), &txtTell(chat));
    EXPECT_EQ(caption(openChat("50")), "Chat on 50");
    EXPECT_EQ(caption(openChat("B")), "Chat on B");
}

TEST_F(ChatWindow, AnEmptyAnswerOrCancelClosesTheBox) {
    start();
    for (const std::optional<std::string>& none : {std::optional<std::string>(""), std::optional<std::string>()}) {
        buddy = none;
        client->session.zNewChat();
        const QPointer<frmChat> chat(chats().back());
        ASSERT_TRUE(waitUntil([&] { return chat.isNull(); }));
        EXPECT_EQ(openWindows.count("frmChat"), 0);
    }
}

TEST_F(ChatWindow, ALineEndInAPastedNameIsNoPartOfIt) {
    start();
    EXPECT_EQ(openChat("Bob\r\n").box.xBuddy, "Bob");
    buddy = "\n";
    client->session.zNewChat();
    EXPECT_TRUE(waitUntil([] { return openWindows.count("frmChat") == 1; }));
}

TEST_F(ChatWindow, ABoxThatIsClosedUnderItsQuestionStaysClosed) {
    start();
    whileAsked = [this] {
        openWindows.windows.back().unload();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    };
    client->session.zNewChat();
    ASSERT_TRUE(waitUntil([this] { return !messages.empty(); }));
    runFor(20);
    EXPECT_EQ(openWindows.count("frmChat"), 0);
}

TEST_F(ChatWindow, ABoxThatIsClosedUnderItsQuestionAndNotGoneYetTakesNoName) {
    start();
    std::string named;
    whileAsked = [] { openWindows.windows.back().unload(); };
    client->session.zNewChat();
    chats()[0]->box.hooks.setCaption = [&named](const std::string& caption) { named = caption; };
    ASSERT_TRUE(waitUntil([this] { return !messages.empty(); }));
    runFor(20);
    EXPECT_EQ(named, "");
}

TEST_F(ChatWindow, ABoxThatIsClosedBeforeItsQuestionDoesNotAsk) {
    start();
    client->session.zNewChat();
    const QPointer<frmChat> chat(chats()[0]);
    chat->close();
    EXPECT_FALSE(chat->findChild<QTimer*>(QStringLiteral("tmrStart"))->isActive());
    runFor(300);
    EXPECT_TRUE(chat.isNull());
    EXPECT_TRUE(messages.empty());
}

TEST_F(ChatWindow, AClosedBoxThatIsNotGoneYetTakesNoTell) {
    start();
    frmChat& chat = openChat("Bob");
    chat.close();
    EXPECT_EQ(openWindows.count("frmChat"), 0);
    modChess.TellTarget = "Bob";
    EXPECT_FALSE(client->session.classifier.hooks.zChatBox("Bob tells you: hi\r\n"));
}

TEST_F(ChatWindow, TheRealQuestionGoesWithTheProgram) {
    boxes.inputAt = Boxes().inputAt;
    start();
    client->session.zNewChat();
    bool asked = false;
    QTimer look; // the question runs the message loop until it is gone
    look.callOnTimeout([&] {
        const QWidget* question = QApplication::activeModalWidget();
        if (!question || asked) return;
        asked = true;
        EXPECT_EQ(question->windowTitle(), QStringLiteral("Chat Box"));
        EXPECT_EQ(question->pos(), chats()[0]->pos() + QPoint(28, 14));
        client->close();
    });
    look.start(5);
    ASSERT_TRUE(waitUntil([&] { return asked; }));
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    EXPECT_EQ(openWindows.count("frmChat"), 0);
}

namespace {

// Real questions, of the boxes in the order of opening; what is up runs the message loop, so a timer looks at them.
class ChatQuestions : public ChatWindow {
protected:
    ChatQuestions() { boxes.inputAt = Boxes().inputAt; }

    static std::vector<QInputDialog*> asked() {
        std::vector<QInputDialog*> found;
        for (const frmChat* chat : chats()) {
            auto* question = chat->findChild<QInputDialog*>();
            if (question && question->isVisible()) found.push_back(question);
        }
        return found;
    }
    // Opens two boxes at once and runs `reply` when both ask.
    void whenBothAsk(const std::function<void()>& reply) {
        start();
        client->session.zNewChat();
        client->session.zNewChat();
        bool both = false;
        QTimer look;
        look.callOnTimeout([&] {
            if (both || asked().size() < 2) return;
            both = true;
            reply();
        });
        look.start(5);
        ASSERT_TRUE(waitUntil([&] { return both && asked().empty(); }));
    }
};

} // namespace

TEST_F(ChatQuestions, OfTwoThatAreUpAtOnceEachNamesItsOwnBox) {
    whenBothAsk([] {
        const auto questions = asked();
        questions[1]->setTextValue(QStringLiteral("Ann"));
        questions[1]->accept();
        questions[0]->setTextValue(QStringLiteral("Bob"));
        questions[0]->accept();
    });
    EXPECT_EQ(chats()[0]->box.xBuddy, "Bob");
    EXPECT_EQ(chats()[1]->box.xBuddy, "Ann");
}

TEST_F(ChatQuestions, OfTwoThatAreUpAtOnceOneMayBeCancelled) {
    whenBothAsk([] {
        const auto questions = asked();
        questions[0]->reject();
        questions[1]->setTextValue(QStringLiteral("Ann"));
        questions[1]->accept();
    });
    ASSERT_TRUE(waitUntil([] { return openWindows.count("frmChat") == 1; }));
    EXPECT_EQ(chats()[0]->box.xBuddy, "Ann");
}

TEST_F(ChatQuestions, TwoThatAreUpGoWithTheProgram) {
    whenBothAsk([this] { client->close(); });
    EXPECT_EQ(openWindows.count("frmChat"), 0);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(ChatQuestions, ATellThatNamesTheBoxMeanwhileIsShownAndTheAnswerStillNamesIt) {
    start();
    client->session.zNewChat();
    QTimer look;
    look.callOnTimeout([] {
        const auto questions = asked();
        if (questions.empty()) return;
        chats()[0]->box.name("Bobby");
        chats()[0]->box.show("hi\r\n", 1000);
        questions[0]->setTextValue(QStringLiteral("Ann"));
        questions[0]->accept();
    });
    look.start(5);
    ASSERT_TRUE(waitUntil([] { return chats()[0]->box.xBuddy == "Ann"; }));
    EXPECT_EQ(caption(*chats()[0]), "Chat with Ann");
    EXPECT_EQ(txtChat(*chats()[0]).text(), "hi\n");
}

// Place

TEST_F(ChatWindow, AFirstBoxStandsAtTheCornerInTheDesignedSize) {
    start();
    client->session.zNewChat();
    EXPECT_EQ(chats()[0]->pos(), QPoint(0, 0));
    EXPECT_EQ(chats()[0]->size(), Designed);
}

TEST_F(ChatWindow, ASavedPlaceIsTaken) {
    saved("1500", "750");
    start();
    client->session.zNewChat();
    EXPECT_EQ(shownAt(*chats()[0]), QRect(100, 50, 500, 400));
}

TEST_F(ChatWindow, APlaceBelow1OrBeyondTheScreenGivesTheCornerAndTheDesignedSize) {
    for (const auto& [left, top] : {std::pair{"0", "750"}, {"750", "0"}, {"-15", "750"}, {"750", "30000"}}) {
        saved(left, top);
        if (!client) start();
        client->session.zNewChat();
        EXPECT_EQ(shownAt(*chats().back()), QRect(QPoint(0, 0), Designed)) << left << " " << top;
    }
}

TEST_F(ChatWindow, BeforeTheFirstExitThePlaceComesFromTheOlderFile) {
    const QString before = QDir::currentPath();
    const QTemporaryDir folder;
    QDir::setCurrent(folder.path());
    QFile file(QStringLiteral("chesschat.def"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("1500,750,7500,6000\r\n");
    file.close();
    save("Left", "3000");
    start();
    client->session.zNewChat();
    EXPECT_EQ(shownAt(*chats()[0]), QRect(100, 50, 500, 400));
    QDir::setCurrent(before);
}

TEST_F(ChatWindow, ClosingSavesThePlace) {
    start();
    client->session.zNewChat();
    put(*chats()[0], {100, 50, 500, 400});
    chats()[0]->close();
    EXPECT_EQ(stored("Chat", "Left"), "1500");
    EXPECT_EQ(stored("Chat", "Top"), "750");
    EXPECT_EQ(stored("Chat", "Width"), "7500");
    EXPECT_EQ(stored("Chat", "Height"), "6000");
}

TEST_F(ChatWindow, AMinimisedBoxIsSavedAsItStoodBefore) {
    start();
    client->session.zNewChat();
    put(*chats()[0], {100, 50, 500, 400});
    const QPointer<frmChat> chat(chats()[0]);
    chat->showMinimized();
    chat->close();
    EXPECT_FALSE(chat->isMinimized()) << "brought back before it is saved";
    EXPECT_EQ(stored("Chat", "Left"), "1500");
    EXPECT_EQ(stored("Chat", "Height"), "6000");
}

// Look and layout

TEST_F(ChatWindow, ColoursAndFontAreThoseOfTheOptions) {
    set("Color_Background", "255");
    set("Color_Bar_Backgnd", "65280");
    set("Color_Type", "16711680");
    set("Color_Tell", "65535");
    set("Main_Font", "DejaVu Serif");
    start();
    frmChat& chat = openChat("Bob");
    EXPECT_EQ(txtChat(chat).palette().color(QPalette::Base), QColor(255, 0, 0));
    EXPECT_EQ(txtTell(chat).palette().color(QPalette::Base), QColor(0, 255, 0));
    EXPECT_EQ(txtTell(chat).palette().color(QPalette::Text), QColor(0, 0, 255));
    EXPECT_EQ(txtTell(chat).font().families().front(), QStringLiteral("DejaVu Serif"));
    EXPECT_EQ(txtChat(chat).font().families().front(), QStringLiteral("DejaVu Serif"));
    txtChat(chat).insert("x");
    EXPECT_EQ(colorAt(txtChat(chat), 0), QColor(255, 255, 0));
}

TEST_F(ChatWindow, TheTypingLineStandsBelowTheConversationAtTheSameWidth) {
    start();
    frmChat& chat = openChat("Bob");
    for (const QSize size : {QSize(420, 300), QSize(700, 150), QSize(180, 400)}) {
        chat.resize(size);
        const QRect conversation = txtChat(chat).geometry();
        const QRect typing = txtTell(chat).geometry();
        EXPECT_EQ(conversation.size(), QSize(size.width() - 8, size.height() - 50));
        EXPECT_EQ(typing.top() - conversation.top(), conversation.height() + 2);
        EXPECT_EQ(typing.left(), conversation.left());
        EXPECT_EQ(typing.width(), conversation.width());
        EXPECT_GE(typing.height(), txtTell(chat).sizeHint().height());
        EXPECT_TRUE(chat.rect().contains(conversation));
        EXPECT_TRUE(chat.rect().contains(typing));
    }
}

TEST_F(ChatWindow, AMinimisedBoxKeepsItsLayout) {
    start();
    frmChat& chat = openChat("Bob");
    const QRect conversation = txtChat(chat).geometry();
    chat.showMinimized();
    chat.resize(300, 200);
    EXPECT_EQ(txtChat(chat).geometry(), conversation);
}

TEST_F(ChatWindow, ABoxIsNeverTooSmallForItsFields) {
    start();
    frmChat& chat = openChat("Bob");
    chat.resize(1, 1);
    EXPECT_EQ(chat.size(), QSize(180, 130));
}

TEST_F(ChatWindow, BothFieldsHaveNamesForAssistiveTools) {
    start();
    const frmChat& chat = openChat("Bob");
    const auto face = [](QWidget& field) { return QAccessible::queryAccessibleInterface(&field); };
    EXPECT_EQ(face(txtChat(chat))->text(QAccessible::Name), QStringLiteral("Conversation"));
    EXPECT_EQ(face(txtTell(chat))->text(QAccessible::Name), QStringLiteral("Tell"));
    EXPECT_TRUE(face(txtChat(chat))->state().readOnly);
    EXPECT_EQ(face(txtChat(chat))->role(), QAccessible::EditableText);
    EXPECT_EQ(face(txtTell(chat))->role(), QAccessible::EditableText);
}

// Keys

TEST_F(ChatWindow, WhatIsTypedInTheConversationLandsInTheTypingLine) {
    start();
    const frmChat& chat = openChat("Bob");
    txtChat(chat).setFocus();
    QTest::keyClicks(&txtChat(chat), QStringLiteral("hit"));
    QTest::keyClick(&txtChat(chat), Qt::Key_Backspace);
    const QString deleted(QChar(127)); // a keyboard's Delete comes with a character
    QTest::sendKeyEvent(QTest::Click, &txtChat(chat), Qt::Key_Delete, deleted, Qt::NoModifier);
    EXPECT_EQ(txtTell(chat).line(), "hi");
    EXPECT_EQ(txtTell(chat).cursorPosition(), 2);
    EXPECT_EQ(txtChat(chat).text(), "");
    EXPECT_EQ(chat.focusWidget(), &txtTell(chat));
}

TEST_F(ChatWindow, UpAndDownWalkTheHistoryInBothFields) {
    start();
    frmChat& chat = openChat("Bob");
    chat.box.zShiftReg("one");
    chat.box.zShiftReg("two");
    const std::initializer_list<QWidget*> fields{&txtTell(chat), &txtChat(chat)};
    for (QWidget* field : fields) {
        txtTell(chat).setLine("edited");
        txtTell(chat).setCursorPosition(0);
        QTest::keyClick(field, Qt::Key_Up);
        QTest::keyClick(field, Qt::Key_Up);
        EXPECT_EQ(txtTell(chat).line(), "one");
        EXPECT_EQ(txtTell(chat).cursorPosition(), 3);
        QTest::keyClick(field, Qt::Key_Down);
        QTest::keyClick(field, Qt::Key_Down);
        EXPECT_EQ(txtTell(chat).line(), "edited");
        EXPECT_EQ(txtTell(chat).cursorPosition(), 6);
    }
}

TEST_F(ChatWindow, PageUpAndPageDownInTheTypingLineScrollTheConversationAndLeaveTheInsertionPoint) {
    start();
    const frmChat& chat = openChat("Bob");
    for (int i = 0; i < 200; ++i) txtChat(chat).insert("line\r\n");
    txtChat(chat).flush();
    const QScrollBar& bar = *txtChat(chat).verticalScrollBar();
    QTest::keyClick(&txtTell(chat), Qt::Key_PageUp);
    EXPECT_EQ(bar.value(), bar.maximum() - bar.pageStep());
    EXPECT_TRUE(txtChat(chat).textCursor().atEnd());
    EXPECT_EQ(chat.focusWidget(), &txtTell(chat));
    QTest::keyClick(&txtTell(chat), Qt::Key_PageDown);
    EXPECT_EQ(bar.value(), bar.maximum());
}

TEST_F(ChatWindow, F1OpensTheHelpFromBothFields) {
    start();
    const frmChat& chat = openChat("Bob");
    const std::initializer_list<QWidget*> fields{&txtTell(chat), &txtChat(chat)};
    for (QWidget* field : fields) {
        QTest::keyClick(field, Qt::Key_F1);
        auto* help = client->findChild<QTextBrowser*>(QStringLiteral("helpFile"));
        ASSERT_NE(help, nullptr);
        EXPECT_TRUE(help->isVisible());
        delete help->window();
    }
}

TEST_F(ChatWindow, TabGoesFromOneFieldToTheOther) {
    start();
    frmChat& chat = openChat("Bob");
    chat.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&chat));
    EXPECT_EQ(QApplication::focusWidget(), &txtTell(chat));
    QTest::keyClick(&txtTell(chat), Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), &txtChat(chat));
    QTest::keyClick(&txtChat(chat), Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), &txtTell(chat));
}

TEST_F(ChatWindow, NotConnectedEnterLeavesTheText) {
    start();
    const frmChat& chat = openChat("Bob");
    QTest::keyClicks(&txtTell(chat), QStringLiteral("hi"));
    QTest::keyClick(&txtTell(chat), Qt::Key_Return);
    EXPECT_EQ(txtTell(chat).line(), "hi");
    EXPECT_EQ(txtChat(chat).text(), "");
}

TEST_F(ChatWindow, EnterInTheConversationTakesTheFocusToTheEndOfTheTypingLineEvenWhileNotConnected) {
    start();
    const frmChat& chat = openChat("Bob");
    txtTell(chat).setLine("hi");
    txtTell(chat).setCursorPosition(0);
    txtChat(chat).setFocus();
    QTest::keyClick(&txtChat(chat), Qt::Key_Return);
    EXPECT_EQ(txtTell(chat).line(), "hi");
    EXPECT_EQ(txtTell(chat).cursorPosition(), 2);
    EXPECT_EQ(chat.focusWidget(), &txtTell(chat));
}

TEST_F(ChatWindow, TextOfTheConversationCanBeCopiedByKeyAndMenu) {
    start();
    const frmChat& chat = openChat("Bob");
    txtChat(chat).insert("copy me");
    txtChat(chat).flush();
    txtChat(chat).selectAll();
    QTest::keyClick(&txtChat(chat), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(txtTell(chat).line(), "");
    QTest::mouseClick(txtChat(chat).viewport(), Qt::RightButton, Qt::NoModifier, {50, 50});
    EXPECT_EQ(txtChat(chat).textCursor().selectedText(), QStringLiteral("copy me"));
}

// The conversation

TEST_F(ChatWindow, MarkupIsShownAsItCame) {
    start();
    frmChat& chat = openChat("Bob");
    chat.box.show("<b>bold</b> &amp; <img src=x>\r\n", 1000);
    EXPECT_EQ(txtChat(chat).text(), "<b>bold</b> &amp; <img src=x>\n");
    chat.box.name("<i>Bob</i>");
    EXPECT_EQ(caption(chat), "Chat with <i>Bob</i>");
}

TEST_F(ChatWindow, AShortConsolePutsTheNextTellIntoTheMidstOfTheConversation) {
    start();
    frmChat& chat = openChat("Bob");
    chat.box.show("first\r\n", 3);
    chat.box.show("X", 1000);
    chat.box.show("last\r\n", 1000);
    EXPECT_EQ(txtChat(chat).text(), "firXst\nlast\n");
}

TEST_F(ChatWindow, AReaderOfOldTextKeepsHisPlaceWhileTellsArrive) {
    start();
    frmChat& chat = openChat("Bob");
    for (int i = 0; i < 200; ++i) chat.box.show("line\r\n", 1000000);
    txtChat(chat).flush();
    QScrollBar* bar = txtChat(chat).verticalScrollBar();
    EXPECT_EQ(bar->value(), bar->maximum()) << "the view follows";
    bar->setValue(10);
    chat.box.show("new\r\n", 1000000);
    txtChat(chat).flush();
    EXPECT_EQ(bar->value(), 10);
    EXPECT_TRUE(txtChat(chat).text().ends_with("line\nnew\n"));
}

TEST_F(ChatWindow, AHundredThousandTellsAreAllShownInOrder) {
    start();
    frmChat& chat = openChat("Bob");
    modChess.TellTarget = "Bob";
    client->session.chatRouting.consoleLength = [] { return std::size_t{100000000}; };
    QElapsedTimer since;
    since.start();
    string expected;
    for (int i = 0; i < 100000; ++i) {
        const string text = "tell number " + std::to_string(i);
        expected += text + "\n";
        ASSERT_TRUE(client->session.classifier.hooks.zChatBox("Bob tells you: " + text + "\r\n"));
        if (i % 100 == 0) QCoreApplication::processEvents();
    }
    EXPECT_TRUE(txtChat(chat).text() == expected);
    RecordProperty("milliseconds", std::to_string(since.elapsed()));
}
