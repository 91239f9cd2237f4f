// The session and its boards without windows: timers, the user and the peer, as the tape asks for them.
#include "StreamRig.h"

#include "Events.h"
#include "Require.h"
#include "board/CloseRules.h"
#include "common/Fault.h"
#include "common/modChess.h"
#include "platform/OpenWindows.h"

// A fault ends the program wherever the event runs, also inside a pump under a routine that passes over faults.
void StreamRig::happen(const Tape::Segment& segment) {
    try {
        ++now_;
        perform(segment);
        receive(Event::takesText(segment.kind) ? std::string() : segment.text);
        if (autoLogonDue_) pressAutoLogonKey();
    } catch (const Fault& fault) {
        require(fault.kind() == FaultKind::Subscript, "only a subscript ends the program");
        throw ProgramEnded();
    }
}

void StreamRig::perform(const Tape::Segment& segment) {
    const int kind = segment.kind;
    const bool ofBoard = kind >= Event::FirstOfBoard && kind < Event::FirstOfTyping;
    if (kind < Event::FirstOfBoard) {
        sessionEvent(kind, segment.which());
    } else if (ofBoard && segment.which() < boards_.size()) {
        RigBoard& board = *boards_[segment.which()];
        const bool mayFault = kind >= Event::FirstOfMouse && board.game.MoveRow >= LastMoveRow;
        byHand(mayFault, [&] {
            if (kind < Event::FirstOfMouse) {
                boardEvent(kind, board);
            } else {
                mouseEvent(segment, board);
            }
        });
    } else if (kind == Event::Options) {
        setOptions(segment.argument);
    } else if (!ofBoard) {
        byHand(false, [&] { typingEvent(segment); });
    }
}

// What the user does ends the program at the limit of the move list alone. Text that comes in a pump ends it by
// itself.
void StreamRig::byHand(bool mayFault, const std::function<void()>& act) {
    try {
        act();
    } catch (const Fault&) {
        require(mayFault, "what the user does ends no program");
        throw;
    }
}

// The first text after the peer hung up is that of a new connection.
void StreamRig::receive(const std::string& text) {
    connected_ = connected_ || !text.empty();
    given_ += text;
    cutter_.append(text, now_);
    deliver();
}

void StreamRig::sessionEvent(int kind, std::size_t which) {
    constexpr std::int16_t FirstState = 3;
    constexpr std::size_t MostBoards = 12; // that the user opens; the tape can name four
    switch (kind) {
    case Event::Silence:
        now_ += ArrivalCutter::PatienceMs;
        return;
    case Event::TmrArrival:
        return fire(SessionTimer::tmrArrival);
    case Event::TmrPrompt:
        return fire(SessionTimer::tmrPrompt);
    case Event::TmrState:
        return fire(SessionTimer::tmrState);
    case Event::VerboseMode:
        lines_.verbose = !lines_.verbose;
        return;
    case Event::BlockMode:
        return blockMode_.toggle(classifier_.menu.mnuBlocked);
    case Event::SeekGraph:
        seekGraph_ = classifier_.menu.mnuSeekGrf = modChess.gSeekOn = !seekGraph_;
        return;
    case Event::Capture:
        return pipeline_.zSetstate(static_cast<std::int16_t>(FirstState + static_cast<std::int16_t>(which)));
    case Event::LaterCapture:
        return pipeline_.zSetstate(static_cast<std::int16_t>(FirstState + 4 + static_cast<std::int16_t>(which)));
    case Event::Command:
        return keys_.pressButton(which == 0 ? "sought" : "who");
    case Event::HangUp:
        return hangUp();
    case Event::ConsoleQuiet:
        modChess.gConsoleQuiet = !modChess.gConsoleQuiet;
        return;
    case Event::AutoLogon:
        classifier_.menu.mnuAutoLogon = !classifier_.menu.mnuAutoLogon;
        return;
    case Event::CaptureOptions:
        modChess.SeekOff = static_cast<std::int16_t>(which & 1U);
        modChess.HistoryKind = static_cast<std::int16_t>(which);
        modChess.MovesTarget = static_cast<std::int16_t>(-static_cast<int>(which));
        modChess.ExamineNoMoves = (which & 2U) != 0;
        return;
    case Event::NewBoard:
        if (boards_.size() < MostBoards) routing_.zNewBoard();
        return;
    default:
        return;
    }
}

void StreamRig::boardEvent(int kind, RigBoard& board) {
    Game& game = board.game;
    switch (kind) {
    case Event::Clock:
        now_ += 1000;
        if (board.clockRuns) game.tmrClock();
        return;
    case Event::NoPlayOver:
        if (board.noPlayRuns) game.tmrNoPlay();
        return;
    case Event::ExitMove:
        game.zExitMove();
        return;
    case Event::New:
        game.mnuNew();
        return;
    case Event::Invert:
        game.mnuInvert();
        return;
    case Event::Clean:
        game.mnuClean();
        return;
    case Event::Un:
        return game.cmdUn();
    case Event::ChatFromBoard:
        return showChat();
    case Event::Resized:
        game.zBoardSetup(false);
        return;
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
        queryUnload(board.game, {openWindows.count("frmChessBoard"), byProgram, false, false});
    if (decision.refused) return;
    if (!decision.send.empty()) road_.zSendMsg(decision.send);
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

// The peer hangs up: what it sent still comes, and all games end.
void StreamRig::hangUp() {
    cutter_.finish();
    deliver();
    if (cutter_.waiting() > 0) return;
    modChess.MyHandle.clear();
    routing_.zEndAllGames();
    clearBoards();
    cutter_ = {};
    connected_ = false;
}

// Lets the segments run that wait for a pump; with a menu up, until it is answered.
void StreamRig::pump(const Menu* menu) {
    if (pumps_ >= MostPumps) return;
    ++pumps_;
    while ((!menu || menu->up) && tape_.nextRunsInPump()) {
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
