// The session and its boards without windows: text in, windows opened and closed, what has to hold.
#include "StreamRig.h"

#include "ConsoleModel.h"
#include "Events.h"
#include "Require.h"
#include "common/Fault.h"
#include "common/Squares.h"
#include "common/modChess.h"
#include "platform/OpenWindows.h"

#include <algorithm>
#include <cstdlib>

StreamRig::StreamRig(std::string_view bytes) : tape_(bytes) {
    modChess = {};
    openWindows = {};
    openWindows.add({"frmChessClient", this, nullptr, {}});
    logOn_.handle = "guest";
    logOn_.password = "secret";
    wirePipeline();
    wireClassifier();
    wireBoards();
    wireChat();
    wireRoad();
}

StreamRig::~StreamRig() {
    openWindows = {};
    modChess = {};
}

void StreamRig::run() {
    try {
        happen({Event::NewBoard, 0, {}}); // the first board of the start-up
        while (!tape_.done()) {
            happen(tape_.next());
            closed_.clear();
            checkRest();
        }
        finish();
    } catch (const ProgramEnded&) {
    }
}

// What the socket does with received bytes.
void StreamRig::deliver() {
    while (cutter_.waiting() > 0 && pipeline_.PendingText.size() <= ArrivalCutter::Limit) {
        waiting_ = cutter_.take(modChess.gPrompt, now_);
        if (waiting_.empty()) return;
        require(waiting_.size() <= ArrivalCutter::Limit, "an arrival holds no more than the limit");
        arrived_ += waiting_;
        pipeline_.zDataArrival();
    }
}

std::string StreamRig::shown() const { return console_ + modChess.BlockedText; }

// Checked only when nothing else ran in the batch, which might print as well.
void StreamRig::parseBatch(const std::string& batch) {
    const std::size_t before = shown().size();
    const long events = events_;
    const long tells = tells_;
    const bool verbose = lines_.verbose;
    const bool promptShown = classifier_.PromptShown;
    classifier_.zDataParse(batch);
    if (events_ == events) checkConsole(batch, before, verbose && tells_ == tells, promptShown);
}

void StreamRig::checkConsole(const std::string& batch, std::size_t before, bool verbose, bool promptShown) const {
    const std::string added = shown().substr(before);
    if (modChess.gConsoleQuiet) {
        require(added.empty(), "a quiet console shows nothing");
    } else if (!verbose) {
        require(isLeftOf(squeezed(added), squeezed(batch)), "the console shows only what arrived, in its order");
    } else if (const auto expected = verboseText(batch, modChess.gPrompt, promptShown)) {
        require(squeezed(added) == *expected, "in Verbose Mode the console shows every line");
    }
}

const void* StreamRig::openBoard() {
    RigBoard& board = *boards_.emplace_back(std::make_unique<RigBoard>());
    board.serial = ++serials_;
    openWindows.add({"frmChessBoard", &board, &board.game, {}});
    fillSurface(board);
    board.game.beginLoad();
    board.paint();
    const void* const identity = &board;
    board.game.finishLoad();
    return identity;
}

RigBoard* StreamRig::boardOf(long serial) const {
    const auto found = std::ranges::find(boards_, serial, &RigBoard::serial);
    return found == boards_.end() ? nullptr : found->get();
}

RigChat* StreamRig::chatOf(long serial) const {
    const auto found = std::ranges::find(chats_, serial, &RigChat::serial);
    return found == chats_.end() ? nullptr : found->get();
}

void StreamRig::closeBoard(RigBoard& board, bool destroyNow) {
    openWindows.remove(&board);
    const auto found =
        std::ranges::find_if(boards_, [&](const std::unique_ptr<RigBoard>& open) { return open.get() == &board; });
    std::unique_ptr<RigBoard> taken = std::move(*found);
    boards_.erase(found);
    taken->game.windowClosed();
    taken->input.stop();
    require(taken->slip == 0, "a closed board has no timer of the move in hand");
    for (Menu* menu : menus_) menu->up = menu->up && menu->board != taken->serial;
    if (!destroyNow) closed_.push_back(std::move(taken));
}

void StreamRig::clearBoards() {
    for (const auto& board : boards_) {
        for (int panel = 1; panel <= 3; ++panel) board->game.surface.setPanel(panel, "");
        board->game.surface.setTitle("Brightrank - Board");
        board->game.currentGame.clear();
    }
}

// The line goes quiet: all that was held back comes out.
void StreamRig::finish() {
    do {
        now_ += ArrivalCutter::PatienceMs;
        happen({Event::TmrArrival, 0, {}});
        checkRest();
    } while (cutter_.waiting() > 0 || armed_[static_cast<std::size_t>(SessionTimer::tmrArrival)]);
    require(arrived_ == given_, "the arrivals put together are the bytes given");
    require(pipeline_.PendingText.empty(), "no text stays behind when the line is quiet");
}

void StreamRig::checkRest() {
    const bool held = armed_[static_cast<std::size_t>(SessionTimer::tmrArrival)];
    require(arrived_.size() + cutter_.waiting() == given_.size(), "no byte is lost or doubled");
    require(!pipeline_.ParseBusy, "the busy mark falls when the drain ends");
    require(pipeline_.PendingText.empty() || held, "pending text is held with its timer running");
    require(pipeline_.PendingText.size() <= arrived_.size(), "no more is pending than arrived");
    require(classifier_.SuppressCount >= -1 && classifier_.SuppressCount <= 1000, "the line eater's count has a range");
    require(pipeline_.login >= 0 && pipeline_.login <= 2, "login is 0, 1 or 2");
    require(menus_.empty(), "no menu stays up when nothing runs");
    for (const auto& board : boards_) {
        checkBoard(board->game);
        checkHand(*board);
    }
    checkChats();
}

void StreamRig::checkBoard(const Game& game) const {
    require(game.Turn == 1 || game.Turn == -1, "one of the two sides is to move");
    require(std::ranges::all_of(game.Board, [](std::int16_t code) { return std::abs(code) <= 6; }),
            "every square holds a piece or nothing");
    require(game.Board[HandSquare] == 0, "the hand is empty");
    require(game.ShownPly >= 0 && game.ShownPly <= LastPly, "the shown ply is in the store");
    // Not more: a connection lost while the first position is painted leaves `icsMode` and `currentGame` set.
    const bool idle = game.Style12Record.Relation == -100 && !relationFaked_;
    require(!idle || game.gameIndex == 0, "an idle board answers to no game");
}
