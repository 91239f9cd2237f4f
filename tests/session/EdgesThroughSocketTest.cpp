// How batches are read, through the real socket: before a prompt is learnt, and with prompts in the middle of a packet.
#include "session/ChatWindowRig.h"

#include "board/BoardRig.h"

#include <gmock/gmock.h>

using testing::ElementsAre;

namespace {

const std::string Record = LineOf{.ranks = AfterE4, .turn = "B", .relation = 0, .pretty = "e4"}.text(" 0 0\n\r");

// Connected; the parameter is the learnt prompt.
class EdgesThroughSocket : public ChatWindowRig, public testing::WithParamInterface<std::string> {
protected:
    EdgesThroughSocket() { set("Auto_Logon", "False"); }

    void SetUp() override {
        connected();
        modChess.gPrompt = GetParam();
        auto& read = client->session.pipeline.hooks.dataParse;
        read = [this, real = read](const std::string& batch) {
            batches.push_back(batch);
            real(batch);
        };
        auto& startTimer = client->session.pipeline.hooks.startTimer;
        startTimer = [real = startTimer](SessionTimer timer, int milliseconds) {
            if (timer != SessionTimer::tmrArrival) real(timer, milliseconds); // silence releases nothing
        };
        client->session.classifier.hooks.beep = [this] { ++beeps; };
    }

    // One packet of the server, once it has been read as a batch of its own.
    void packet(const std::string& text) {
        const std::size_t before = batches.size();
        loopback.send(text);
        ASSERT_TRUE(waitUntil([&] { return batches.size() > before; })) << text;
        ASSERT_EQ(batches.size(), before + 1) << text;
        EXPECT_EQ(batches.back(), text);
    }
    // One that is to be held for its prompt.
    void heldPacket(const std::string& text) {
        const std::string held = client->session.pipeline.PendingText + text;
        const std::size_t before = batches.size();
        loopback.send(text);
        ASSERT_TRUE(waitUntil([&] { return client->session.pipeline.PendingText == held; })) << text;
        EXPECT_EQ(batches.size(), before) << text;
    }
    // The colour of the console's text that begins with `text`.
    QColor colorOf(const char* text) const {
        return txtOutput().document()->find(QString::fromLatin1(text)).charFormat().foreground().color();
    }

    std::vector<std::string> batches;
    int beeps = 0;
};

class WithLearntPrompt : public EdgesThroughSocket {};

} // namespace

INSTANTIATE_TEST_SUITE_P(Prompt, EdgesThroughSocket, testing::Values("", "fics% "),
                         [](const auto& about) { return about.param.empty() ? "Unlearnt" : "Learnt"; });
INSTANTIATE_TEST_SUITE_P(Prompt, WithLearntPrompt, testing::Values("fics% "));

TEST_P(EdgesThroughSocket, AnEmptyLineARecordAndAPromptMoveTheBoardAndLeaveTheConsoleQuiet) {
    for (int update = 0; update < 3; ++update) packet("\n\r" + Record + "\n\rfics% ");
    EXPECT_EQ(console(), "");
    EXPECT_EQ(firstGame().gameIndex, 12);
    EXPECT_EQ(firstGame().Board[28], 6);
}

TEST_P(EdgesThroughSocket, ALongLineBehindARecordIsPrinted) {
    packet("\n\r" + Record + "\n\rfics% \n\rA long line of ordinary text.\n\rfics% ");
    EXPECT_EQ(console(), "A long line of ordinary text.\nfics% ");
}

TEST_P(EdgesThroughSocket, ShortLinesPromptsAndHoldingsBehindARecordReachTheBoardAndNotTheConsole) {
    packet("\n\r" + Record + "\n\rfics% \n\rshort\n\rfics% \n\r<b1> game 12 white [P] black []\n\rfics% ");
    EXPECT_EQ(firstGame().Holdings[4][0], 1);
    EXPECT_EQ(console(), "");
}

TEST_P(EdgesThroughSocket, ThePromptBehindATellVanishesAndTheTextBehindItStays) {
    modChess.ColorTell = 0x0000FF;
    packet("\n\rBob tells you: hi\n\rfics% \n\rmore text\n\rfics% ");
    EXPECT_EQ(console(), "\nBob tells you: hi\nmore text\nfics% ");
    EXPECT_EQ(colorOf("Bob tells"), QColor(255, 0, 0));
    EXPECT_THAT(sounds, ElementsAre("whistle.wav"));
}

TEST_P(EdgesThroughSocket, ATellWithABoxGoesThereWithTheLineBeforeIt) {
    const frmChat& chat = openChat("Bob");
    packet("\n\rBob tells you: hi\n\rfics% \n\rmore text\n\rfics% ");
    EXPECT_EQ(console(), "more text\nfics% ");
    EXPECT_NE(txtChat(chat).text().find("hi\n"), std::string::npos);
}

