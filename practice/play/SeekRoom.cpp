// Ads in the hall: posting them, telling of them, and answering one.
#include "practice/play/SeekRoom.h"

#include "practice/play/GameStart.h"
#include "practice/text/Text.h"

namespace practice {

namespace {

constexpr std::size_t seeksOfOne = 3;

// Ads do not disturb those at the board.
bool wantsAds(const Player& player) {
    return !player.computer && player.playing == 0 && player.variables.value("seek") != 0;
}

int announce(Hall& hall, int number, const Seek& seek) {
    int saw = 0;
    for (Player& player : hall.players) {
        if (player.name == seek.owner || !wantsAds(player)) continue;
        player.show(announcement(number, seek));
        ++saw;
    }
    return saw;
}

std::string complaintAbout(const Player& player, const Seek& seek) {
    if (seek.owner == player.name) return "You cannot answer your own ad.";
    if (seek.terms.rated && player.isGuest()) return "This ad is for a rated game, and you are not registered.";
    const int rating = player.ratingValue();
    if (rating != 0 && (rating < seek.terms.lowest || rating > seek.terms.highest)) {
        return "Your rating is outside of what this ad asks for.";
    }
    return {};
}

} // namespace

std::string postSeek(Hall& hall, Player& player, Terms terms) {
    std::string text;
    if (terms.rated && player.isGuest()) {
        terms.rated = false;
        text = "You are unregistered - setting to unrated.\n";
    }
    if (hall.seeks.numbersOf(player.name).size() >= seeksOfOne)
        return "You have three ads already; \"unseek\" takes them back.";
    const Seek seek{player.name, player.title, player.rating, terms};
    const int number = hall.seeks.post(seek);
    if (number == 0) return "There is no room for another ad.";
    const int saw = announce(hall, number, seek);
    return text + "Your seek has been posted with index " + std::to_string(number) + ".\n(" + counted(saw, "player") +
           " saw the seek.)";
}

std::string answerSeek(Hall& hall, Player& player, int number) {
    const auto at = hall.seeks.open.find(number);
    if (at == hall.seeks.open.end()) return "That seek is not available.";
    const Seek seek = at->second;
    const std::string complaint = complaintAbout(player, seek);
    if (!complaint.empty()) return complaint;
    Player* owner = hall.find(seek.owner);
    if (!owner) return "That seek is not available.";
    owner->show(player.titled() + " accepts your seek.");
    startGame(hall, *owner, player, seek.terms);
    return {};
}

} // namespace practice
