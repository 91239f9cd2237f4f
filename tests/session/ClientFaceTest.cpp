// How the console window meets assistive tools, the keyboard, narrow windows and large letters.
#include "session/ClientRig.h"

#include <QAccessible>
#include <QRegularExpression>
#include <QScrollBar>
#include <QTextBrowser>

namespace {

class ClientFace : public ClientRig {
protected:
    void startActive() {
        for (int index = 0; index < 10; ++index) {
            const std::string digit = std::to_string(index);
            set("Tell_" + digit, "command " + digit);
        }
        connected();
        client->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(client.get()));
    }
    void fillConsole() const {
        for (int i = 0; i < 500; ++i) txtOutput().insert("line\r\n");
        txtOutput().flush();
    }
    QScrollBar& bar() const { return *txtOutput().verticalScrollBar(); }
    void press(Qt::Key key, Qt::KeyboardModifiers with = {}) const {
        QTest::keyClick(QApplication::focusWidget(), key, with);
    }
};

const QStringList Buttons{QStringLiteral("cmdTell(0)"), QStringLiteral("cmdTell(1)"), QStringLiteral("cmdTell(2)"),
                          QStringLiteral("cmdTell(3)"), QStringLiteral("cmdTell(4)"), QStringLiteral("cmdTell(5)"),
                          QStringLiteral("cmdTell(6)"), QStringLiteral("cmdTell(7)"), QStringLiteral("cmdTell(8)"),
                          QStringLiteral("cmdTell(9)"), QStringLiteral("cmdAcc"),     QStringLiteral("cmdDec"),
                          QStringLiteral("cmdChat")};

std::string nameOf(QWidget& widget) {
    return QAccessible::queryAccessibleInterface(&widget)->text(QAccessible::Name).toStdString();
}

QAccessible::Role roleOf(QWidget& widget) { return QAccessible::queryAccessibleInterface(&widget)->role(); }

} // namespace

// Assistive tools

TEST_F(ClientFace, ConsoleAndLineHaveNamesAndRoles) {
    start();
    EXPECT_EQ(nameOf(txtOutput()), "Console");
    EXPECT_EQ(roleOf(txtOutput()), QAccessible::EditableText);
    EXPECT_TRUE(QAccessible::queryAccessibleInterface(&txtOutput())->state().readOnly);
    EXPECT_EQ(nameOf(txtSend()), "Command line");
    EXPECT_EQ(roleOf(txtSend()), QAccessible::EditableText);
}

TEST_F(ClientFace, TheConsolesTextCanBeRead) {
    start();
    txtOutput().insert("Bob tells you: hi\r\n");
    txtOutput().flush();
    QAccessibleTextInterface* text = QAccessible::queryAccessibleInterface(&txtOutput())->textInterface();
    ASSERT_NE(text, nullptr);
    EXPECT_EQ(text->text(0, text->characterCount()), QStringLiteral("Bob tells you: hi\n"));
}

TEST_F(ClientFace, AMaskedLineIsAPasswordsField) {
    start();
    client->session.logOn.hooks.maskTyping();
    EXPECT_TRUE(QAccessible::queryAccessibleInterface(&txtSend())->state().passwordEdit);
}

TEST_F(ClientFace, ThePromptIsReadAsItStandsAndSaysWhatItIs) {
    start();
    client->session.pipeline.hooks.setPromptCaption("fics% ");
    EXPECT_EQ(nameOf(lblPrompt()), "fics% ");
    EXPECT_EQ(roleOf(lblPrompt()), QAccessible::StaticText);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&lblPrompt())->text(QAccessible::Description),
              QStringLiteral("Prompt of the server"));
}

TEST_F(ClientFace, EveryButtonHasANameAndARole) {
    start();
    std::vector<std::string> names;
    for (const QString& each : Buttons) {
        names.push_back(nameOf(button(each)));
        EXPECT_EQ(roleOf(button(each)), QAccessible::Button) << each.toStdString();
    }
    EXPECT_EQ(names,
              (std::vector<std::string>{"Button command 1", "Button command 2", "Button command 3", "Button command 4",
                                        "Button command 5", "Button command 6", "Button command 7", "Button command 8",
                                        "Button command 9", "Button command 10", "Accept", "Decline", "Chat"}));
}

