// Commands of those who play: moves, offers, ends, ads.
#include "practice/Commands.h"
#include "practice/ComputerRoom.h"
#include "practice/MoveText.h"
#include "practice/Play.h"
#include "practice/SeekRoom.h"
#include "practice/Text.h"

#include <map>

namespace practice {

namespace {

const Answer quiet{{}, false, false};
const Answer notPlaying{"You are not playing a game."};

Player* opponentIn(Hall& hall, const Game& game, const Player& player) {
    const int side = game.sideOf(player.name);
    return side < 0 ? nullptr : hall.find(game.names[static_cast<std::size_t>(1 - side)]);
}

// The end line is the answer.
Answer resign(Hall& hall, Player& player, const Arguments&) {
    Game* game = hall.game(player.playing);
    if (!game) return notPlaying;
    endGame(hall, *game, player.name + " resigns", lossOf(game->sideOf(player.name)));
    return quiet;
}

// True if the opponent has this offer standing.
bool isOffered(const Game& game, const Player& player, Offer offer) {
    return game.offer == offer && game.offeredBy != game.sideOf(player.name);
}

void endByAgreement(Hall& hall, Game& game, Offer offer) {
    if (offer == Offer::Draw) {
        endGame(hall, game, "Game drawn by mutual agreement", "1/2-1/2");
    } else {
        endGame(hall, game, "Game aborted by mutual agreement", "*");
    }
}

void putOffer(Game& game, const Player& player, Offer offer) {
    game.offer = offer;
    game.offeredBy = game.sideOf(player.name);
}

// A draw that is offered already is accepted by offering it too.
Answer draw(Hall& hall, Player& player, const Arguments&) {
    Game* game = hall.game(player.playing);
    if (!game) return notPlaying;
    if (isOffered(*game, player, Offer::Draw)) {
        endByAgreement(hall, *game, Offer::Draw);
        return quiet;
    }
    Player* opponent = opponentIn(hall, *game, player);
    if (!opponent) return quiet;
    showObservers(hall, *game, "Game " + std::to_string(game->number) + ": " + player.name + " offers a draw.");
    if (opponent->isComputer() && acceptsDraw(*game)) {
        endByAgreement(hall, *game, Offer::Draw);
        return quiet;
    }
    putOffer(*game, player, Offer::Draw);
    opponent->show(player.name + " offers you a draw.");
    if (opponent->isComputer()) {
        game->offer = Offer::None;
        hall.outside.later(0, [&hall, to = player.name, from = opponent->name] {
            hall.show(to, from + " declines your draw offer.");
        });
    }
    return {"Offering a draw to " + opponent->name + "."};
}

Answer abortGame(Hall& hall, Player& player, const Arguments&) {
    Game* game = hall.game(player.playing);
    if (!game) return notPlaying;
    Player* opponent = opponentIn(hall, *game, player);
    if (game->moves.size() < 2) {
        endGame(hall, *game, "Game aborted on move 1", "*");
        return quiet;
    }
    if (!opponent || opponent->isComputer() || isOffered(*game, player, Offer::Abort)) {
        endByAgreement(hall, *game, Offer::Abort);
        return quiet;
    }
    putOffer(*game, player, Offer::Abort);
    opponent->show(player.name + " would like to abort the game; type \"abort\" to accept.");
    return {"Requesting to abort game " + std::to_string(game->number) + "."};
}

// The player's game if his opponent has an offer standing there, else null.
Game* gameWithOffer(Hall& hall, const Player& player) {
    Game* game = hall.game(player.playing);
    return game && game->offer != Offer::None && isOffered(*game, player, game->offer) ? game : nullptr;
}

Answer accept(Hall& hall, Player& player, const Arguments&) {
    Game* game = gameWithOffer(hall, player);
    if (!game) return {"There are no offers to accept."};
    endByAgreement(hall, *game, game->offer);
    return quiet;
}

Answer decline(Hall& hall, Player& player, const Arguments&) {
    Game* game = gameWithOffer(hall, player);
    if (!game) return {"There are no offers to decline."};
    const std::string what = game->offer == Offer::Draw ? "draw offer" : "abort request";
    game->offer = Offer::None;
    const Player* opponent = opponentIn(hall, *game, player);
    if (!opponent) return quiet;
    opponent->show(player.name + " declines your " + what + ".");
    return {"Declining the " + what + " from " + opponent->name + "."};
}

// One can only call the flag of an opponent who is to move: the other clock stands.
Answer flag(Hall& hall, Player& player, const Arguments&) {
    Game* game = hall.game(player.playing);
    if (!game) return notPlaying;
    const Player* opponent = opponentIn(hall, *game, player);
    if (game->toMove() != game->sideOf(player.name) && callFlag(hall, *game, true)) return quiet;
    return {(opponent ? opponent->name : "Your opponent") + std::string(" is not out of time.")};
}

Answer promote(Hall&, Player& player, const Arguments& arguments) {
    static const std::map<char, std::string> pieces{{'q', "QUEEN"}, {'r', "ROOK"}, {'b', "BISHOP"}, {'n', "KNIGHT"}};
    std::string word = lower(arguments.word(0));
    if (startsWith("knight", word) && !word.empty()) word = "n";
    const auto at = word.empty() ? pieces.end() : pieces.find(word[0]);
    if (at == pieces.end()) return {"Promote to one of q, r, b, n."};
    player.promotion = at->first;
    return {"Promotion piece set to " + at->second + "."};
}

Answer seek(Hall& hall, Player& player, const Arguments& arguments) {
    if (player.playing != 0) return {"You cannot seek while you play."};
    Terms standard;
    standard.minutes = player.variables.value("time");
    standard.increment = player.variables.value("inc");
    standard.rated = !player.isGuest();
    const TermsReading reading = readTerms(arguments.words, standard);
    return {reading.error.empty() ? postSeek(hall, player, reading.terms) : reading.error};
}

Answer unseek(Hall& hall, Player& player, const Arguments& arguments) {
    if (arguments.words.empty()) {
        return {hall.seeks.removeOwner(player.name) > 0 ? "Your seeks have been removed."
                                                        : "You have no active seeks."};
    }
    const auto which = number(arguments.word(0));
    const auto at = which ? hall.seeks.open.find(*which) : hall.seeks.open.end();
    if (at == hall.seeks.open.end() || at->second.owner != player.name) return {"That is no ad of yours."};
    hall.seeks.open.erase(at);
    return {"Your seek " + std::to_string(*which) + " has been removed."};
}

Answer sought(Hall& hall, Player&, const Arguments&) { return {soughtTable(hall.seeks)}; }

Answer play(Hall& hall, Player& player, const Arguments& arguments) {
    if (player.playing != 0) return {"You are playing a game already."};
    auto which = number(arguments.word(0));
    if (!which) {
        // The name of whoever seeks does as well.
        const Player* owner = hall.findByHead(arguments.word(0));
        for (const auto& [index, ad] : hall.seeks.open) {
            if (owner && ad.owner == owner->name && !which) which = index;
        }
    }
    if (!which) return {"Usage: play NUMBER, with a number of \"sought\"."};
    const std::string complaint = answerSeek(hall, player, *which);
    return complaint.empty() ? quiet : Answer{complaint};
}

Answer match(Hall&, Player&, const Arguments&) {
    return {"Challenges are not there yet; post an ad with \"seek\" instead."};
}

} // namespace

CommandRoutine gameCommand(const std::string& name) {
    static const std::map<std::string, CommandRoutine> routines{
        {"abort", abortGame}, {"accept", accept}, {"decline", decline}, {"draw", draw},
        {"flag", flag},       {"match", match},   {"play", play},       {"promote", promote},
        {"resign", resign},   {"seek", seek},     {"sought", sought},   {"unseek", unseek},
    };
    const auto at = routines.find(name);
    return at == routines.end() ? nullptr : at->second;
}

Answer typedMove(Hall& hall, Player& player, const std::string& text) {
    Game* game = hall.game(player.playing);
    if (!game) return {"You are not playing or examining a game."};
    if (game->pending || game->sideOf(player.name) != game->toMove()) return {"It is not your move."};
    if (callFlag(hall, *game, false)) return quiet;
    const TypedMove typed = readMove(game->facts, text, player.promotion);
    if (typed.reading == MoveReading::Legal) {
        playMove(hall, *game, typed.move);
        return quiet;
    }
    const std::string word = typed.reading == MoveReading::Ambiguous ? "Ambiguous move (" : "Illegal move (";
    return {word + text + ").\n\n" + boardLineFor(*game, player.name, hall.outside.now())};
}

} // namespace practice
