// What OK in the options dialog does to the windows that are open: console, boards, chat boxes and the seek graph.
#include "platform/Colors.h"
#include "seek/frmSeek.h"
#include "session/OptionsRig.h"
#include "session/frmChat.h"
#include "settings/OptionChoices.h"
#include "view/frmBoardColors.h"

#include <QTextBlock>

#include <gmock/gmock.h>

using testing::Each;

namespace {

// A typing line's look.
struct LineLook {
    std::int32_t bar;
    std::int32_t type;
    std::string font;

    friend bool operator==(const LineLook&, const LineLook&) = default;
};

class OptionsOnWindows : public OptionsRig {
protected:
    OptionsOnWindows() {
        set("Port", std::to_string(loopback.port()));
        roads.showSeek = [this] { frmSeek::showIt(*seekRoads); };
        boxes.inputAt = [](auto&&...) { return std::optional<std::string>("Bob"); };
    }
    ~OptionsOnWindows() override {
        delete loadedWindow<frmSeek>();
        delete loadedWindow<frmBoardColors>();
        for (QWidget* window : QApplication::topLevelWidgets()) delete qobject_cast<frmChat*>(window);
    }

    void openAll() {
        begin();
        seekRoads.emplace(client->seekRoads(match));
        roads.openBoard();
        client->session.zNewChat();
        chooseEntry(entry("mnuSeekGrf"));
        ASSERT_EQ(openWindows.count("frmChessBoard"), 2);
        ASSERT_EQ(openWindows.count("frmChat"), 1);
        ASSERT_EQ(openWindows.count("frmSeek"), 1);
    }
    static frmChat& chat() { return *loadedWindow<frmChat>(); }
    // Of the graph's corner, and of its base line.
    static std::pair<std::int32_t, std::int32_t> graphColors() {
        auto& plot = *loadedWindow<frmSeek>()->findChild<SeekPlot*>();
        const QImage picture = plot.grab().toImage();
        const double ratio = picture.devicePixelRatio();
        const GraphGeometry& geometry = plot.graph().geometry;
        const QPointF onTheLine(plot.pixels(geometry.RightX) / 2, plot.pixels(geometry.BaseY));
        return {colorValue(picture.pixelColor(0, 0)), colorValue(picture.pixelColor((onTheLine * ratio).toPoint()))};
    }
    static LineLook look(const QWidget& line) {
        return {colorValue(line.palette().color(QPalette::Base)), colorValue(line.palette().color(QPalette::Text)),
                line.font().families().value(0).toStdString()};
    }
    // Of the console, each board and the chat box.
    std::vector<LineLook> lines() const {
        std::vector<LineLook> found{look(txtSend())};
        for (const frmChessBoard* board : boards()) {
            found.push_back(look(*board->findChild<TypingLine*>(QStringLiteral("txtSend"))));
        }
        found.push_back(look(*chat().findChild<TypingLine*>(QStringLiteral("txtTell"))));
        return found;
    }
    static Console& txtChat() { return *chat().findChild<Console*>(QStringLiteral("txtChat")); }
    // Of each character of a console, line ends aside; a colour once where it stands in a row.
    static std::vector<std::int32_t> textColors(Console& console) {
        console.flush();
        std::vector<std::int32_t> found;
        for (QTextBlock line = console.document()->begin(); line.isValid(); line = line.next()) {
            for (auto part = line.begin(); !part.atEnd(); ++part) {
                const std::int32_t color = colorValue(part.fragment().charFormat().foreground().color());
                if (found.empty() || found.back() != color) found.push_back(color);
            }
        }
        return found;
    }
    static std::string fontOf(const QWidget& part) { return part.font().families().value(0).toStdString(); }

    void choose(int scheme) {
        openOptions();
        hand.choose("cboDefaults", scheme);
        hand.ok();
    }
    std::vector<QAbstractButton*> tells(int index) const {
        const QString name = QStringLiteral("cmdTell(%1)").arg(index);
        std::vector<QAbstractButton*> found{client->findChild<QAbstractButton*>(name)};
        for (const frmChessBoard* board : boards()) found.push_back(board->findChild<QAbstractButton*>(name));
        return found;
    }

    MatchRoads match{.store = memoryStore(values), .zSendMsg = [](const std::string&) {}};
    std::optional<SeekRoads> seekRoads; // of `client`
};

} // namespace

TEST_F(OptionsOnWindows, EachSchemeGoesToEveryWindow) {
    openAll();
    for (int index = 1; index <= 3; ++index) {
        const ColorScheme& scheme = colorSchemes[static_cast<std::size_t>(index - 1)];
        const ConsoleColors& colors = scheme.colors;
        client->session.print("text\r\n");
        choose(index);
        EXPECT_THAT(lines(), Each(LineLook{colors.Bar, colors.Type, "Fixedsys"})) << scheme.name;
        EXPECT_EQ(lines().size(), 4U);
        for (Console* console : {&txtOutput(), &txtChat()}) {
            EXPECT_EQ(colorValue(console->palette().color(QPalette::Base)), colors.Background) << scheme.name;
            EXPECT_EQ(fontOf(*console), "Fixedsys");
        }
        EXPECT_THAT(textColors(txtOutput()), Each(colors.Main)) << scheme.name;
        const auto [paper, ink] = graphColors();
        EXPECT_EQ(paper, scheme.whiteGraph ? 0xFFFFFF : colors.Background) << scheme.name;
        EXPECT_EQ(ink, scheme.whiteGraph ? 0 : colors.Main) << scheme.name;
    }
}

