// One game: who plays and what was moved.
#include "practice/games/Game.h"

#include <algorithm>

namespace practice {

namespace {

bool contains(const std::vector<std::string>& names, const std::string& name) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

} // namespace

int Game::toMove() const { return static_cast<int>(moves.size() % 2); }

int Game::sideOf(const std::string& name) const {
    if (isExamined()) return -1;
    if (names[0] == name) return 0;
    return names[1] == name ? 1 : -1;
}

bool Game::isExaminer(const std::string& name) const { return contains(examiners, name); }

bool Game::isObserver(const std::string& name) const { return contains(observers, name); }

int Game::moveNumber() const { return static_cast<int>(moves.size() / 2) + 1; }

} // namespace practice
