// Leaving the hall.
#include "practice/play/Departure.h"

#include "practice/play/DroppedChallenges.h"
#include "practice/play/ExamineRoom.h"
#include "practice/play/GameEnd.h"
#include "practice/play/Observing.h"

namespace practice {

// First nothing more is shown to the player, whose socket may be gone already; then the game ends.
void leaveHall(Hall& hall, const std::string& name) {
    Player* player = hall.find(name);
    if (!player) return;
    player->show = [](const std::string&) {};
    player->resume = [] {};
    abandonGame(hall, *player);
    unobserveAll(hall, *player);
    if (player->examining != 0) stopExamining(hall, *player);
    if (player->isGuest()) hall.archive.forget(player->name);
    hall.seeks.removeOwner(player->name);
    dropChallenges(hall, *player, {});
    hall.remove(*player);
}

} // namespace practice
