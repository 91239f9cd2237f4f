// How a game begins: its board, its players at it, and what they are shown.
#include "practice/play/GameStart.h"

#include "practice/games/GameTexts.h"
#include "practice/play/DroppedChallenges.h"
#include "practice/play/Moves.h"
#include "practice/play/Observing.h"
#include "practice/text/Text.h"

#include <array>

namespace practice {

namespace {

// Whether the first player gets white.
bool firstIsWhite(Game& game) {
    const Terms& terms = game.terms;
    if (terms.colour != WantedColour::Any) return terms.colour == WantedColour::White;
    return game.dice() % 2 == 0;
}

// Nobody watches or offers games while he plays, and only some computers play several at once.
void seatPlayer(Hall& hall, const Game& game, Player& player) {
    if (const std::string unobserved = unobserveAll(hall, player); !unobserved.empty()) player.show(unobserved);
    hall.seeks.removeOwner(player.name);
    if (!player.manyGames) player.playing = game.number;
}

// Creating: Ada (1711) Bert (++++) unrated blitz 5 0
// {Game 1 (Ada vs. Bert) Creating unrated blitz match.}
void showStart(Hall& hall, const Game& game, const std::string& name, const std::string& verb) {
    hall.show(name, "Creating: " + lineUp(game) + "\n{Game " + std::to_string(game.number) + " " + pairing(game) + " " +
                        verb + " " + ratedText(game.terms) + " " + kindText(game.terms) + " match.}\n\n" +
                        boardLineFor(game, name, hall.outside.now()) + "\n\n" + gameLabel(game) +
                        "A disconnection will be considered a forfeit.\n");
}

} // namespace

Game& openGame(Hall& hall, const Terms& terms) {
    const int number = lowestFree(hall.games);
    Game& game = hall.games[number];
    game.number = number;
    game.serial = ++hall.lastSerial;
    game.terms = terms;
    game.dice.seed(hall.seed + static_cast<std::uint32_t>(game.serial));
    game.startedAt = hall.outside.wallClock();
    const Setup setup = drawSetup(variantNamed(terms.variant), game.dice);
    game.rules = setup.rules;
    game.startFen = setup.fen;
    game.facts.fen = setup.fen;
    game.clock.start(terms.minutes, terms.increment, hall.outside.now());
    game.firstClock = game.clock;
    return game;
}

void seatBoth(Hall& hall, Game& game, const std::string& verb) {
    for (const std::string& name : game.names) {
        if (Player* player = hall.find(name)) seatPlayer(hall, game, *player);
    }
    for (const std::size_t side : {std::size_t{0}, std::size_t{1}}) {
        const Player* player = hall.find(game.names[side]);
        if (player) dropChallenges(hall, *player, game.names[1 - side]);
    }
    for (const std::string& name : game.names) showStart(hall, game, name, verb);
}

void startGame(Hall& hall, Player& first, Player& second, const Terms& terms) {
    Game& game = openGame(hall, terms);
    const bool straight = firstIsWhite(game);
    const std::array<Player*, 2> sides{straight ? &first : &second, straight ? &second : &first};
    for (const std::size_t side : {std::size_t{0}, std::size_t{1}}) {
        game.names[side] = sides[side]->name;
        game.ratings[side] = sides[side]->shortRating();
        game.isPrivate = game.isPrivate || sides[side]->variables.value("private") != 0;
    }
    seatBoth(hall, game, "Creating");
    learnPosition(hall, game);
}

} // namespace practice
