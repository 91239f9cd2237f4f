// Asking the server for a game's move list.
#pragma once

#include "common/Needed.h"

#include <cstdint>
#include <string>

struct MoveListHooks {
    Needed<void(const std::string& text)> zSendMsg;
    Needed<void(std::int16_t state)> zSetstate;
};

// A request by a player's handle and a game of his, in place of a relation.
inline constexpr std::int16_t ByHandle = 100;

// Empties the moves of modChess.MovesRecord, asks, and has the answer captured. `relation` is that of a Style 12 line:
// of one's own or a watched game (-2 to 1) `gameOrArguments` is its number; an examined game (2) is asked for by the
// words behind the last command, and with none modChess.ExamineNoMoves is raised; others ask nothing. Who gets the
// answer is for the caller to say in modChess.MovesTarget.
void zGetMoves(std::int16_t relation, const std::string& gameOrArguments, const MoveListHooks& hooks);
