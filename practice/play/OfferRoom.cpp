// Offers and their answers: accepting, declining, taking back, and what computers say to them.
#include "practice/play/OfferRoom.h"

#include "practice/games/GameTexts.h"
#include "practice/hall/Computers.h"
#include "practice/play/Adjournment.h"
#include "practice/play/GameEnd.h"
#include "practice/play/MatchRoom.h"
#include "practice/play/Observing.h"
#include "practice/play/Takeback.h"
#include "practice/text/Text.h"

namespace practice {

namespace {

// What the one who got an offer reads.
std::string offeredText(const PendingOffer& offer) {
    switch (offer.kind) {
    case OfferKind::Draw:
        return offer.from + " offers you a draw.";
    case OfferKind::Abort:
        return offer.from + " would like to abort the game; type \"abort\" to accept.";
    case OfferKind::Adjourn:
        return offer.from + " would like to adjourn the game; type \"adjourn\" to accept.";
    case OfferKind::Takeback:
        return offer.from + " would like to take back " + halfmovesText(offer.halfmoves) + ".";
    case OfferKind::Match:
        break;
    }
    return {};
}

// What observers read.
std::string toldText(const PendingOffer& offer) {
    if (offer.kind == OfferKind::Draw) return offer.from + " offers a draw.";
    if (offer.kind == OfferKind::Takeback)
        return offer.from + " requests to take back " + halfmovesText(offer.halfmoves) + ".";
    return offer.from + " requests to " + (offer.kind == OfferKind::Abort ? "abort" : "adjourn") + " the game.";
}

// What its maker reads.
std::string madeText(const PendingOffer& offer, const Game& game) {
    const std::string number = std::to_string(game.number);
    if (offer.kind == OfferKind::Draw) return "Offering a draw to " + offer.to + ".";
    if (offer.kind == OfferKind::Takeback) return "Takeback request sent.";
    return std::string("Requesting to ") + (offer.kind == OfferKind::Abort ? "abort" : "adjourn") + " game " + number +
           ".";
}

Game* gameOf(Hall& hall, const PendingOffer& offer) {
    for (auto& [number, game] : hall.games) {
        if (game.sideOf(offer.from) >= 0 && game.sideOf(offer.to) >= 0) return &game;
    }
    return nullptr;
}

// False when the offer has lost its sense: somebody is busy, or fewer moves are left than were to be taken back.
bool stands(Hall& hall, const PendingOffer& offer) {
    if (offer.kind == OfferKind::Match) return bothAreFree(hall, offer);
    const Game* game = gameOf(hall, offer);
    return game && static_cast<std::size_t>(offer.halfmoves) <= game->moves.size();
}

// For an offer that stands.
void carryOut(Hall& hall, const PendingOffer& offer) {
    if (offer.kind == OfferKind::Match) return startMatch(hall, offer);
    Game& game = *gameOf(hall, offer);
    if (offer.kind == OfferKind::Takeback) return takeBack(hall, game, static_cast<std::size_t>(offer.halfmoves));
    if (offer.kind == OfferKind::Adjourn) return adjournGame(hall, game);
    const bool drawn = offer.kind == OfferKind::Draw;
    endGame(hall, game, drawn ? "Game drawn by mutual agreement" : "Game aborted by mutual agreement",
            drawn ? "1/2-1/2" : "*");
}

// Game 1: Ada declines the draw offer. A challenge has no observers.
void tellObservers(Hall& hall, const PendingOffer& offer, const std::string& what) {
    if (const Game* game = offer.kind == OfferKind::Match ? nullptr : gameOf(hall, offer))
        showObservers(hall, *game, gameLabel(*game) + what);
}

void tellAccepted(Hall& hall, const PendingOffer& offer) {
    const std::string name = offerName(offer.kind);
    hall.show(offer.from, offer.to + " accepts your " + name + ".");
    tellObservers(hall, offer, offer.to + " accepts the " + name + ".");
}

void tellDeclined(Hall& hall, const PendingOffer& offer) {
    const std::string name = offerName(offer.kind);
    hall.show(offer.from, offer.to + " declines your " + name + ".");
    tellObservers(hall, offer, offer.to + " declines the " + name + ".");
}

// The offers of one direction, a line each in `list`, with the command that answers one.
std::string pendingPart(const std::string& direction, const std::string& verb, const std::string& list) {
    if (list.empty()) return "There are no offers pending " + direction + " other players.";
    return "Offers " + direction + " other players:" + list + "\n\nIf you wish to " + verb +
           " any of these offers type '" + verb + " n'\nor just '" + verb + "' if there is only one offer.";
}

// A refusal comes behind the answer to the command that made the offer.
void declineSoon(Hall& hall, const PendingOffer& offer) {
    hall.outside.later(0, [&hall, offer] { tellDeclined(hall, offer); });
}

} // namespace

std::string offerInGame(Hall& hall, Player& player, Game& game, OfferKind kind, int halfmoves) {
    Player* opponent = hall.find(game.opponentOf(player.name));
    if (!opponent) return {};
    const int theirs = hall.offers.find(kind, opponent->name, player.name);
    if (theirs != 0 && hall.offers.open.at(theirs).halfmoves == halfmoves) return acceptOffer(hall, theirs);
    PendingOffer offer{kind, player.name, opponent->name, {}, false, halfmoves, 0};
    const std::string made = madeText(offer, game);
    tellObservers(hall, offer, toldText(offer));
    if (opponent->computer) {
        if (!acceptsInGame(game, kind)) {
            declineSoon(hall, offer);
        } else {
            tellAccepted(hall, offer);
            carryOut(hall, offer);
        }
        return made;
    }
    if (const int mine = hall.offers.find(kind, player.name, opponent->name); mine != 0) hall.offers.open.erase(mine);
    if (hall.offers.post(offer) == 0) return "You have too many offers pending.";
    opponent->show(offeredText(offer));
    return made;
}

std::string acceptOffer(Hall& hall, int number) {
    const PendingOffer offer = hall.offers.open.at(number);
    hall.offers.open.erase(number);
    if (!stands(hall, offer)) return "That offer does not stand any more.";
    tellAccepted(hall, offer);
    carryOut(hall, offer);
    return "Accepting the " + offerName(offer.kind) + " from " + offer.from + ".";
}

std::string declineOffer(Hall& hall, int number) {
    const PendingOffer offer = hall.offers.open.at(number);
    hall.offers.open.erase(number);
    tellDeclined(hall, offer);
    return "Declining the " + offerName(offer.kind) + " from " + offer.from + ".";
}

std::string withdrawOffer(Hall& hall, int number) {
    const PendingOffer offer = hall.offers.open.at(number);
    hall.offers.open.erase(number);
    hall.show(offer.to, offer.from + " withdraws the " + offerName(offer.kind) + ".");
    return "Withdrawing your " + offerName(offer.kind) + " to " + offer.to + ".";
}

std::string pendingText(Hall& hall, const Player& player) {
    const auto width = static_cast<std::size_t>(player.variables.value("width"));
    const auto list = [&](const std::vector<int>& numbers) {
        std::string text;
        for (const int number : numbers) {
            const PendingOffer& offer = hall.offers.open.at(number);
            text += "\n" +
                    wrapped(padLeft(number, 2) + ": " + offerSentence(offer, challengeText(hall, offer) + "."), width);
        }
        return text;
    };
    return pendingPart("TO", "withdraw", list(hall.offers.madeBy(player.name))) + "\n\n" +
           pendingPart("FROM", "accept", list(hall.offers.madeTo(player.name)));
}

} // namespace practice
