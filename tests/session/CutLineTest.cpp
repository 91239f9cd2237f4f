// The line is cut at any byte of a session, and the program connects again: what came is read, and what of the old
// session reaches the new one.
#include "session/ProgramRig.h"

#include "common/RecordedText.h"
#include "common/Text.h"
#include "common/modChess.h"
#include "platform/WaitUntil.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <random>
#include <set>

namespace {

constexpr ProgramRig::Pace Whole{1'000'000, 0, 50};

// A session that ends in the middle of a game.
std::string newSession() {
    const std::string stream = recordedText("server-b/01_anders_registered.raw");
    std::size_t end = 0;
    for (int record = 0; record < 12; ++record) end = stream.find("<12> ", end) + 5;
    return stream.substr(0, stream.find(FicsPrompt, end) + 6);
}

// What a session from its first byte on leaves with the server and on the screen.
struct Outcome {
    std::string console;
    std::set<std::string> boards; // of games that are on
    std::vector<std::string> commands, updates, holdings, sounds, messages, batches;
    std::string handle, caption, fault;
};

template <typename All>
All since(const All& all, std::size_t count) {
    return All(all.begin() + static_cast<std::ptrdiff_t>(count), all.end());
}

// What is seen of a game. What a board keeps of the games that it showed before is not.
std::string gameText(const frmChessBoard& board) {
    const Game& game = board.game;
    std::string text = "game " + std::to_string(game.gameIndex) + " relation " + game.xMyRel() + " turn " +
                       std::to_string(game.Turn) + " next ply " + std::to_string(game.NextPly) + "\n ";
    for (int square = 0; square < 64; ++square) text += " " + std::to_string(game.Board[square]);
    text += " clocks " + std::to_string(game.Style12Record.WhiteClock) + " " +
            std::to_string(game.Style12Record.BlackClock);
    text += game.Flipped ? "\n  flipped " : "\n  ";
    text += board.windowTitle().toStdString() + "\n";
    for (const char* name : {"stbGame(1)", "stbGame(2)", "stbGame(3)", "lblMove"}) {
        text += "  " + ProgramRig::labelOf(board, name);
    }
    return text;
}

std::set<std::string> boardsInPlay(const ProgramRig& rig) {
    std::set<std::string> texts;
    for (const frmChessBoard* board : rig.boards()) {
        if (board->game.gameIndex != 0) texts.insert(gameText(*board));
    }
    return texts;
}

Outcome sessionOn(ProgramRig& rig, const std::string& stream) {
    const std::size_t commands = rig.server.commands().size();
    const std::array before{rig.updates.size(), rig.holdings.size(), rig.sounds.size(), rig.messages.size()};
    rig.learnPrompt();
    const std::size_t batches = rig.batches.size();
    rig.replayMessages(stream, Whole);
    rig.client->session.timerFired(SessionTimer::tmrTCP);
    rig.console().flush();
    const std::string console = rig.console().text();
    // Short lines behind a record or holdings go with them, also when those were the old session's last words.
    return {console.substr(std::min(console.find_first_not_of('\n'), console.size())),
            boardsInPlay(rig),
            since(rig.server.commands(), commands),
            since(rig.updates, before[0]),
            since(rig.holdings, before[1]),
            since(rig.sounds, before[2]),
            since(rig.messages, before[3]),
            since(rig.batches, batches),
            modChess.MyHandle,
            rig.client->windowTitle().toStdString(),
            rig.fault.value_or("none")};
}

Outcome freshSession(const std::string& stream) {
    ProgramRig rig;
    rig.holdTime();
    rig.connectNow();
    return sessionOn(rig, stream);
}

void expectSame(const Outcome& one, const Outcome& other) {
    EXPECT_EQ(one.console, other.console);
    EXPECT_EQ(one.boards, other.boards);
    EXPECT_EQ(one.commands, other.commands);
    EXPECT_EQ(one.updates, other.updates);
    EXPECT_EQ(one.holdings, other.holdings);
    EXPECT_EQ(one.sounds, other.sounds);
    EXPECT_EQ(one.messages, other.messages);
    EXPECT_EQ(one.batches, other.batches);
    EXPECT_EQ(one.handle, other.handle);
    EXPECT_EQ(one.caption, other.caption);
    EXPECT_EQ(one.fault, other.fault);
}

struct Cut {
    std::size_t place;    // in bytes
    std::int16_t capture; // that runs then: one of those that give up after five seconds
    bool silent;          // the line dies by the watch, long after its last word, and not by a reset right behind it
};

std::string heldAt(const std::string& stream, std::size_t place) {
    const std::size_t prompt = stream.rfind(FicsPrompt, place);
    const std::size_t begun = prompt == stream.npos || prompt + 6 > place ? 0 : prompt + 6;
    return stream.substr(begun, place - begun);
}

// A board's line that waits for its prompt while the line is reset is read behind the end of the games; the tests at
// the end say what comes of it.
Cut cutAt(const std::string& stream, std::size_t place, std::mt19937& random) {
    constexpr std::array<std::int16_t, 5> Captures{3, 4, 6, 7, 8};
    const std::string held = heldAt(stream, place);
    const bool boardsLine = contains(held, "<12> ") || contains(held, "<b1>");
    return {place, Captures[random() % Captures.size()], boardsLine || random() % 2 == 0};
}

void playUpTo(ProgramRig& rig, const std::string& stream, const Cut& cut) {
    const std::string held = heldAt(stream, cut.place);
    rig.replayMessages(std::string_view(stream).substr(0, cut.place - held.size()), Whole);
    rig.client->session.pipeline.zSetstate(cut.capture);
    rig.send(held);
    if (cut.silent) rig.settle();
}

Outcome sessionBehind(const std::string& stream, const Cut& cut, const std::string& next) {
    ProgramRig rig;
    rig.holdTime();
    rig.connectNow();
    rig.learnPrompt();
    playUpTo(rig, stream, cut);
    rig.cutLine();
    EXPECT_EQ(rig.client->windowTitle(), QStringLiteral("Brightrank - Client     Closed"));
    EXPECT_TRUE(boardsInPlay(rig).empty());
    EXPECT_EQ(modChess.MyHandle, "");
    EXPECT_EQ(rig.fault.value_or("none"), "none");
    rig.client->session.pipeline.PassThroughCount = 0; // by the rules it outlives the connection
    rig.connectAgain();
    return sessionOn(rig, next);
}

class CutLine : public testing::TestWithParam<const char*> {};

// A bughouse game is on, and the line is reset behind `last`, which has no prompt.
void cutBehind(ProgramRig& rig, const std::string& last) {
    rig.holdTime();
    rig.connectNow();
    rig.learnPrompt();
    const std::string stream = recordedText("server-a/20_bughouse_GuestABCD.raw");
    rig.replayMessages(stream.substr(0, stream.find(FicsPrompt, stream.find("<b1>")) + 6), Whole);
    EXPECT_NE(rig.boardOf(1), nullptr);
    rig.send(last);
    rig.cutLine();
}

} // namespace

