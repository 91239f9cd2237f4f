// What the closing of a board leads to: refusal, a question, a command to the server.
#include "board/CloseRules.h"

#include "board/Game.h"

namespace {

// A game that the server still knows on this board: it is left, or the user is asked.
void leaveGame(const Game& game, const CloseFacts& facts, CloseDecision& decision) {
    const std::int16_t relation = game.Style12Record.Relation;
    if (game.gameIndex == 0 || (game.currentGame.empty() && relation == -100)) return;
    if (relation == 0) {
        decision.send = "unob " + std::to_string(game.gameIndex);
    } else if (relation == 2) {
        decision.send = "unex";
    } else {
        decision.ask = !facts.appClosing;
    }
}

} // namespace

CloseDecision queryUnload(const Game& game, const CloseFacts& facts) {
    CloseDecision decision;
    if (facts.openBoards == 0 && !facts.byProgram) {
        decision.refused = true;
        return decision;
    }
    decision.enableBoardMenu = facts.openBoards == 1;
    if (facts.pgnInUse) {
        decision.closeChooser = true;
        decision.refused = true;
        return decision;
    }
    decision.unloadPanels = true;
    leaveGame(game, facts, decision);
    return decision;
}
