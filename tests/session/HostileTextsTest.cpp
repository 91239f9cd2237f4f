// Texts of a server and of other players in every window: shown as text, in windows that keep their size; and the ends
// of the program that such a text can cause.
#include "board/BoardRig.h"
#include "session/ChatWindowRig.h"
#include "session/ProgramRig.h"

#include <gmock/gmock.h>

namespace {

struct Hostile {
    const char* test;
    std::string text; // without blanks, as names are
};

class HostileTexts : public ChatWindowRig, public testing::WithParamInterface<Hostile> {
protected:
    HostileTexts() {
        set("Handle", "Anders");
        set("Seek_Off", "0");
    }
    void begin() {
        connected();
        modChess.gPrompt = "fics% ";
    }
    static QString text() { return QString::fromLatin1(GetParam().text.data(), qsizetype(GetParam().text.size())); }
    // What a title shows of the text at least.
    static QString front() { return text().left(60); }

    // All windows stand on the screen, and none takes a text for markup or has a title without end.
    static void expectSound() {
        QCoreApplication::processEvents();
        for (const QWidget* window : QApplication::topLevelWidgets()) {
            if (!window->isVisible()) continue;
            const QSize screen = window->screen()->size();
            EXPECT_EQ(window->size().boundedTo(screen), window->size()) << window->objectName().toStdString();
            EXPECT_LE(window->windowTitle().size(), 600) << window->objectName().toStdString();
            for (const QLabel* label : window->findChildren<QLabel*>()) {
                const bool plain = !label->isVisible() || label->textFormat() == Qt::PlainText;
                EXPECT_TRUE(plain) << label->objectName().toStdString();
            }
            EXPECT_FALSE(const_cast<QWidget*>(window)->grab().isNull());
        }
    }
};

std::string withName(std::string line, const std::string& name) { return line.replace(line.find("Anders"), 6, name); }

const std::string Latin1OfAllKinds = [] {
    std::string all;
    for (int c = 0x21; c < 0x100; ++c) all += static_cast<char>(c == 0xFF ? 'x' : c); // 0xFF is a command of telnet's
    return all;
}();

} // namespace

TEST_P(HostileTexts, InTheNamesOfAGame) {
    begin();
    const QSize before = boards().at(0)->size();
    const LineOf line{.ranks = AfterE4, .turn = "B", .game = 7, .relation = 0, .verbose = "P/e2-e4", .pretty = "e4"};
    loopback.send("\n\r" + withName(line.text("\n\rfics% "), GetParam().text));
    ASSERT_TRUE(waitUntil([this] { return !boards().empty() && boards().at(0)->game.gameIndex == 7; }));
    EXPECT_TRUE(boards().at(0)->windowTitle().startsWith(front())) << boards().at(0)->windowTitle().toStdString();
    EXPECT_EQ(boards().at(0)->size(), before);
    expectSound();
}

TEST_P(HostileTexts, InTheTextOfAMove) {
    begin();
    const LineOf line{
        .ranks = AfterE4, .turn = "B", .game = 7, .relation = 0, .verbose = GetParam().text, .pretty = GetParam().text};
    loopback.send("\n\r" + line.text("\n\rfics% "));
    ASSERT_TRUE(waitUntil([this] { return boards().at(0)->game.gameIndex == 7; }));
    expectSound();
}

TEST_P(HostileTexts, InTheConsole) {
    begin();
    loopback.send("\n\r" + GetParam().text + "\n\rend of it\n\rfics% ");
    ASSERT_TRUE(consoleHas("end of it"));
    EXPECT_NE(console().find(GetParam().text.substr(0, 8)), std::string::npos) << console();
    expectSound();
}

TEST_P(HostileTexts, InAChatBox) {
    begin();
    const frmChat& chat = openChat("Bob");
    loopback.send("\n\rBob tells you: " + GetParam().text + " .\n\r\n\rfics% ");
    ASSERT_TRUE(waitUntil([&] { return txtChat(chat).text().ends_with(" .\n"); })) << txtChat(chat).text();
    EXPECT_TRUE(
        waitUntil([&] { return txtChat(chat).text().find(GetParam().text.substr(0, 8)) != std::string::npos; }));
    expectSound();
}

TEST_P(HostileTexts, AsTheNameOfWhoTells) {
    begin();
    loopback.send("\n\r" + GetParam().text + " tells you: hello\n\r\n\rfics% ");
    ASSERT_TRUE(consoleHas("hello"));
    const frmChat& chat = openChat(GetParam().text);
    loopback.send("\n\r" + GetParam().text + " tells you: again\n\r\n\rfics% ");
    EXPECT_TRUE(waitUntil([&] { return txtChat(chat).text().find("again") != std::string::npos; }) ||
                consoleHas("again"));
    EXPECT_TRUE(chat.windowTitle().startsWith(QStringLiteral("Chat with ") + front()));
    expectSound();
}

TEST_P(HostileTexts, InThePrompt) {
    begin();
    const QSize before = client->size();
    client->session.pipeline.hooks.setPromptCaption(GetParam().text);
    EXPECT_EQ(client->size(), before);
    EXPECT_TRUE(lblPrompt().text().startsWith(front()));
    expectSound();
}

TEST_P(HostileTexts, InTheSettings) {
    set("Handle", GetParam().text);
    set("Tell_0", GetParam().text);
    set("Main_Font", GetParam().text);
    begin();
    QString tip = button(QStringLiteral("cmdTell(0)")).toolTip();
    EXPECT_EQ(tip.remove(u'\n'), text().left(500));
    expectSound();
}

INSTANTIATE_TEST_SUITE_P(
    Of, HostileTexts,
    testing::Values(Hostile{"Markup", "<h1>A</h1><img/src='http://127.0.0.1/x'>&amp;<a/href=x>b</a>"},
                    Hostile{"TenThousandCharacters", std::string(10000, 'W')},
                    Hostile{"EscapesOfATerminal", "red\x1b]0;title\x07\x1b[31mred\x1b[2J\x9b"
                                                  "2Jx"},
                    Hostile{"SoftHyphensAndHardBlanks", "Ad\xadm\xadinistrator\xa0"
                                                        "x"},
                    Hostile{"MarksThatTurnTextAround", "a\xe2\x80\xae"
                                                       "b\xe2\x80\x8b"
                                                       "c\xef\xbb\xbf"
                                                       "d"},
                    Hostile{"EveryByte", Latin1OfAllKinds}, Hostile{"Placeholders", "%1%s%n[*]&Ax"}),
    [](const auto& hostile) { return std::string(hostile.param.test); });

namespace {

struct End {
    const char* test;
    std::string script;
    std::string fault; // the beginning of its line
};

class EndByText : public testing::TestWithParam<End> {};

} // namespace

// Beside those of the batches, boards and half-moves, which ProgramEndTest has with the program as a process.
TEST_P(EndByText, IsTheToldFault) {
    ProgramRig rig;
    rig.connectNow();
    rig.learnPrompt();
    rig.server.send("\n\r" + GetParam().script + "\n\rfics% ");
    ASSERT_TRUE(waitUntil([&] { return rig.fault.has_value(); })) << rig.console().text();
    EXPECT_THAT(*rig.fault, testing::StartsWith(GetParam().fault));
}

INSTANTIATE_TEST_SUITE_P(Of, EndByText,
                         testing::Values(End{"AChannelBeyond16Bits", "Bob(9e9): hello", "overflow error"},
                                         End{"AGameBeyond16Bits", "{Game 99999 (A vs. B) B resigns} 1-0",
                                             "overflow error"}),
                         [](const auto& end) { return std::string(end.param.test); });
