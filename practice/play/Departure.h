// Leaving the hall.
#pragma once

#include "practice/hall/Hall.h"

#include <string>

namespace practice {

// Takes a player out with all that he has at stake: his game ends, his ads, challenges and observations go.
void leaveHall(Hall& hall, const std::string& name);

} // namespace practice
