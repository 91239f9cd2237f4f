// Challenges that lose their sense when one of their players plays or leaves.
#pragma once

#include "practice/hall/Hall.h"

#include <string>

namespace practice {

// Takes back all challenges of and to a player who plays now or has left, and tells those concerned; `opponent` is
// empty when he has left.
void dropChallenges(Hall& hall, const Player& player, const std::string& opponent);

} // namespace practice