TEST_F(ClientFace, EveryButtonOfABoardHasANameForAssistiveTools) {
    start();
    for (const auto* found : boards()[0]->findChildren<QAbstractButton*>(QRegularExpression(QStringLiteral("^cmd")))) {
        if (found->objectName() == QStringLiteral("cmdScroll(2)")) continue; // has no effect
        EXPECT_FALSE(found->text().isEmpty() && found->accessibleName().isEmpty()) << found->objectName().toStdString();
    }
}

// The keyboard

TEST_F(ClientFace, TabGoesFromTheLineThroughEveryButtonToTheConsoleAndBackToTheLine) {
    startActive();
    QStringList met;
    for (int i = 0; i < 15; ++i) {
        press(Qt::Key_Tab);
        met += QApplication::focusWidget()->objectName();
    }
    EXPECT_EQ(met, Buttons + QStringList({QStringLiteral("txtOutput"), QStringLiteral("txtSend")}));
}

TEST_F(ClientFace, AClickOnAButtonLeavesTheFocusInTheLine) {
    startActive();
    for (const QString& each : Buttons) {
        QTest::mousePress(&button(each), Qt::LeftButton);
        EXPECT_EQ(QApplication::focusWidget(), &txtSend()) << each.toStdString();
        QTest::mouseRelease(&button(each), Qt::LeftButton, {}, QPoint(-5, -5)); // off it: not pressed after all
    }
}

TEST_F(ClientFace, SpaceAndEnterPressTheButtonThatHasTheFocus) {
    startActive();
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter}) {
        button(QStringLiteral("cmdTell(3)")).setFocus();
        press(key);
        EXPECT_EQ(QApplication::focusWidget(), &txtSend());
        button(QStringLiteral("cmdDec")).setFocus();
        press(key);
    }
    EXPECT_TRUE(serverGot("command 3\nDecline\ncommand 3\nDecline\ncommand 3\nDecline\n"));
    EXPECT_EQ(txtSend().line(), "");
}

TEST_F(ClientFace, ACharacterTypedOnAButtonLandsAtTheEndOfTheLineWithTheFocus) {
    startActive();
    for (const QString& each : Buttons) {
        txtSend().setLine("wh");
        txtSend().setCursorPosition(0);
        button(each).setFocus();
        press(Qt::Key_O);
        EXPECT_EQ(txtSend().line(), "who") << each.toStdString();
        EXPECT_EQ(QApplication::focusWidget(), &txtSend()) << each.toStdString();
    }
    EXPECT_EQ(loopback.received, "");
}

TEST_F(ClientFace, OtherKeysOnAButtonTypeNothingAndEscapeGoesBackToTheLine) {
    startActive();
    button(QStringLiteral("cmdAcc")).setFocus();
    for (const Qt::Key key : {Qt::Key_Backspace, Qt::Key_Delete, Qt::Key_F5, Qt::Key_Shift}) press(key);
    press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(txtSend().line(), "");
    EXPECT_EQ(QApplication::focusWidget(), &button(QStringLiteral("cmdAcc")));
    press(Qt::Key_Escape);
    EXPECT_EQ(QApplication::focusWidget(), &txtSend());
}

TEST_F(ClientFace, AltAndALetterPressAcceptDeclineAndChat) {
    startActive();
    boxes.inputAt = [this](QWidget*, int, int, const std::string& prompt, const std::string&, const std::string&) {
        messages.push_back(prompt);
        return std::optional<std::string>();
    };
    press(Qt::Key_A, Qt::AltModifier);
    EXPECT_TRUE(serverGot("Accept\n"));
    press(Qt::Key_D, Qt::AltModifier);
    EXPECT_TRUE(serverGot("Accept\nDecline\n"));
    press(Qt::Key_T, Qt::AltModifier);
    EXPECT_TRUE(waitUntil([this] { return messages == std::vector<std::string>{"Chat with "}; }));
}

