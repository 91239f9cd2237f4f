// The course of a game: start, moves, offers, and all the ways it ends.
#include "practice/Play.h"

#include "practice/ComputerRoom.h"
#include "practice/MoveText.h"
#include "practice/Text.h"

#include <algorithm>
#include <optional>

namespace practice {

namespace {

constexpr std::size_t fewMoves = 2;           // a game with fewer half-moves is aborted, not lost
constexpr std::size_t computerPlyLimit = 300; // 150 moves between two computers

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

Game& newGame(Hall& hall, const Terms& terms) {
    const int number = freeNumber(hall);
    Game& game = hall.games[number];
    game.number = number;
    game.serial = ++hall.lastSerial;
    game.terms = terms;
    game.dice.seed(hall.seed + static_cast<std::uint32_t>(game.serial));
    game.startedAt = hall.outside.wallClock();
    game.facts = hall.start;
    game.seen[repetitionKey(game.facts.fen)] = 1;
    game.clock.start(terms.minutes, terms.increment, hall.outside.now());
    return game;
}

// A client plays one game at a time and offers no others meanwhile; a computer keeps its ad open.
void seatPlayer(Hall& hall, const Game& game, Player& player) {
    unobserveAll(hall, player);
    if (player.isComputer()) return;
    player.playing = game.number;
    hall.seeks.removeOwner(player.name);
}

// Creating: Ada (1711) Bert (++++) unrated blitz 5 0
// {Game 1 (Ada vs. Bert) Creating unrated blitz match.}
void showStart(Hall& hall, const Game& game, const std::string& name) {
    const std::string head = "Creating: " + game.names[0] + " (" + game.ratings[0] + ") " + game.names[1] + " (" +
                             game.ratings[1] + ") " + termsText(game.terms);
    const std::string number = std::to_string(game.number);
    hall.show(name, head + "\n{Game " + number + " " + pairing(game) + " Creating " +
                        (game.terms.rated ? "rated " : "unrated ") +
                        gameKind(game.terms.minutes, game.terms.increment) + " match.}\nGame " + number +
                        ": A disconnection will be considered a forfeit.\n\n" +
                        boardLineFor(game, name, hall.outside.now()));
}

void showBoard(Hall& hall, const Game& game) {
    const auto now = hall.outside.now();
    for (const std::string& name : game.names) hall.show(name, boardLineFor(game, name, now));
    for (const std::string& name : game.observers) hall.show(name, boardLineFor(game, name, now));
}

bool betweenComputers(Hall& hall, const Game& game) {
    return std::all_of(game.names.begin(), game.names.end(), [&](const std::string& name) {
        const Player* player = hall.find(name);
        return player && player->isComputer();
    });
}

// The reason and result of a game that its last move has ended.
struct Ending {
    std::string reason;
    std::string result;
};

// The order matters only when several hold: the plainest reason is told.
std::optional<Ending> drawnBy(Hall& hall, const Game& game, const Position& position) {
    const std::string half = "1/2-1/2";
    if (!hasMatingMaterial(position, true) && !hasMatingMaterial(position, false)) {
        return Ending{"Neither player has mating material", half};
    }
    if (game.seen.at(repetitionKey(game.facts.fen)) >= 3) return Ending{"Game drawn by repetition", half};
    if (position.halfmoves >= 100) return Ending{"Game drawn by the 50 move rule", half};
    const auto limit = betweenComputers(hall, game) ? computerPlyLimit : Game::plyLimit;
    if (game.moves.size() >= limit) return Ending{"Game drawn by adjudication", half};
    return std::nullopt;
}

std::optional<Ending> endingOf(Hall& hall, const Game& game) {
    const auto position = readFen(game.facts.fen);
    if (!position) return Ending{"Game aborted by the rules engine", "*"};
    if (!game.facts.legal.empty()) return drawnBy(hall, game, *position);
    if (!game.facts.check) return Ending{"Game drawn by stalemate", "1/2-1/2"};
    const int loser = game.toMove();
    return Ending{game.names[static_cast<std::size_t>(loser)] + " checkmated", lossOf(loser)};
}

void resumePlayers(Hall& hall, const std::array<std::string, 2>& names) {
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
    game->facts = std::move(facts);
    game->moves.push_back(std::move(move));
    ++game->seen[repetitionKey(game->facts.fen)];
    showBoard(hall, *game);
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
    } else if (!hasMatingMaterial(position, loser == 1)) {
        endGame(hall, game, late + " ran out of time and " + other + " has no material to mate", "1/2-1/2");
    } else {
        endGame(hall, game, late + " forfeits on time", lossOf(loser));
    }
}

} // namespace

Game& startGame(Hall& hall, Player& first, Player& second, const Terms& terms) {
    Game& game = newGame(hall, terms);
    const bool straight = firstIsWhite(game);
    const std::array<Player*, 2> sides{straight ? &first : &second, straight ? &second : &first};
    for (const std::size_t side : {std::size_t{0}, std::size_t{1}}) {
        game.names[side] = sides[side]->name;
        game.ratings[side] = trim(sides[side]->rating);
        seatPlayer(hall, game, *sides[side]);
    }
    for (const Player* player : sides) showStart(hall, game, player->name);
    letComputerThink(hall, game);
    return game;
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
    if (game.offer != Offer::None && game.offeredBy != game.toMove()) game.offer = Offer::None;
    game.pending = true;
    hall.outside.rules(game.facts.fen, move,
                       [&hall, serial = game.serial, names = game.names, played](PositionFacts facts) {
                           moveWasJudged(hall, serial, played, std::move(facts));
                           // Their lines waited, and do so no more even if the game has ended meanwhile.
                           resumePlayers(hall, names);
                       });
}

void endGame(Hall& hall, Game& game, const std::string& reason, const std::string& result) {
    showEnd(hall, game, endLine(game, reason, result));
    releasePlayers(hall, game);
    const bool pairOver = betweenComputers(hall, game);
    hall.games.erase(game.number);
    if (pairOver) startPairLater(hall);
}

std::string lossOf(int side) { return side == 0 ? "0-1" : "1-0"; }

bool callFlag(Hall& hall, Game& game, bool claimed) {
    // While a move is judged its clock is already pressed, but the side to move is not yet the other one.
    if (game.pending) return false;
    const int late = game.toMove();
    if (!flagIsDown(hall, game, late)) return false;
    if (!claimed && !callsFlags(hall, game.names[static_cast<std::size_t>(1 - late)])) return false;
    endOnTime(hall, game, late);
    return true;
}

void watchClocks(Hall& hall) {
    std::vector<int> numbers;
    for (const auto& [number, game] : hall.games) numbers.push_back(number);
    for (const int number : numbers) {
        if (Game* game = hall.game(number)) callFlag(hall, *game, false);
    }
}

void abandonGame(Hall& hall, Player& player) {
    for (Game* game : hall.gamesOf(player)) {
        const int side = game->sideOf(player.name);
        const std::string word = "Game " + std::to_string(game->number) + ": " + player.name + " disconnected.";
        hall.show(game->names[static_cast<std::size_t>(1 - side)], word);
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

void unobserveAll(Hall& hall, Player& player) {
    while (!player.observing.empty()) unobserveGame(hall, player, player.observing.back());
}

void showObservers(Hall& hall, const Game& game, const std::string& text) {
    for (const std::string& name : game.observers) hall.show(name, text);
}

} // namespace practice