TEST_F(OptionsOnWindows, EachFontGoesToEveryWindow) {
    openAll();
    for (const auto& [index, name] : {std::pair{5, "Lucida COnsole"}, {4, "Fixedsys"}}) {
        choose(index);
        for (const LineLook& line : lines()) EXPECT_EQ(line.font, name);
        EXPECT_EQ(fontOf(txtOutput()), name);
        EXPECT_EQ(fontOf(txtChat()), name);
    }
}

TEST_F(OptionsOnWindows, AWindowThatOpensLaterLooksAsTheOthersDo) {
    openAll();
    choose(2);
    choose(5);
    const std::vector<LineLook> before = lines();
    roads.openBoard();
    client->session.zNewChat();
    EXPECT_THAT(lines(), Each(before.front()));
    EXPECT_EQ(lines().size(), 5U);
}

TEST_F(OptionsOnWindows, TheConsoleLosesTheColoursOfTellsAndItsInsertionPointGoesToTheEnd) {
    begin();
    for (int line = 0; line < 300; ++line) client->session.print("line\r\n");
    txtOutput().setColor(0x0000FF);
    txtOutput().insert("Bob tells you: hi\r\n");
    txtOutput().flush();
    ASSERT_EQ(textColors(txtOutput()).size(), 2U);
    openOptions();
    hand.ok();
    EXPECT_THAT(textColors(txtOutput()), Each(modChess.ColorMain));
    EXPECT_EQ(txtOutput().verticalScrollBar()->value(), txtOutput().verticalScrollBar()->maximum());
    EXPECT_TRUE(txtOutput().textCursor().atEnd());
    EXPECT_FALSE(txtOutput().textCursor().hasSelection());
}

TEST_F(OptionsOnWindows, WhoHasScrolledUpInTheConsoleStaysWhereHeReads) {
    begin();
    for (int line = 0; line < 300; ++line) client->session.print("line\r\n");
    txtOutput().flush();
    txtOutput().verticalScrollBar()->setValue(100);
    openOptions();
    hand.ok();
    EXPECT_EQ(txtOutput().verticalScrollBar()->value(), 100);
    EXPECT_TRUE(txtOutput().textCursor().atEnd());
}

TEST_F(OptionsOnWindows, OkTakesASelectionAwayAndColoursTheTextThatWaitsBehindIt) {
    begin();
    client->session.print("first\r\n");
    txtOutput().flush();
    txtOutput().selectAll();
    txtOutput().setColor(0x0000FF);
    txtOutput().insert("waiting\r\n");
    choose(2);
    EXPECT_FALSE(txtOutput().textCursor().hasSelection());
    EXPECT_TRUE(txtOutput().textCursor().atEnd());
    EXPECT_THAT(textColors(txtOutput()), Each(colorSchemes[1].colors.Main));
    txtOutput().insert("last");
    EXPECT_TRUE(console().ends_with("first\nwaiting\nlast")) << console();
}

TEST_F(OptionsOnWindows, OkLeavesThePileOfBlockModeWhichThenComesInTheNewColour) {
    connected();
    options.emplace(client->optionsRoads(sounds));
    chooseEntry(entry("mnuBlocked"));
    loopback.send("held back\n\r");
    ASSERT_TRUE(waitUntil([] { return !modChess.BlockedText.empty(); }));
    choose(2);
    EXPECT_EQ(console().find("held back"), std::string::npos);
    EXPECT_NE(modChess.BlockedText.find("held back"), std::string::npos);
    chooseEntry(entry("mnuBlocked"));
    EXPECT_NE(console().find("held back"), std::string::npos);
    EXPECT_THAT(textColors(txtOutput()), Each(colorSchemes[1].colors.Main));
}

TEST_F(OptionsOnWindows, WhatArrivesAfterwardsHasItsOwnColourAgain) {
    connected();
    options.emplace(client->optionsRoads(sounds));
    choose(2);
    txtOutput().clearScreen();
    loopback.send("hello\n\r");
    ASSERT_TRUE(consoleHas("hello"));
    loopback.send("Bob shouts: hi\n\r");
    ASSERT_TRUE(consoleHas("shouts"));
    const auto colors = textColors(txtOutput());
    EXPECT_EQ(colors.front(), colorSchemes[1].colors.Main);
    EXPECT_NE(std::ranges::find(colors, colorSchemes[1].colors.Shout), colors.end());
}