TEST_F(ClientFace, AltAndADigitPressTheTenCommands) {
    startActive();
    std::string all;
    for (int index = 0; index < 10; ++index) {
        press(index == 9 ? Qt::Key_0 : Qt::Key(Qt::Key_1 + index), Qt::AltModifier);
        all += "command " + std::to_string(index) + "\n";
        EXPECT_TRUE(serverGot(all)) << loopback.received;
    }
    EXPECT_EQ(txtSend().line(), "");
}

TEST_F(ClientFace, PageUpAndPageDownInTheLineScrollTheConsoleAndLeaveTheInsertionPoint) {
    startActive();
    fillConsole();
    const int end = bar().maximum();
    ASSERT_GT(end, 0);
    press(Qt::Key_PageUp);
    EXPECT_EQ(bar().value(), end - bar().pageStep());
    EXPECT_TRUE(txtOutput().textCursor().atEnd());
    EXPECT_EQ(QApplication::focusWidget(), &txtSend());
    press(Qt::Key_PageDown);
    EXPECT_EQ(bar().value(), end);
    button(QStringLiteral("cmdAcc")).setFocus();
    press(Qt::Key_PageUp);
    EXPECT_LT(bar().value(), end);
}

TEST_F(ClientFace, F1OpensTheHelpAndEscapeClosesIt) {
    startActive();
    press(Qt::Key_F1);
    QPointer<QTextBrowser> help;
    ASSERT_TRUE(waitUntil([this, &help] {
        help = client->findChild<QTextBrowser*>(QStringLiteral("helpFile"));
        return help && help->isVisible();
    }));
    QTest::keyClick(help.data(), Qt::Key_Escape);
    EXPECT_TRUE(waitUntil([&help] { return help.isNull(); }));
}

// Ctrl+B and Ctrl+H are users' old habit, whatever a field of another kind does with them.
TEST_F(ClientFace, NoShortcutOfOurOwnTakesAKeyThatATextFieldNeeds) {
    startActive();
    QSet<QKeySequence> shortcuts;
    const std::initializer_list<QWidget*> windows{client.get(), boards()[0]};
    for (const QWidget* window : windows) {
        for (const QAction* entry : window->findChildren<QAction*>()) shortcuts += entry->shortcut();
        for (const auto* each : window->findChildren<QAbstractButton*>()) shortcuts += each->shortcut();
    }
    shortcuts -= {QKeySequence(), QKeySequence(Qt::CTRL | Qt::Key_B), QKeySequence(Qt::CTRL | Qt::Key_H)};
    EXPECT_TRUE(shortcuts.contains(QKeySequence(Qt::CTRL | Qt::Key_Q)));
    for (const QKeySequence& shortcut : shortcuts) {
        const QKeyCombination keys = shortcut[0];
        QKeyEvent asked(QEvent::ShortcutOverride, keys.key(), keys.keyboardModifiers());
        asked.ignore();
        QApplication::sendEvent(&txtSend(), &asked);
        EXPECT_FALSE(asked.isAccepted()) << shortcut.toString().toStdString();
    }
    // The letters with Ctrl that move, delete and copy in the fields of this and of other toolkits.
    for (const char letter : std::string("ABCDEFHKNPTUVWXYZ")) {
        EXPECT_FALSE(shortcuts.contains(QKeySequence(QStringLiteral("Ctrl+") + QLatin1Char(letter)))) << letter;
    }
}

TEST_F(ClientFace, F1OnABoardOpensTheHelpOfThatWindow) {
    startActive();
    frmChessBoard& board = *boards()[0];
    board.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&board));
    press(Qt::Key_F1);
    EXPECT_TRUE(waitUntil([&board] { return board.findChild<QTextBrowser*>(QStringLiteral("helpFile")) != nullptr; }));
}

// Width and letters

namespace {

// The desktop's font, in points.
class ClientFonts : public ClientFace, public testing::WithParamInterface<int> {
protected:
    ClientFonts() {
        QFont font = before;
        font.setPointSize(GetParam());
        QApplication::setFont(font);
        set("Registry_OK", "Yes");
        set("Left", "150");
        set("Top", "150");
        set("Width", "9000");
        set("Height", "7500");
    }
    ~ClientFonts() override { QApplication::setFont(before); }

