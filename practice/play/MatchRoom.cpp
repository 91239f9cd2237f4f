// Challenges: putting one before a player, and what becomes of it.
#include "practice/play/MatchRoom.h"

#include "practice/play/Adjournment.h"
#include "practice/play/GameStart.h"
#include "practice/text/Text.h"

namespace practice {

namespace {

std::string complaintAbout(const Player& from, const Player& to) {
    if (&from == &to) return "You can't match yourself.";
    // Who plays now may be asked later, but not who is closed to all.
    if (to.variables.value("open") == 0) return to.name + " is not open to match requests.";
    if (to.variables.value("ropen") == 0 && from.variables.value("rated") != to.variables.value("rated")) {
        return to.name + " is open to those alone who have the same setting of \"rated\".";
    }
    if (to.playing != 0) return to.name + " is playing a game.";
    if (to.examining != 0) return to.name + " is examining a game.";
    return {};
}

// Guests play unrated; the word for the one who asked for more, with a line end.
std::string unratedForGuests(const Player& from, const Player& to, Terms& terms) {
    if (!terms.rated || (!from.isGuest() && !to.isGuest())) return {};
    terms.rated = false;
    return (from.isGuest() ? std::string("You are") : to.name + " is") + " unregistered - setting to unrated.\n";
}

// The same game as the other sees it.
Terms seenFromOther(Terms terms) {
    if (terms.colour == WantedColour::White) {
        terms.colour = WantedColour::Black;
    } else if (terms.colour == WantedColour::Black) {
        terms.colour = WantedColour::White;
    }
    return terms;
}

void showChallenge(Hall& hall, Player& to, const PendingOffer& offer, bool update) {
    const auto width = static_cast<std::size_t>(to.variables.value("width"));
    to.show((update ? offer.from + " updates the match request.\n" : std::string()) +
            wrapped("Challenge: " + challengeText(hall, offer) + ".", width) +
            "\nYou can \"accept\" or \"decline\", or propose different parameters.");
}

// The challenge of `to` that asks for the same game; 0 if there is none.
int fittingChallenge(const Hall& hall, const PendingOffer& offer) {
    const int number = hall.offers.find(OfferKind::Match, offer.to, offer.from);
    return number != 0 && hall.offers.open.at(number).terms == seenFromOther(offer.terms) ? number : 0;
}

// The answer for the challenger.
std::string issuedText(Hall& hall, const Player& from, const Player& to, const PendingOffer& offer, bool update) {
    const auto width = static_cast<std::size_t>(from.variables.value("width"));
    const std::string head = update ? "Updating match request to: " : "Issuing: ";
    return (update ? "Updating offer already made to \"" + to.name + "\".\n" : std::string()) +
           wrapped(head + challengeText(hall, offer) + ".", width) +
           (to.title == "(C)" ? "\n--** " + to.name + " is a computer **--" : "");
}

// Whoever answers a challenge with one of another kind declines it; his own part of the answer, with a line end.
std::string declineEarlier(Hall& hall, const Player& from, const Player& to) {
    const int earlier = hall.offers.find(OfferKind::Match, to.name, from.name);
    if (earlier == 0) return {};
    hall.offers.open.erase(earlier);
    hall.show(to.name, from.name + " declines your match offer and proposes different parameters.");
    return "Declining the match offer from " + to.name + " and proposing different parameters.\n";
}

std::string post(Hall& hall, const Player& from, Player& to, const PendingOffer& offer) {
    const int earlier = hall.offers.find(OfferKind::Match, from.name, to.name);
    if (earlier != 0 && hall.offers.open.at(earlier).terms == offer.terms) {
        return "You are already offering an identical match to " + to.name + ".";
    }
    if (earlier != 0) hall.offers.open.erase(earlier);
    const int number = hall.offers.post(offer);
    if (number == 0) return "You have too many offers pending.";
    const std::string declined = declineEarlier(hall, from, to);
    showChallenge(hall, to, offer, earlier != 0);
    to.reactions.challenged(hall.offers.open.at(number));
    return declined + issuedText(hall, from, to, offer, earlier != 0);
}

} // namespace

std::string challengeText(Hall& hall, const PendingOffer& offer) {
    const auto ratingOf = [&](const std::string& name) {
        const Player* player = hall.find(name);
        return player ? player->shortRating() : std::string("----");
    };
    const Terms& terms = offer.terms;
    const std::string colour = colourText(terms);
    const bool wild = startsWith(terms.variant, "wild/");
    const std::string kind = wild ? ratedText(terms) + " wild " + std::to_string(terms.minutes) + " " +
                                        std::to_string(terms.increment) + " Loaded from " + terms.variant
                                  : termsText(terms);
    return offer.from + " (" + ratingOf(offer.from) + ") " + (colour.empty() ? "" : colour + " ") + offer.to + " (" +
           ratingOf(offer.to) + ") " + kind + (offer.adjourned ? " (adjourned)" : "");
}

std::string challenge(Hall& hall, Player& from, Player& to, Terms terms) {
    const std::string complaint = complaintAbout(from, to);
    if (!complaint.empty()) return complaint;
    const KeptGamePtr adjourned = hall.archive.adjournedBetween(from.name, to.name);
    if (adjourned) {
        terms = adjourned->game.terms;
        terms.colour = WantedColour::Any;
    }
    const std::string unrated = unratedForGuests(from, to, terms);
    PendingOffer offer;
    offer.adjourned = adjourned != nullptr;
    offer.from = from.name;
    offer.to = to.name;
    offer.terms = std::move(terms);
    const int fitting = fittingChallenge(hall, offer);
    if (fitting == 0) return unrated + post(hall, from, to, offer);
    to.show(from.name + "'s challenge intercepts your challenge.");
    const PendingOffer theirs = hall.offers.open.at(fitting);
    hall.offers.open.erase(fitting);
    startMatch(hall, theirs);
    return "Your challenge intercepts " + to.name + "'s challenge.";
}

bool bothAreFree(Hall& hall, const PendingOffer& offer) {
    const auto isFree = [&](const std::string& name) {
        const Player* player = hall.find(name);
        return player && player->playing == 0 && player->examining == 0;
    };
    return isFree(offer.from) && isFree(offer.to);
}

void startMatch(Hall& hall, const PendingOffer& offer) {
    if (const KeptGamePtr adjourned = hall.archive.takeAdjourned(offer.from, offer.to)) {
        resumeGame(hall, *adjourned);
    } else {
        startGame(hall, *hall.find(offer.from), *hall.find(offer.to), offer.terms);
    }
}

} // namespace practice
