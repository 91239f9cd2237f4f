// Typed commands: finding and running them.
#pragma once

#include "practice/commands/Command.h"

#include <string>

namespace practice {

// Runs one typed line for a player who is logged on. The player may be gone afterwards only if the answer says so.
Answer runCommand(Hall& hall, Player& player, const std::string& line);

} // namespace practice
