// The program without its windows: its life from the first board to the last line, and what holds between events.
#include "StreamRig.h"

#include "Events.h"
#include "Require.h"
#include "common/Squares.h"
#include "common/modChess.h"
#include "platform/OpenWindows.h"

#include <algorithm>
#include <cstdlib>

namespace {

constexpr const char* Password = "se=cr*et";
constexpr int FirstTick = 1000; // ms

bool textHolds(Tape tape, const std::string& word) {
    std::string all;
    while (!tape.done()) all += tape.next().text;
    return all.find(word) != all.npos;
}

} // namespace

StreamRig::StreamRig(std::string_view bytes) : tape_(bytes), passwordInTape_(textHolds(tape_, Password)) {
    modChess = {};
    openWindows = {};
    openWindows.add({"frmChessClient", this, [] {}});
    session_.logOn.handle = "guest";
    session_.logOn.password = Password;
    lookOn();
    readCaptures();
}

StreamRig::~StreamRig() {
    openWindows = {};
    modChess = {};
}

void StreamRig::run() {
    try {
        openBoard(); // the first board of the start-up
        clock_.start(SessionTimer::tmrTCP, FirstTick);
        pass(FirstTick);
        while (!tape_.done()) {
            happen(tape_.next());
            checkRest();
        }
        finish();
    } catch (const ProgramEnded&) {
    }
}

std::string StreamRig::shown() const { return console_ + modChess.BlockedText; }

void StreamRig::openBoard() {
    require(!modChess.AppClosing, "no board opens while the program closes");
    RigBoard& board = *boards_.emplace_back(std::make_unique<RigBoard>(*this));
    openWindows.add({.className = "frmChessBoard",
                     .window = &board,
                     .unload = [] {},
                     .content = &board.game,
                     .zBoardSetup = [&board] { board.game.zBoardSetup(false); }});
    board.game.beginLoad();
    board.paint();
    board.game.finishLoad();
}

RigBoard& StreamRig::boardWith(const Game& game) const {
    return **std::ranges::find_if(boards_, [&](const auto& open) { return &open->game == &game; });
}

void StreamRig::closeBoard(RigBoard& board, bool destroyNow) {
    board.input.stop();
    require(board.slip == 0, "a closed board has no timer of the move in hand");
    openWindows.remove(&board);
    const auto found = std::ranges::find_if(boards_, [&](const auto& open) { return open.get() == &board; });
    if (!destroyNow) closed_.push_back(std::move(*found));
    boards_.erase(found);
}

// A menu comes down with its window, and tells so.
void StreamRig::destroyClosed() {
    for (const auto& board : closed_) {
        const BoardSquares squares = board->game.Board;
        if (board->promotion) board->input.promote(0);
        require(board->game.Board == squares, "nothing moves on a closed board");
    }
    closed_.clear();
}

// The line goes quiet: all that was held back comes out.
void StreamRig::finish() {
    do {
        happen({Event::TmrArrival, 0, {}});
        checkRest();
    } while (socket_.waits() || clock_.runs(SessionTimer::tmrArrival));
    require(session_.pipeline.PendingText.empty(), "no text stays behind when the line is quiet");
    require(parsed_ == socket_.text().size(), "all text is read when the line is quiet");
    checkPasswordShown();
}

void StreamRig::checkRest() noexcept {
    const TextPipeline& pipeline = session_.pipeline;
    const std::string& pending = pipeline.PendingText;
    require(!pipeline.ParseBusy, "the busy mark falls when the drain ends");
    require(pending.empty() || clock_.runs(SessionTimer::tmrArrival), "pending text is held with its timer running");
    require(parsed_ + pending.size() == socket_.taken(), "text is pending or read");
    require(socket_.text().compare(parsed_, pending.size(), pending) == 0, "what is pending comes behind what is read");
    const std::int32_t eater = session_.classifier.SuppressCount;
    require(eater >= -1 && eater <= 1000, "the line eater's count has a range");
    require(pipeline.login >= 0 && pipeline.login <= 2, "login is 0, 1 or 2");
    require(session_.road.idleSeconds >= -1 && session_.road.idleSeconds <= 20, "idle seconds count round");
    for (const auto& board : boards_) {
        checkBoard(*board);
        checkHand(*board);
    }
    checkChats();
    checkSeek();
    checkLists();
    checkHelp();
}

void StreamRig::checkBoard(const RigBoard& board) const noexcept {
    const Game& game = board.game;
    require(game.Turn == 1 || game.Turn == -1, "one of the two sides is to move");
    require(std::ranges::all_of(game.Board, [](std::int16_t code) { return std::abs(code) <= 6; }),
            "every square holds a piece or nothing");
    require(game.Board[HandSquare] == 0, "the hand is empty");
    require(game.ShownPly >= 0 && game.ShownPly <= LastPly, "the shown ply is in the store");
    const bool idle = game.Style12Record.Relation == -100 && !relationFaked_;
    require(!idle || (game.gameIndex == 0 && !game.icsMode && (game.currentGame.empty() || board.reviewed)),
            "an idle board has no game");
}

void StreamRig::checkPasswordKept() const noexcept {
    require(passwordInTape_ || (modChess.gLastCmd != Password && modChess.gLastTyped != Password),
            "the password is forgotten when the server has answered");
}

void StreamRig::checkPasswordShown() const noexcept {
    if (passwordInTape_) return;
    require(shown().find(Password) == std::string::npos, "the password is not shown");
    for (const std::string& line : session_.road.history.entries) {
        require(line != Password, "the password is not in the history");
    }
}
