// A board takes over a game that came as a record: its list, its positions, and whose it is.
#include "board/Game.h"

#include "board/Style12Line.h"
#include "common/Numbers.h"
#include "common/Squares.h"
#include "common/Text.h"
#include "common/modChess.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace {

constexpr int SparePly = LastPly; // keeps the live position meanwhile

// "Anders (1500) vs. Berta (1600)": the header up to its second bracket; empty without one.
std::string playersOf(std::string_view header) {
    const long white = find(1, header, ")");
    const long black = find(white + 1, header, ")");
    return std::string(mid(header, 1, black));
}

std::string_view firstWord(std::string_view line) { return line.substr(0, line.find_first_of(" \r\n")); }

// "5+0" as "[5 0]".
std::string inBrackets(std::string control) {
    const auto plus = control.find('+');
    if (plus == std::string::npos) return control;
    control[plus] = ' ';
    return "[" + control + "]";
}

std::string reviewedPlayers(const GameRecord& record) {
    return record.White + " - " + record.Black + "   " + inBrackets(record.TimeControl) + "  " +
           std::string(firstWord(record.MatchLine));
}

const char* partOf(std::int16_t relation) {
    return relation == 0 ? " - Observing" : relation == 2 ? " - Examining" : "";
}

// A tie goes to the even number, so that behind an odd last move of black one more row is numbered.
int lastRowOf(const GameRecord& record) { return static_cast<int>(roundHalfEven(record.LastMove + 0.5F)); }

// The user's part in a live game, which the making of stored moves uses for its own.
class LivePart {
public:
    explicit LivePart(Game& game)
        : game_(game), fromSet_(game.hand.FromSet), mode_(game.hand.MoveMode), from_(game.FromSq), to_(game.ToSq),
          queued_(game.PreMoveSet), ply_(std::max(game.NextPly - 2, 0)), newest_(game.PositionStore.plies[ply_]) {
        game.PreMoveSet = false;
    }

    void giveBack() const {
        game_.hand.FromSet = fromSet_;
        game_.hand.MoveMode = mode_;
        game_.FromSq = from_;
        game_.ToSq = to_;
        game_.PreMoveSet = queued_;
        game_.PositionStore.plies[ply_] = newest_;
    }

private:
    Game& game_;
    std::int16_t fromSet_;
    std::int16_t mode_;
    std::int16_t from_;
    std::int16_t to_;
    bool queued_;
    std::int32_t ply_;
    FixedArray<std::int16_t, 63> newest_;
};

} // namespace

void Game::zReviewGame() {
    putDown();
    hand.giveUp();
    zLoadPosition(FixedStartLine, true); // what stood here before is kept nowhere
    zParseMoves();
    holdStoredGame();
}

void Game::zParseMoves() {
    const bool reviewed = modChess.MovesTarget < 0;
    if (!reviewed && Style12Record.Relation == -100) return; // game 0 has ended, and this board only has none
    const LivePart live(*this);
    icsMode = false;
    noPlay = true;
    zStorePos(SparePly);
    zLoadPosition(FixedStartLine, true);
    BoardRecord = modChess.MovesRecord;
    showPlayers(reviewed);
    surface.print("\r\n" + BoardRecord.Header + BoardRecord.MatchLine);
    takeMoves(lastRowOf(BoardRecord));
    if (!reviewed) {
        goOnLive();
        live.giveBack(); // at move 201 into the spare ply
    }
    surface.enableSavePGN(true);
    grdMoves.surface.zFindBottomRow();
    if (reviewed) zStart();
    noPlay = false;
}

// The title comes last: xGame sets one of the players alone.
void Game::showPlayers(bool reviewed) {
    if (reviewed) {
        currentGame = reviewedPlayers(BoardRecord);
        surface.beep();
    } else {
        currentGame = xGame() + "   " + std::string(firstWord(BoardRecord.MatchLine));
    }
    surface.setPanel(2, currentGame);
    surface.setTitle(playersOf(BoardRecord.Header) + (reviewed ? " - Reviewing" : partOf(Style12Record.Relation)));
}

// Rows behind the last move that could be made show where the moves end.
void Game::makeStoredMoves(int lastRow) {
    LastRow = 0;
    Turn = 1;
    zEnd();
    for (int ply = zDevMove() + 1; ply <= std::min(2 * lastRow, SparePly - 1); ++ply) zStorePos(ply);
    LastRow = static_cast<std::int16_t>(lastRow);
}

void Game::takeMoves(int lastRow) {
    for (int row = 1; row <= lastRow; ++row) {
        MoveText[row][0] = BoardRecord.WhiteMoves[row];
        MoveText[row][1] = static_cast<float>(row) <= BoardRecord.LastMove ? BoardRecord.BlackMoves[row] : "";
    }
    LastRow = static_cast<std::int16_t>(lastRow);
    zFillMoveList();
    makeStoredMoves(lastRow);
    Turn = static_cast<std::int16_t>(1 - 2 * Style12Record.SideToMove);
    LastCol = Style12Record.SideToMove;
}

// The squares are painted as they are stored: nothing was painted meanwhile.
void Game::goOnLive() {
    icsMode = true;
    zGetPos(SparePly, true, false);
    MoveRow = Style12Record.MoveNumber; // wherever the stored moves broke off
    grdMoves.goTo(1, 1);
    grdMoves.topRow = 1;
    grdMoves.surface.scrollTo(1);
    if (Style12Record.Relation != 2) zSetTop();
}
