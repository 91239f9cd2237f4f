// The computers' ads: they stand open from the start, come and go, and come back after games.
#include "practice/play/AdRoom.h"

#include "practice/play/SeekRoom.h"

#include <algorithm>
#include <vector>

namespace practice {

namespace {

// How many visitors have no ad though they are free.
constexpr std::size_t fewestResting = 2;
constexpr std::size_t mostResting = 6;
constexpr std::size_t restingAtStart = 4;

bool isOffering(const Hall& hall, const Computer& computer) { return !hall.seeks.numbersOf(computer.name).empty(); }

// False if there was no room for it.
bool postAd(Hall& hall, const Computer& computer) {
    Player* player = hall.find(computer.name);
    if (!player || !hall.gamesOf(*player).empty() || isOffering(hall, computer)) return true;
    postSeek(hall, *player, computer.offer);
    return isOffering(hall, computer);
}

// The visitors who are free, with an ad or without.
std::vector<const Computer*> freeVisitors(Hall& hall, bool offering) {
    std::vector<const Computer*> result;
    for (const Computer& computer : computers()) {
        const Player* player = computer.role == Role::Visitor ? hall.find(computer.name) : nullptr;
        if (player && player->playing == 0 && isOffering(hall, computer) == offering) result.push_back(&computer);
    }
    return result;
}

const Computer& oneOf(Hall& hall, const std::vector<const Computer*>& some) {
    return *some[static_cast<std::size_t>(hall.randomDelay(0, static_cast<int>(some.size()) - 1))];
}

// Between the two limits the dice say whether an ad comes or goes.
void changeAds(Hall& hall) {
    const auto offering = freeVisitors(hall, true);
    const auto resting = freeVisitors(hall, false);
    const bool dice = hall.randomDelay(0, 1) == 1;
    const bool comes = resting.size() >= mostResting || (resting.size() > fewestResting && dice);
    if (comes) {
        postAd(hall, oneOf(hall, resting));
    } else if (!offering.empty()) {
        hall.seeks.removeOwner(oneOf(hall, offering).name);
    }
}

void changeAdsLater(Hall& hall) {
    if (hall.adPace == 0) return;
    hall.outside.later(hall.randomDelay(hall.adPace / 2, hall.adPace * 3 / 2), [&hall] {
        changeAds(hall);
        changeAdsLater(hall);
    });
}

} // namespace

// Only where ads come by themselves may some be missing at the start.
void openAds(Hall& hall) {
    for (const Computer& computer : computers()) {
        if (computer.role != Role::Pair) postAd(hall, computer);
    }
    for (std::size_t i = 0; hall.adPace != 0 && i < restingAtStart; ++i)
        hall.seeks.removeOwner(oneOf(hall, freeVisitors(hall, true)).name);
    changeAdsLater(hall);
}

void bringBackAd(Hall& hall, const Computer& computer) {
    hall.outside.later(hall.randomDelay(4'000, 12'000), [&hall, &computer] {
        if (!postAd(hall, computer)) bringBackAd(hall, computer);
    });
}

} // namespace practice
