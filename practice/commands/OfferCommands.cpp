// Commands about offers: challenges, offers within a game, and their answers.
#include "practice/commands/Subjects.h"
#include "practice/play/GameEnd.h"
#include "practice/play/MatchRoom.h"
#include "practice/play/OfferRoom.h"
#include "practice/text/Text.h"

namespace practice {

namespace {

Answer offerNow(Hall& hall, Player& player, OfferKind kind, int halfmoves = 0) {
    Game* game = hall.game(player.playing);
    return game ? Answer{offerInGame(hall, player, *game, kind, halfmoves)} : notPlaying;
}

// A draw that is offered already is accepted by offering it too.
Answer draw(Hall& hall, Player& player, const Arguments&) { return offerNow(hall, player, OfferKind::Draw); }

Answer abortGame(Hall& hall, Player& player, const Arguments&) {
    Game* game = hall.game(player.playing);
    if (!game || game->moves.size() >= 2) return offerNow(hall, player, OfferKind::Abort);
    endGame(hall, *game, "Game aborted on move 1", "*");
    return quiet;
}

Answer takeback(Hall& hall, Player& player, const Arguments& arguments) {
    const Game* game = hall.game(player.playing);
    if (!game) return notPlaying;
    const auto count = arguments.words.empty() ? std::optional<int>(1) : number(arguments.word(0));
    if (!count || *count == 0) return {"Usage: takeback [half-moves]"};
    if (static_cast<std::size_t>(*count) > game->moves.size()) {
        return {"There are only " + std::to_string(game->moves.size()) + " half-moves in your game."};
    }
    return offerNow(hall, player, OfferKind::Takeback, *count);
}

// A guest's name may be another's tomorrow.
Answer adjourn(Hall& hall, Player& player, const Arguments&) {
    const Game* game = hall.game(player.playing);
    if (!game) return notPlaying;
    for (const std::string& name : game->names) {
        const Player* each = hall.find(name);
        if (!each || each->isGuest()) return {"Only games between registered players can be adjourned."};
    }
    return offerNow(hall, player, OfferKind::Adjourn);
}

std::string complaintOfChallenger(const Player& player) {
    if (player.examining != 0) return "You can't challenge while you are examining a game.";
    return player.playing != 0 ? "You are playing a game already." : std::string();
}

// "fred", "fred 5 0 r", "fred 2 12 Wild fr u Black".
Answer match(Hall& hall, Player& player, const Arguments& arguments) {
    if (arguments.words.empty()) return {"Usage: match NAME [time inc] [rated|unrated] [white|black] [kind]"};
    if (const std::string complaint = complaintOfChallenger(player); !complaint.empty()) return {complaint};
    Player* to = hall.findByHead(arguments.word(0));
    if (!to) return notOnline(arguments.word(0));
    Terms standard;
    standard.minutes = player.variables.value("time");
    standard.increment = player.variables.value("inc");
    standard.rated = player.variables.value("rated") != 0 && !player.isGuest() && !to->isGuest();
    const TermsReading reading = readTerms({arguments.words.begin() + 1, arguments.words.end()}, standard);
    return {reading.error.empty() ? challenge(hall, player, *to, reading.terms) : reading.error};
}

Answer rematch(Hall& hall, Player& player, const Arguments&) {
    if (const std::string complaint = complaintOfChallenger(player); !complaint.empty()) return {complaint};
    if (player.lastOpponent.empty()) return {"You have not played anybody."};
    Player* to = hall.find(player.lastOpponent);
    if (!to) return {player.lastOpponent + " is no longer logged on."};
    return {challenge(hall, player, *to, player.lastTerms)};
}

// True if a word means this offer: by its number, its kind, or the handle of the other side.
bool isMeant(const PendingOffer& offer, int index, const std::string& other, const std::string& word) {
    if (const auto wanted = number(word)) return *wanted == index;
    return startsWith(offerName(offer.kind), word) || startsWith(other, word);
}

std::vector<int> meant(const Hall& hall, const std::vector<int>& numbers, bool made, const std::string& word) {
    if (word.empty() || lower(word) == "all") return numbers;
    std::vector<int> result;
    for (const int index : numbers) {
        const PendingOffer& offer = hall.offers.open.at(index);
        if (isMeant(offer, index, made ? offer.to : offer.from, word)) result.push_back(index);
    }
    return result;
}

// The offers that an answer is for; or the complaint, when there are none or when it is not clear which.
struct Choice {
    std::vector<int> numbers;
    std::string complaint;
};

Choice choose(const Hall& hall, const Player& player, const Arguments& arguments, bool made, const std::string& verb) {
    const auto all = made ? hall.offers.madeBy(player.name) : hall.offers.madeTo(player.name);
    const std::string word = arguments.word(0);
    const auto chosen = meant(hall, all, made, word);
    if (all.empty()) return {{}, "There are no offers to " + verb + "."};
    if (chosen.empty()) return {{}, "There is no such offer to " + verb + "."};
    if (chosen.size() > 1 && lower(word) != "all") {
        return {{},
                "There is more than one pending offer.\nType \"pending\" to see the list of offers.\nType \"" + verb +
                    " n\" with the number of one."};
    }
    return {chosen, {}};
}

Answer accept(Hall& hall, Player& player, const Arguments& arguments) {
    const Choice choice = choose(hall, player, arguments, false, "accept");
    if (!choice.complaint.empty()) return {choice.complaint};
    return {acceptOffer(hall, choice.numbers.front())};
}

Answer answerAll(Hall& hall, const Choice& choice, std::string (*answer)(Hall&, int)) {
    if (!choice.complaint.empty()) return {choice.complaint};
    std::string text;
    for (const int index : choice.numbers) text += (text.empty() ? "" : "\n") + answer(hall, index);
    return {text};
}

Answer decline(Hall& hall, Player& player, const Arguments& arguments) {
    return answerAll(hall, choose(hall, player, arguments, false, "decline"), declineOffer);
}

Answer withdraw(Hall& hall, Player& player, const Arguments& arguments) {
    return answerAll(hall, choose(hall, player, arguments, true, "withdraw"), withdrawOffer);
}

Answer pending(Hall& hall, Player& player, const Arguments&) { return {pendingText(hall, player)}; }

} // namespace

const CommandTable& offerCommands() {
    static const CommandTable routines{
        {"abort", abortGame},   {"accept", accept},     {"adjourn", adjourn}, {"decline", decline},
        {"draw", draw},         {"match", match},       {"pending", pending}, {"rematch", rematch},
        {"takeback", takeback}, {"withdraw", withdraw},
    };
    return routines;
}

} // namespace practice