TEST_P(CutLine, AnywhereLosesNothingAndLeavesTheNextSessionAsItIsInAFreshProgram) {
    const std::string stream = recordedText(GetParam());
    const std::string next = newSession();
    const Outcome fresh = freshSession(next);
    EXPECT_EQ(fresh.fault, "none");
    EXPECT_FALSE(fresh.boards.empty());
    std::mt19937 random(7);
    for (int count = 0; count < 10; ++count) {
        const Cut cut = cutAt(stream, random() % stream.size(), random);
        SCOPED_TRACE((cut.silent ? "silence at " : "reset at ") + std::to_string(cut.place) + " with capture " +
                     std::to_string(cut.capture));
        expectSame(sessionBehind(stream, cut, next), fresh);
    }
}

INSTANTIATE_TEST_SUITE_P(Recorded, CutLine,
                         testing::Values("server-a/01_anders_registered.raw", "server-a/03_guest_observer.raw",
                                         "server-a/20_bughouse_GuestABCD.raw", "server-a/45_observer_two_games.raw",
                                         "server-b/02_berta_registered.raw", "server-b/10_examine_journal.raw"),
                         [](const auto& about) {
                             std::string name = about.param;
                             std::ranges::replace_if(
                                 name, [](unsigned char c) { return !std::isalnum(c); }, '_');
                             return name;
                         });

// What is held is read as ever, three seconds later; the games of the connection have ended by then.
TEST(CutLine, BehindARecordThatWaitedForItsPromptHasItsGameOnABoardAgain) {
    ProgramRig rig;
    cutBehind(rig, "\n\r<12> rnbqkbnr pppppppp -------- -------- ----P--- -------- PPPP-PPP RNBQKBNR B 4 1 1 1 1 0 7 "
                   "Anders Berta 0 5 0 39 39 300 300 1 P/e2-e4 (0:00) e4 0 1 0\n\r");
    ASSERT_NE(rig.boardOf(7), nullptr);
    EXPECT_EQ(rig.boardOf(1), nullptr);
    EXPECT_EQ(rig.boardOf(7)->game.Board[28], 6);
}

TEST(CutLine, BehindHoldingsThatWaitedForTheirPromptEndsTheProgram) {
    ProgramRig rig;
    cutBehind(rig, "\n\r<b1> game 1 white [PP] bl");
    EXPECT_EQ(rig.fault, "subscript error: bughouse holdings for a game that has no board, met by "
                         "\"<b1> game 1 white [PP] bl\"");
}