    std::vector<QWidget*> parts() const {
        std::vector<QWidget*> all{&txtOutput(), &lblPrompt(), &txtSend()};
        for (const QString& each : Buttons) all.push_back(&button(each));
        return all;
    }
    QRect placeOf(const QWidget& part) const { return {part.mapTo(client.get(), QPoint(0, 0)), part.size()}; }
    void expectAllInTheirPlaces() const {
        const std::vector<QWidget*> all = parts();
        for (std::size_t one = 0; one < all.size(); ++one) {
            const QRect place = placeOf(*all[one]);
            EXPECT_TRUE(client->rect().contains(place)) << all[one]->objectName().toStdString();
            for (std::size_t other = 0; other < one; ++other) {
                EXPECT_FALSE(place.intersects(placeOf(*all[other])))
                    << all[one]->objectName().toStdString() << " and " << all[other]->objectName().toStdString();
            }
        }
        for (const QString& each : Buttons) {
            const QAbstractButton& found = button(each);
            const QSize letters = found.fontMetrics().size(Qt::TextShowMnemonic, found.text());
            EXPECT_GE(found.height(), letters.height()) << each.toStdString();
            EXPECT_GE(found.width(), letters.width()) << each.toStdString();
        }
        EXPECT_GE(txtSend().width(), 120);
    }

    const QFont before = QApplication::font();
};

} // namespace

TEST_P(ClientFonts, ASavedWidthOf9000SurvivesALogOn) {
    connected();
    loopback.send("\r\n**** Starting FICS session as anders ****\r\n\r\nfics% ");
    ASSERT_TRUE(waitUntil([this] { return client->session.serverLines.PartialLine == "fics% "; }));
    client->session.pipeline.tmrPrompt();
    ASSERT_EQ(lblPrompt().text(), QStringLiteral("fics% "));
    runFor(20);
    EXPECT_EQ(client->size(), QSize(600, 500));
    client->close();
    EXPECT_EQ(stored("Client", "Width"), "9000");
    EXPECT_EQ(stored("Client", "Height"), "7500");
}

TEST_P(ClientFonts, EachPartHasItsPlaceAtEveryWidth) {
    start();
    for (const char* prompt : {"fics% ", "a prompt that its user has made as long as he could, and longer"}) {
        client->session.pipeline.hooks.setPromptCaption(prompt);
        for (const int width : {600, 1000, 640, 700, 450}) {
            client->resize(width, 500);
            runFor(20);
            EXPECT_EQ(client->width(), width);
            expectAllInTheirPlaces();
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Points, ClientFonts, testing::Values(8, 9, 11, 14, 20), testing::PrintToStringParamName());

TEST_F(ClientFace, AtTheUsualFontTheConsoleHasItsHeightInANarrowWindowToo) {
    start();
    for (const int width : {600, 760, 500}) {
        client->resize(width, 500);
        runFor(20);
        EXPECT_EQ(txtOutput().size(), QSize(width - 37, 500 - 71));
    }
}

TEST_F(ClientFace, LargerLettersOfTheDesktopTakeEffectInTheOpenWindow) {
    start();
    const int before = button(QStringLiteral("cmdAcc")).height();
    const QFont font = QApplication::font();
    QFont large = font;
    large.setPointSize(20);
    QApplication::setFont(large);
    runFor(20);
    EXPECT_GT(button(QStringLiteral("cmdAcc")).height(), before);
    EXPECT_GE(button(QStringLiteral("cmdAcc")).width(),
              button(QStringLiteral("cmdAcc")).fontMetrics().horizontalAdvance(QStringLiteral("Accept")));
    QApplication::setFont(font);
}

TEST_F(ClientFace, ALongPromptEndsInDotsAndWidensNothing) {
    start();
    client->resize(600, 500);
    runFor(20);
    const QSize before = client->size();
    client->session.pipeline.hooks.setPromptCaption(std::string(200, 'w'));
    runFor(20);
    EXPECT_EQ(client->size(), before);
    EXPECT_LE(lblPrompt().width(), 140);
    EXPECT_EQ(client->minimumSizeHint().boundedTo(QSize(500, 500)), client->minimumSizeHint());
}
