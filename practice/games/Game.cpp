// One game: who plays and what was moved.
#include "practice/games/Game.h"

#include <algorithm>

namespace practice {

int Game::toMove() const { return static_cast<int>(moves.size() % 2); }

int Game::sideOf(const std::string& name) const {
    if (!examiner.empty()) return -1;
    if (names[0] == name) return 0;
    return names[1] == name ? 1 : -1;
}

bool Game::isObserver(const std::string& name) const {
    return std::find(observers.begin(), observers.end(), name) != observers.end();
}

int Game::moveNumber() const { return static_cast<int>(moves.size() / 2) + 1; }

} // namespace practice
