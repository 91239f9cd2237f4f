// The session and its boards without windows: timers, the user and the peer, as the tape asks for them.
#include "StreamRig.h"

#include "Require.h"
#include "board/CloseRules.h"
#include "common/Fault.h"
#include "common/modChess.h"
#include "platform/OpenWindows.h"

namespace {

constexpr int FirstBoardEvent = 16;
constexpr int FirstWindowEvent = 27;

} // namespace

// A fault ends the program wherever the event runs, also inside a pump under a routine that passes over faults.
void StreamRig::happen(const Tape::Segment& segment) {
    try {
        ++now_;
        if (segment.kind() < FirstBoardEvent) {
            sessionEvent(segment.kind(), segment.board());
        } else if (segment.board() < boards_.size()) {
            boardEvent(segment.kind(), *boards_[segment.board()]);
        }
        given_ += segment.text;
        cutter_.append(segment.text, now_);
        deliver();
        if (autoLogonDue_) pressAutoLogonKey();
    } catch (const Fault& fault) {
        require(fault.kind() == FaultKind::Subscript, "only a subscript ends the program");
        throw ProgramEnded();
    }
}

void StreamRig::sessionEvent(int kind, std::size_t which) {
    constexpr std::int16_t FirstState = 3;
    switch (kind) {
    case 1:
        now_ += ArrivalCutter::PatienceMs;
        return;
    case 2:
        return fire(SessionTimer::tmrArrival);
    case 3:
        return fire(SessionTimer::tmrPrompt);
    case 4:
        return fire(SessionTimer::tmrState);
    case 5:
        lines_.verbose = !lines_.verbose;
        return;
    case 6:
        return blockMode_.toggle(classifier_.menu.mnuBlocked);
    case 7:
        seekGraph_ = classifier_.menu.mnuSeekGrf = modChess.gSeekOn = !seekGraph_;
        return;
    case 8:
        return pipeline_.zSetstate(static_cast<std::int16_t>(FirstState + static_cast<std::int16_t>(which)));
    case 9:
        return pipeline_.zSetstate(static_cast<std::int16_t>(FirstState + 4 + static_cast<std::int16_t>(which)));
    case 10:
        return road_.zSend(which == 0 ? "sought" : "who");
    case 11:
        return reconnect();
    case 12:
        modChess.gConsoleQuiet = !modChess.gConsoleQuiet;
        return;
    case 13:
        classifier_.menu.mnuAutoLogon = !classifier_.menu.mnuAutoLogon;
        return;
    case 14:
        modChess.SeekOff = static_cast<std::int16_t>(which & 1U);
        modChess.HistoryKind = static_cast<std::int16_t>(which);
        modChess.MovesTarget = static_cast<std::int16_t>(-static_cast<int>(which));
        modChess.ExamineNoMoves = (which & 2U) != 0;
        return;
    case 15:
        return routing_.zNewBoard();
    default:
        return;
    }
}

void StreamRig::boardEvent(int kind, RigBoard& board) {
    Game& game = board.game;
    switch (kind) {
    case 16:
    case 17:
        now_ += 1000;
        if (board.clockRuns) game.tmrClock();
        return;
    case 18:
        if (board.noPlayRuns) game.tmrNoPlay();
        return;
    case 19:
        game.zExitMove();
        return;
    case 20:
        game.mnuNew();
        return;
    case 21:
        game.mnuInvert();
        return;
    case 22:
        game.mnuClean();
        return;
    case 23:
        return game.cmdUn();
    case 24:
        game.PreMoveSet = true;
        game.PreFrom = 12;
        game.PreTo = 28;
        return;
    case 25:
        game.Dragging = !game.Dragging;
        game.DragFrom = 12;
        return;
    case 26:
        game.xGame();
        return;
    default:
        static_assert(FirstWindowEvent == 27);
        return windowEvent(kind, board);
    }
}

void StreamRig::windowEvent(int kind, RigBoard& board) {
    if (kind == FirstWindowEvent) return closeBoard(board, true);
    if (kind == FirstWindowEvent + 1) return closeBoard(board, false);
    const bool byProgram = kind == FirstWindowEvent + 2;
    const CloseDecision decision =
        queryUnload(board.game, {openWindows.count("frmChessBoard"), byProgram, false, false});
    if (decision.refused) return;
    if (!decision.send.empty()) road_.zSendMsg(decision.send);
    closeBoard(board, true);
}

void StreamRig::fire(SessionTimer timer) {
    bool& armed = armed_[static_cast<std::size_t>(timer)];
    if (!armed) return;
    armed = false;
    if (timer == SessionTimer::tmrArrival) return pipeline_.tmrArrival();
    if (timer == SessionTimer::tmrPrompt) return pipeline_.tmrPrompt();
    pipeline_.tmrState();
}

void StreamRig::pressAutoLogonKey() {
    autoLogonDue_ = false;
    if (pipeline_.login != 0) keys_.typingKeyDown(KeyUp, false);
}

// The peer hangs up: what it sent still comes, all games end, and a new connection begins.
void StreamRig::reconnect() {
    cutter_.finish();
    deliver();
    if (cutter_.waiting() > 0) return;
    routing_.zEndAllGames();
    clearBoards();
    cutter_ = {};
}

void StreamRig::pump() {
    if (pumps_ >= MostPumps) return;
    ++pumps_;
    while (tape_.nextRunsInPump()) {
        ++events_;
        happen(tape_.next());
    }
    --pumps_;
}

// A board's load waits without limit when a game takes the board meanwhile; here a patient user closes it in the end.
void StreamRig::loadPump() {
    constexpr int Patience = 20;
    const long before = events_;
    pump();
    idlePumps_ = events_ == before ? idlePumps_ + 1 : 0;
    if (idlePumps_ < Patience) return;
    idlePumps_ = 0;
    ++events_;
    while (!boards_.empty()) closeBoard(*boards_.back(), false);
}
