// The commands by subject, and what else a typed line may be.
#pragma once

#include "practice/commands/Command.h"

#include <string>

namespace practice {

// No two subjects have a command of the same name.
const CommandTable& gameCommands();
const CommandTable& examineCommands();
const CommandTable& offerCommands();
const CommandTable& watchCommands();
const CommandTable& talkCommands();
const CommandTable& infoCommands();

// Plays a typed text that looks like a move.
Answer typedMove(Hall& hall, Player& player, const std::string& text);

// "+channel 50" and "-channel 50".
Answer changeChannel(Player& player, const std::string& which, bool join);

} // namespace practice