TEST_F(OptionsOnWindows, TheChatBoxKeepsTheColoursOfItsTextAndTakesTheNewForWhatComes) {
    openAll();
    modChess.ColorTell = 255;
    txtChat().setColor(modChess.ColorTell);
    txtChat().insert("old\r\n");
    boxes.colour = [](QWidget*, std::int32_t) { return std::optional<std::int32_t>(0x00FF00); };
    openOptions();
    hand.click("cmdTell");
    hand.ok();
    txtChat().insert("new");
    EXPECT_EQ(textColors(txtChat()), (std::vector<std::int32_t>{255, 0x00FF00}));
}

TEST_F(OptionsOnWindows, TheCommandsGoToTheButtonsOfConsoleAndBoards) {
    set("Tell_1", "who");
    openAll();
    openOptions();
    hand.type("txtTell(0)", "sought");
    hand.type("txtTell(1)", "");
    hand.ok();
    ASSERT_EQ(tells(0).size(), 3U);
    for (const QAbstractButton* button : tells(0)) {
        EXPECT_EQ(button->toolTip(), QStringLiteral("sought"));
        EXPECT_TRUE(button->isEnabled());
    }
    for (const QAbstractButton* button : tells(1)) {
        EXPECT_EQ(button->toolTip(), QString());
        EXPECT_FALSE(button->isEnabled());
    }
    roads.openBoard();
    EXPECT_EQ(tells(0).back()->toolTip(), QStringLiteral("sought")) << "a new board";
}

TEST_F(OptionsOnWindows, TheLogOnAnswersWithTheNewNames) {
    connected();
    options.emplace(client->optionsRoads(sounds));
    openOptions();
    hand.type("txtHandle", "fred");
    hand.type("txtPassword", "secret");
    hand.ok();
    loopback.send("login: ");
    ASSERT_TRUE(consoleHas("login:"));
    QTest::keyClick(&txtSend(), Qt::Key_Up);
    EXPECT_TRUE(serverGot("fred\n"));
    loopback.send("\n\rpassword: ");
    ASSERT_TRUE(consoleHas("password:"));
    QTest::keyClick(&txtSend(), Qt::Key_Up);
    EXPECT_TRUE(serverGot("secret\n"));
}

TEST_F(OptionsOnWindows, TheGraphIsLaidOutAnew) {
    openAll();
    auto& graph = *loadedWindow<frmSeek>();
    graph.resize(graph.width() + 7, graph.height() + 7);
    QCoreApplication::processEvents();
    const QSize odd = graph.size();
    openOptions();
    hand.ok();
    EXPECT_NE(graph.size(), odd) << "it snaps to whole cells";
}

TEST_F(OptionsOnWindows, ABoardWithItsOwnMenuOpensTheSameDialog) {
    openAll();
    chooseEntry(*boards().front()->findChild<QAction*>(QStringLiteral("mnuOptions")));
    const frmOptions* first = &hand.dialog();
    openOptions();
    EXPECT_EQ(&hand.dialog(), first);
    EXPECT_EQ(openWindows.count("frmOptions"), 1);
}

TEST_F(OptionsOnWindows, TheBoardColoursOpenAtItsCorner) {
    openAll();
    openOptions();
    hand.dialog().move(60, 45);
    hand.click("cmdBoard");
    ASSERT_EQ(openWindows.count("frmBoardColors"), 1);
    EXPECT_EQ(loadedWindow<frmBoardColors>()->pos(), QPoint(60, 45));
}

TEST_F(OptionsOnWindows, ASecondOkWithoutAChangeChangesNothing) {
    openAll();
    client->session.print("text\r\n");
    choose(2);
    const auto before = lines();
    const std::string text = console();
    const QSize graph = loadedWindow<frmSeek>()->size();
    openOptions();
    hand.ok();
    EXPECT_EQ(lines(), before);
    EXPECT_EQ(console(), text);
    EXPECT_EQ(loadedWindow<frmSeek>()->size(), graph);
}

TEST_F(OptionsOnWindows, TheTestSoundsIgnoreTheMasterSwitch) {
    std::vector<std::string> heard;
    sounds.wave = [&](const QString& path) { heard.push_back(path.section(u'/', -1).toStdString()); };
    sounds.beep = [&] { heard.emplace_back("beep"); };
    set("Sound_On", "0");
    begin();
    openOptions();
    hand.click("optMoves(1)");
    hand.click("optTell(0)");
    EXPECT_THAT(heard, testing::ElementsAre("move.wav", "beep"));
}

TEST_F(OptionsOnWindows, TheProgramsEndTakesTheDialogAlong) {
    begin();
    openOptions();
    hand.type("txtHandle", "fred");
    hand.dialog().move(90, 60);
    client->queryUnload();
    EXPECT_EQ(openWindows.count("frmOptions"), 0);
    EXPECT_EQ(stored("Options", "Left"), "1350");
    EXPECT_EQ(stored("Client", "Handle"), "");
}
