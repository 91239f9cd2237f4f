// A board's game: load and end, records taken over, positions loaded and fetched back.
#include "board/Game.h"

#include "board/Style12Line.h"
#include "common/modChess.h"

#include <cstdlib>

namespace {

constexpr int NoPiece = 127; // differs from every code, so that each square counts as changed

std::int32_t nextBoardId() {
    static std::int32_t latest = 0;
    return ++latest;
}

bool readInto(Style12Record& record, std::string_view line, Style12Fields fields) {
    const auto tokens = cutStyle12(line, LineEnd::BlankNeeded);
    if (tokens) readStyle12(*tokens, fields, record);
    return tokens.has_value();
}

} // namespace

void Game::beginLoad() {
    modChess.SelfCheckOK = true;
    Style12Record.Relation = -100;
    hand.DragAlpha = 128;
    id = nextBoardId();
}

void Game::finishLoad() {
    InitialLine = FixedStartLine;
    zLoadPosition(FixedStartLine, false);
    grdMoves.goTo(1, 1);
    Turn = 1;
    GameLoaded = false;
}

void Game::zEndParms() {
    Style12Record.Relation = -100;
    surface.showUn(false);
    surface.stopClock();
    hand.MoveMode = 0;
    PreMoveSet = false;
    gameIndex = 0;
    icsMode = false;
    if (!currentGame.empty()) surface.setPanel(2, "Was " + currentGame);
    surface.setPanel(3, "");
    surface.setTitle("Brightrank - Board");
    currentGame.clear();
    GridLightOn = true;
    zFor(true);
    Deviated = 0;
}

void Game::cmdUn() {
    if (std::abs(Style12Record.Relation) == 2) surface.zSendMsg("unex");
    if (Style12Record.Relation == 0) surface.zSendMsg("unob");
}

void Game::zGS() {
    Style12Record = modChess.Record;
    gameIndex = Style12Record.GameNumber;
    surface.showUn(std::abs(Style12Record.Relation) == 2 || Style12Record.Relation == 0);
}

void Game::zSetBughouse(std::string_view line) {
    const HoldingsLine holdings = readHoldings(line);
    Holdings = holdings.counts;
    surface.showHoldings(holdings.whiteText, holdings.blackText);
    HoldingsShown = true;
}

bool Game::zParseStyle12(std::string_view line) {
    return readInto(Style12Record, line, icsMode ? Style12Fields::All : Style12Fields::PositionOnly);
}

bool Game::zStyle12(std::string_view line) { return readInto(Style12Record, line, Style12Fields::PositionOnly); }

void Game::zLoadPosition(std::string_view line, bool noShow) {
    for (long square = 0; square < 64; ++square) Board[square] = NoPiece;
    const std::int16_t sideToMove = Style12Record.SideToMove;
    zStyle12(line);
    Style12Record.SideToMove = sideToMove;
    zSetPosition(true, noShow);
    KingMoved[0] = false;
    KingMoved[2] = false;
    zGridSetup();
    zFor(false);
    Deviated = -1;
    zStorePos(0);
}

void Game::zStorePos(std::int32_t ply) { PositionStore.store(ply, Board); }

void Game::zGetPos(std::int32_t ply, bool thorough, bool animate) {
    const auto& stored = PositionStore.plies[ply];
    for (int square = 0; square < 64; ++square) {
        if (!thorough && Board[square] == stored[square]) continue;
        Board[square] = stored[square];
        if (animate) surface.zDrawSquare(square, 0);
    }
}

std::string Game::xGame() {
    const auto& record = Style12Record;
    std::string players = record.WhiteName + " - " + record.BlackName + "    [" + std::to_string(record.InitialTime) +
                          " " + std::to_string(record.Increment) + "]";
    surface.setPanel(2, players);
    surface.setPanel(3, "Game " + std::to_string(record.GameNumber));
    surface.setTitle(players);
    return players;
}

void Game::zGridSetup() {
    grdMoves.zGridSetup();
    MoveRow = 1;
}

void Game::mnuNew() {
    zBoardSetup(true);
    zLoadPosition(FixedStartLine, false);
    grdMoves.goTo(1, 1);
    Turn = 1;
    surface.setTitle("New Board");
    GameLoaded = false;
    surface.enableSavePGN(false);
}
