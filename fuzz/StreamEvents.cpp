// The program without its windows: what the user does, as the tape asks for it.
#include "StreamRig.h"

#include "Events.h"
#include "Require.h"
#include "board/CloseRules.h"
#include "common/Fault.h"
#include "common/modChess.h"
#include "platform/OpenWindows.h"

#include <algorithm>

namespace {

constexpr std::int16_t DirectProfile = 4;   // of the connections, one without a relay
constexpr std::size_t LongestBurst = 40000; // bytes

bool endsProgram(FaultKind kind) { return kind == FaultKind::Subscript || kind == FaultKind::Overflow; }

} // namespace

void StreamRig::happen(const Tape::Segment& segment) {
    try {
        perform(segment);
        if (!Event::takesText(segment.kind)) receive(segment);
        pass(0);
        destroyClosed();
    } catch (const Fault& fault) {
        require(endsProgram(fault.kind()), "only a subscript or an overflow ends the program");
        throw ProgramEnded();
    }
}

// A hand is slower than the line: what came before has been read.
void StreamRig::perform(const Tape::Segment& segment) {
    const int kind = segment.kind;
    if (Event::isByHand(kind)) pass(ArrivalCutter::PatienceMs);
    if (kind < Event::FirstOfBoard) return sessionEvent(kind, segment.which());
    if (kind >= Event::FirstOfLine) return lineEvent(segment);
    byHand([&] {
        if (!Event::isOfBoard(kind)) {
            typingEvent(segment);
        } else if (segment.which() < boards_.size()) {
            RigBoard& board = *boards_[segment.which()];
            kind < Event::FirstOfMouse ? boardEvent(kind, board) : mouseEvent(segment, board);
        }
    });
}

// What the user does ends the program at the limit of the move list alone.
void StreamRig::byHand(const std::function<void()>& act) const {
    const bool atLimit = std::ranges::any_of(boards_, [](const auto& board) {
        return board->game.MoveRow >= LastMoveRow || (board->promotion && board->promotion->row >= LastMoveRow);
    });
    try {
        act();
    } catch (const Fault&) {
        require(atLimit, "what the user does ends no program");
        throw;
    }
}

// Text behind the end of a connection is that of the next one, for which the user asks.
void StreamRig::receive(const Tape::Segment& segment) {
    if (segment.text.empty()) return;
    if (!socket_.connected()) session_.connection.mnuConnectClick(DirectProfile);
    const std::size_t more = segment.kind == Event::Burst ? segment.argument : 0;
    const std::size_t times = std::min(1 + more, 1 + LongestBurst / segment.text.size());
    for (std::size_t time = 0; time < times; ++time) socket_.receive(segment.text);
    deliver();
}

void StreamRig::sessionEvent(int kind, std::size_t which) {
    constexpr std::int16_t FirstState = 3;
    constexpr std::size_t MostBoards = 12; // that the user opens; the tape can name four
    switch (kind) {
    case Event::Silence:
        return pass(ArrivalCutter::PatienceMs);
    case Event::TmrArrival:
        return quietUntil(SessionTimer::tmrArrival);
    case Event::TmrPrompt:
        return quietUntil(SessionTimer::tmrPrompt);
    case Event::TmrState:
        return quietUntil(SessionTimer::tmrState);
    case Event::VerboseMode:
        session_.serverLines.verbose = !session_.serverLines.verbose;
        return;
    case Event::BlockMode:
        return session_.mnuBlocked();
    case Event::SeekGraph:
        return modChess.AppClosing ? void() : switchSeek(which);
    case Event::Capture:
        return session_.pipeline.zSetstate(static_cast<std::int16_t>(FirstState + static_cast<std::int16_t>(which)));
    case Event::LaterCapture:
        return session_.pipeline.zSetstate(
            static_cast<std::int16_t>(FirstState + 4 + static_cast<std::int16_t>(which)));
    case Event::Command:
        return session_.typingKeys.pressButton(which == 0 ? "sought" : "who");
    case Event::HangUp:
        return hangUp();
    case Event::ConsoleQuiet:
        modChess.gConsoleQuiet = !modChess.gConsoleQuiet;
        return;
    case Event::AutoLogon:
        return session_.connection.mnuAutoLogonClick();
    case Event::CaptureOptions:
        modChess.SeekOff = static_cast<std::int16_t>(which & 1U);
        modChess.HistoryKind = static_cast<std::int16_t>(which);
        modChess.MovesTarget = static_cast<std::int16_t>(-std::min(static_cast<int>(which), 2));
        modChess.ExamineNoMoves = (which & 2U) != 0;
        return;
    case Event::NewBoard:
        if (boards_.size() < MostBoards && !modChess.AppClosing) openBoard();
        return;
    default:
        return;
    }
}

void StreamRig::boardEvent(int kind, RigBoard& board) {
    Game& game = board.game;
    switch (kind) {
    case Event::Clock:
        pass(1000);
        if (board.clockRuns) game.tmrClock();
        return;
    case Event::NoPlayOver:
        if (board.noPlayRuns) game.tmrNoPlay();
        return;
    case Event::ExitMove:
        return game.zExitMove();
    case Event::New:
        return game.mnuNew();
    case Event::Invert:
        return game.mnuInvert();
    case Event::Clean:
        return game.mnuClean();
    case Event::Un:
        return game.cmdUn();
    case Event::ChatFromBoard:
        return session_.showChat();
    case Event::Resized:
        return game.zBoardSetup(false);
    case Event::AskGame:
        game.xGame();
        return;
    default:
        return windowEvent(kind, board);
    }
}

void StreamRig::windowEvent(int kind, RigBoard& board) {
    if (kind == Event::CloseAtOnce) return closeBoard(board, true);
    if (kind == Event::CloseLater) return closeBoard(board, false);
    if (kind != Event::CloseByProgram && kind != Event::CloseByUser) return;
    const bool byProgram = kind == Event::CloseByProgram;
    const CloseDecision decision =
        queryUnload(board.game, {openWindows.count("frmChessBoard"), byProgram, false, modChess.AppClosing});
    if (decision.refused) return;
    if (!decision.send.empty()) session_.road.zSendMsg(decision.send);
    closeBoard(board, true);
}

void StreamRig::setOptions(std::uint8_t bits) {
    const auto bit = [bits](unsigned number) { return static_cast<std::int16_t>(unsigned{bits} >> number & 1U); };
    modChess.PreMoveOK = bit(0);
    modChess.AutoQueen = bit(1);
    modChess.DragMode = bit(2);
    modChess.SelfCheckOK = bit(3) == 0;
    modChess.MouseSlip = static_cast<std::int16_t>(bits >> 4U);
}