TEST_P(EdgesThroughSocket, AContinuationOfABoxedTellGoesToTheBoxAndTheNextLineIsDropped) {
    const frmChat& chat = openChat("Bob");
    packet("\n\rBob tells you: hi\n\r\\   and more\n\rfics% \n\rdropped too\n\rkept\n\rfics% ");
    EXPECT_EQ(console(), "kept\nfics% ");
    EXPECT_NE(txtChat(chat).text().find("and more"), std::string::npos);
}

TEST_P(EdgesThroughSocket, AContinuationWithoutABoxIsPrintedInTheColourOfTheTell) {
    modChess.ColorTell = 0x0000FF;
    packet("\n\rBob tells you: hi\n\r\\   and more\n\rfics% \n\rkept\n\rfics% ");
    EXPECT_EQ(console(), "\nBob tells you: hi\nand more\nkept\nfics% ");
    EXPECT_EQ(colorOf("and more"), QColor(255, 0, 0));
}

TEST_P(EdgesThroughSocket, InBlockModeLinesPileUpAndTheFirstLineBehindItCarriesThem) {
    client->session.classifier.menu.mnuBlocked = true;
    packet("one\n\rfics% ");
    EXPECT_EQ(console(), "");
    EXPECT_EQ(modChess.BlockedText, "one\r\nfics% ");
    client->session.classifier.menu.mnuBlocked = false;
    packet("\n\rtwo\n\rfics% ");
    EXPECT_EQ(console(), "one\nfics% \ntwo\nfics% ");
    EXPECT_EQ(modChess.BlockedText, "");
}

TEST_P(EdgesThroughSocket, AQuietConsolePrintsNothingAndPilesNothing) {
    modChess.gConsoleQuiet = true;
    client->session.classifier.menu.mnuBlocked = true;
    packet("one\n\rfics% \n\rtwo\n\rfics% ");
    EXPECT_EQ(console(), "");
    EXPECT_EQ(modChess.BlockedText, "");
}

TEST_P(EdgesThroughSocket, AGamesEndBehindAPromptInTheMiddleIsRead) {
    packet("\n\r" + Record + "\n\rfics% ");
    packet("\n\rAnn shouts: hello\n\rfics% \n\r{Game 12 (Anders vs. Berta) Berta resigns} 1-0\n\rfics% ");
    EXPECT_EQ(firstGame().gameIndex, 0);
}

TEST_P(EdgesThroughSocket, AnArrivalInAGamesEndEndsTheGameAlone) {
    packet("\n\r" + Record + "\n\rfics% ");
    packet("\n\r{Game 12 (Anders vs. Berta) Berta has arrived} 1-0\n\rfics% ");
    EXPECT_EQ(firstGame().gameIndex, 0);
    EXPECT_EQ(beeps, 0);
}

TEST_P(EdgesThroughSocket, LoginInALineThatWasTakenSetsNothing) {
    client->session.captures.notes = {[](std::string&, int) { return false; }, [] {}};
    modChess.gNotesCapture = true;
    packet("\n\r1: my login: is Anders\n\rfics% ");
    EXPECT_EQ(client->session.pipeline.login, 0);
    modChess.gNotesCapture = false;
    packet("\n\rmy login: is Anders\n\rfics% ");
    EXPECT_EQ(client->session.pipeline.login, 1);
}

TEST_P(EdgesThroughSocket, ARunOfBarePromptsIsPrintedOnce) {
    modChess.gPrompt = "fics% "; // one that is not learnt is no prompt
    for (int beat = 0; beat < 3; ++beat) packet("fics% ");
    EXPECT_EQ(console(), "fics% ");
}

TEST_P(WithLearntPrompt, FiveArrivalsBehindPasswordPassAndTheSixthIsHeld) {
    packet("\n\rpassword: ");
    for (const char* text : {"\n\rone\n\r", "two\n\rand its tail", "three\n\r", "four", "\n\rfive\n\r"}) packet(text);
    heldPacket("six\n\r");
}

TEST_P(WithLearntPrompt, TelnetCommandsBehindPasswordAreNoArrivals) {
    packet("\n\rpassword: ");
    const std::string echoOn = "\xFF\xFC\x01";
    loopback.send(echoOn);
    packet("one\n\r");
    for (const char* text : {"two\n\r", "three\n\r", "four\n\r", "five\n\r"}) {
        loopback.send(echoOn);
        packet(text);
    }
    heldPacket("six\n\r");
}

TEST_P(WithLearntPrompt, TheArrivalThatHoldsThePromptDrainsWhatWasHeldWithIt) {
    heldPacket("first\n\r");
    heldPacket("second\n\r");
    loopback.send("third\n\rfics% ");
    ASSERT_TRUE(waitUntil([this] { return !batches.empty(); }));
    EXPECT_THAT(batches, ElementsAre("first\n\rsecond\n\rthird\n\rfics% "));
}

TEST_P(EdgesThroughSocket, AnyLineEndingEndsALineAndALineThatBeginsWithAControlCharacterIsEmpty) {
    packet("a\r\nb\n\rc\rd\n\tx\n\rfics% ");
    EXPECT_EQ(console(), "a\nb\nc\nd\n\nfics% ");
}
