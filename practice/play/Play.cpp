// The course of a game: start, moves, offers, and all the ways it ends.
#include "practice/play/Play.h"

#include "practice/chess/MoveText.h"
#include "practice/chess/Style12.h"
#include "practice/play/ComputerRoom.h"
#include "practice/play/Endings.h"
#include "practice/play/MatchRoom.h"
#include "practice/text/Text.h"

#include <algorithm>

namespace practice {

namespace {

constexpr std::size_t fewMoves = 2; // a game with fewer half-moves is aborted, not lost

// Low numbers are used again, as people like to type them.
int freeNumber(const Hall& hall) {
    int number = 1;
    while (hall.games.count(number) > 0) ++number;
    return number;
}

// Whether the first player gets white.
bool firstIsWhite(Game& game) {
    const Terms& terms = game.terms;
    if (terms.colour != WantedColour::Any) return terms.colour == WantedColour::White;
    return game.dice() % 2 == 0;
}

// A client plays one game at a time, watches and offers no others meanwhile; a computer keeps its ad open.
void seatPlayer(Hall& hall, const Game& game, Player& player) {
    if (const std::string unobserved = unobserveAll(hall, player); !unobserved.empty()) player.show(unobserved);
    if (player.isComputer()) return;
    player.playing = game.number;
    hall.seeks.removeOwner(player.name);
}

// Creating: Ada (1711) Bert (++++) unrated blitz 5 0
// {Game 1 (Ada vs. Bert) Creating unrated blitz match.}
void showStart(Hall& hall, const Game& game, const std::string& name, const std::string& verb) {
    const std::string head = "Creating: " + game.names[0] + " (" + game.ratings[0] + ") " + game.names[1] + " (" +
                             game.ratings[1] + ") " + termsText(game.terms);
    const std::string number = std::to_string(game.number);
    hall.show(name, head + "\n{Game " + number + " " + pairing(game) + " " + verb + " " +
                        (game.terms.rated ? "rated " : "unrated ") + kindText(game.terms) + " match.}\n\n" +
                        boardLineFor(game, name, hall.outside.now()) + "\n\nGame " + number +
                        ": A disconnection will be considered a forfeit.\n");
}

// Those whose lines wait while a position of the game is judged.
std::vector<std::string> waitingFor(const Game& game) {
    if (!game.examiner.empty()) return {game.examiner};
    return {game.names[0], game.names[1]};
}

void showEverybody(Hall& hall, const Game& game, const std::string& text) {
    for (const std::string& name : waitingFor(game)) hall.show(name, text);
    showObservers(hall, game, text);
}

// <b1> game 1 white [P] black [] <- WP: sent ahead of the board when a hand grew.
void showTaken(Hall& hall, const Game& game, const std::string& fenBefore) {
    const auto before = readFen(fenBefore);
    const auto after = readFen(game.facts.fen);
    if (!before || !after || after->hand.size() <= before->hand.size()) return;
    for (const char piece : std::string_view("PNBRQpnbrq")) {
        if (std::count(after->hand.begin(), after->hand.end(), piece) <=
            std::count(before->hand.begin(), before->hand.end(), piece))
            continue;
        const bool white = piece < 'a';
        const char kind = white ? piece : static_cast<char>(piece - 'a' + 'A');
        showEverybody(hall, game, composeHoldings(game.number, *after) + " <- " + (white ? "W" : "B") + kind);
    }
}

void resumePlayers(Hall& hall, const std::vector<std::string>& names) {
    for (const std::string& name : names) {
        if (const Player* player = hall.find(name)) {
            // A copy, as the lines that are read now may log the player out.
            const auto resume = player->resume;
            resume();
        }
    }
}

void moveWasJudged(Hall& hall, std::uint64_t serial, PlayedMove move, PositionFacts facts) {
    Game* game = hall.gameBySerial(serial);
    if (!game) return;
    game->pending = false;
    if (facts.check) move.pretty += facts.legal.empty() ? "#" : "+";
    const std::string before = game->facts.fen;
    game->facts = std::move(facts);
    move.fen = game->facts.fen;
    move.clock = game->clock;
    game->moves.push_back(std::move(move));
    ++game->course;
    ++game->seen[repetitionKey(game->facts.fen)];
    showTaken(hall, *game, before);
    showBoard(hall, *game);
    if (!game->examiner.empty()) return;
    if (const auto ending = endingOf(hall, *game)) {
        endGame(hall, *game, ending->reason, ending->result);
    } else {
        letComputerThink(hall, *game);
    }
}

// Observers get the end line first and then the word that they observe no more.
void showEnd(Hall& hall, const Game& game, const std::string& line) {
    for (const std::string& name : game.names) hall.show(name, line);
    for (const std::string& name : game.observers) {
        hall.show(name, line);
        hall.show(name, unobservedLine(game.number));
    }
    for (Player& other : hall.players) {
        const bool concerned =
            game.sideOf(other.name) >= 0 || std::count(game.observers.begin(), game.observers.end(), other.name) > 0;
        if (!concerned && other.variables.value("gin") != 0) other.show(line);
    }
}

void releasePlayers(Hall& hall, const Game& game) {
    for (const int side : {0, 1}) {
        Player* player = hall.find(game.names[static_cast<std::size_t>(side)]);
        if (!player) continue;
        player->playing = 0;
        player->lastOpponent = game.names[static_cast<std::size_t>(1 - side)];
        player->lastTerms = game.terms;
        if (side == 1) player->lastTerms.colour = WantedColour::White;
        if (side == 0) player->lastTerms.colour = WantedColour::Black;
    }
    for (const std::string& name : game.observers) {
        if (Player* player = hall.find(name)) std::erase(player->observing, game.number);
    }
}

bool flagIsDown(const Hall& hall, const Game& game, int side) {
    return game.clock.running() && game.clock.remaining(side, game.toMove(), hall.outside.now()) <= 0;
}

bool callsFlags(Hall& hall, const std::string& name) {
    const Player* player = hall.find(name);
    return player && (player->isComputer() || player->variables.value("autoflag") != 0);
}

// Who cannot mate does not win on time either.
void endOnTime(Hall& hall, Game& game, int loser) {
    const auto position = readFen(game.facts.fen).value_or(Position{});
    const std::string& late = game.names[static_cast<std::size_t>(loser)];
    const std::string& other = game.names[static_cast<std::size_t>(1 - loser)];
    if (flagIsDown(hall, game, 1 - loser)) {
        endGame(hall, game, "Game drawn because both players ran out of time", "1/2-1/2");
    } else if (needsMaterial(game) && !hasMatingMaterial(position, loser == 1)) {
        endGame(hall, game, late + " ran out of time and " + other + " has no material to mate", "1/2-1/2");
    } else {
        endGame(hall, game, late + " forfeits on time", lossOf(loser));
    }
}

void takePosition(Hall& hall, Game& game, PositionFacts facts) {
    game.pending = false;
    game.facts = std::move(facts);
    if (game.moves.empty()) {
        // In the engine's words, so that the start is known again when it is repeated after an adjournment.
        game.startFen = game.facts.fen;
        game.seen = {{repetitionKey(game.startFen), 1}};
    }
    letComputerThink(hall, game);
}

} // namespace

Game& openGame(Hall& hall, const Terms& terms) {
    const int number = freeNumber(hall);
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

Game& startGame(Hall& hall, Player& first, Player& second, const Terms& terms) {
    Game& game = openGame(hall, terms);
    const bool straight = firstIsWhite(game);
    const std::array<Player*, 2> sides{straight ? &first : &second, straight ? &second : &first};
    for (const std::size_t side : {std::size_t{0}, std::size_t{1}}) {
        game.names[side] = sides[side]->name;
        game.ratings[side] = trim(sides[side]->rating);
    }
    seatBoth(hall, game, "Creating");
    learnPosition(hall, game);
    return game;
}

void learnPosition(Hall& hall, Game& game) {
    const std::string fen = game.moves.empty() ? game.startFen : game.moves.back().fen;
    if (fen == hall.start.fen && game.rules == Rules{}) return takePosition(hall, game, hall.start);
    game.facts = {};
    game.facts.fen = fen;
    game.pending = true;
    hall.outside.rules(game.rules, fen, {},
                       [&hall, serial = game.serial, names = waitingFor(game)](PositionFacts facts) {
                           Game* waiting = hall.gameBySerial(serial);
                           if (waiting) takePosition(hall, *waiting, std::move(facts));
                           resumePlayers(hall, names);
                       });
}

void showBoard(Hall& hall, const Game& game) {
    const auto now = hall.outside.now();
    const std::string tried =
        game.examiner.empty() || game.moves.empty()
            ? std::string()
            : "\nGame " + std::to_string(game.number) + ": " + game.examiner + " moves: " + game.moves.back().pretty;
    for (const std::string& name : waitingFor(game)) hall.show(name, boardLineFor(game, name, now) + tried);
    for (const std::string& name : game.observers) hall.show(name, boardLineFor(game, name, now) + tried);
}

void playMove(Hall& hall, Game& game, const std::string& move) {
    const auto position = readFen(game.facts.fen).value_or(Position{});
    PlayedMove played;
    played.engineForm = move;
    played.verbose = verboseForm(position, move);
    played.pretty = shortForm(position, game.facts.legal, move);
    played.doublePushFile = doublePushFile(position, move);
    played.taken = game.clock.press(game.toMove(), hall.outside.now());
    // A move turns down what the opponent offered.
    const auto mover = static_cast<std::size_t>(game.toMove());
    if (game.examiner.empty()) hall.offers.dropForMover(game.names[mover], game.names[1 - mover]);
    game.pending = true;
    hall.outside.rules(game.rules, game.facts.fen, move,
                       [&hall, serial = game.serial, names = waitingFor(game), played](PositionFacts facts) {
                           moveWasJudged(hall, serial, played, std::move(facts));
                           // Their lines waited, and do so no more even if the game has ended meanwhile.
                           resumePlayers(hall, names);
                       });
}

void endGame(Hall& hall, Game& game, const std::string& reason, const std::string& result) {
    showEnd(hall, game, endLine(game, reason, result));
    releasePlayers(hall, game);
    if (result != "*") hall.archive.keep(keptGame(game, reason, result, hall.outside.wallClock()));
    const bool pairOver = betweenComputers(hall, game);
    hall.offers.dropWithinGame(game.names[0], game.names[1]);
    hall.games.erase(game.number);
    if (pairOver) startPairLater(hall);
}

bool callFlag(Hall& hall, Game& game) {
    // While a move is judged its clock is already pressed, but the side to move is not yet the other one.
    if (game.pending) return false;
    const int late = game.toMove();
    if (!flagIsDown(hall, game, late) || !callsFlags(hall, game.names[static_cast<std::size_t>(1 - late)]))
        return false;
    endOnTime(hall, game, late);
    return true;
}

// An opponent may have moved with his flag down, and the clock that stands shows it still.
bool claimFlag(Hall& hall, Game& game, const Player& player) {
    const int late = 1 - game.sideOf(player.name);
    if (game.pending || !flagIsDown(hall, game, late)) return false;
    endOnTime(hall, game, late);
    return true;
}

void watchClocks(Hall& hall) {
    std::vector<int> numbers;
    for (const auto& [number, game] : hall.games) numbers.push_back(number);
    for (const int number : numbers) {
        if (Game* game = hall.game(number)) callFlag(hall, *game);
    }
}

void abandonGame(Hall& hall, Player& player) {
    for (Game* game : hall.gamesOf(player)) {
        const int side = game->sideOf(player.name);
        const std::string word = "Game " + std::to_string(game->number) + ": " + player.name + " disconnected.";
        hall.show(game->opponentOf(player.name), word);
        showObservers(hall, *game, word);
        if (game->moves.size() < fewMoves) {
            endGame(hall, *game, player.name + " lost connection and too few moves; game aborted", "*");
        } else {
            endGame(hall, *game, player.name + " forfeits by disconnection", lossOf(side));
        }
    }
}

void observeGame(Game& game, Player& player) {
    game.observers.push_back(player.name);
    player.observing.push_back(game.number);
}

bool unobserveGame(Hall& hall, Player& player, int number) {
    if (std::erase(player.observing, number) == 0) return false;
    if (Game* game = hall.game(number)) std::erase(game->observers, player.name);
    return true;
}

std::string unobservedLine(int number) { return "Removing game " + std::to_string(number) + " from observation list."; }

std::string unobserveAll(Hall& hall, Player& player) {
    std::string text;
    while (!player.observing.empty()) {
        const int number = player.observing.front();
        text += (text.empty() ? "" : "\n") + unobservedLine(number);
        unobserveGame(hall, player, number);
    }
    return text;
}

void showObservers(Hall& hall, const Game& game, const std::string& text) {
    for (const std::string& name : game.observers) hall.show(name, text);
}

} // namespace practice
