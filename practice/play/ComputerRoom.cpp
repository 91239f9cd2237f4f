// What the computer players do in the hall: offer games, think, answer, and play each other.
#include "practice/play/ComputerRoom.h"

#include "practice/hall/Computers.h"
#include "practice/play/AdRoom.h"
#include "practice/play/GameStart.h"
#include "practice/play/Moves.h"
#include "practice/play/OfferRoom.h"

#include <algorithm>

namespace practice {

namespace {

constexpr int hurryBelow = 8'000; // milliseconds left on the computer's clock

bool inHurry(const Hall& hall, const Game& game) {
    return game.clock.timed && game.clock.remaining(game.toMove(), game.toMove(), hall.outside.now()) < hurryBelow;
}

// How long the whole move may look like thinking.
int paceOf(Hall& hall, const Game& game, const Computer& computer) {
    if (computer.prompt) return 0;
    if (inHurry(hall, game)) return 50;
    const bool pair = computerNamed(game.names[0]) && computerNamed(game.names[1]);
    return pair ? hall.randomDelay(hall.moveDelay / 2, hall.moveDelay * 3 / 2) : hall.randomDelay(350, 900);
}

// All moves are told, not the position alone, so that the engine sees repetitions.
SearchOrder orderFor(const Hall& hall, const Game& game, const Computer& computer) {
    SearchOrder order;
    order.rules = game.rules;
    order.startFen = game.startFen;
    for (const PlayedMove& move : game.moves) order.moves.push_back(move.engineForm);
    order.depth = inHurry(hall, game) ? std::min(computer.depth, 4) : computer.depth;
    order.proposals = computer.proposals;
    return order;
}

// Plays what the engine proposed, or any legal move when it gave none that is legal.
void playChosen(Hall& hall, Game& game, const std::string& chosen) {
    if (game.facts.legal.empty()) return;
    const auto& legal = game.facts.legal;
    const bool known = std::find(legal.begin(), legal.end(), chosen) != legal.end();
    const std::string move = known ? chosen : legal.front();
    playMove(hall, game, move);
}

// A game waits for this move only if nothing has been moved or taken back since.
Game* stillWaiting(Hall& hall, std::uint64_t serial, std::uint64_t course) {
    Game* game = hall.gameBySerial(serial);
    return game && !game->pending && game->course == course ? game : nullptr;
}

void think(Hall& hall, Game& game, const Computer& computer) {
    const auto serial = game.serial;
    const auto course = game.course;
    const auto due = hall.outside.now() + paceOf(hall, game, computer);
    hall.outside.search(orderFor(hall, game, computer), [&hall, &computer, serial, course, due](auto proposals) {
        Game* waiting = stillWaiting(hall, serial, course);
        if (!waiting) return;
        waiting->computerScore = proposals.empty() ? 0 : proposals.front().score;
        const std::string chosen = chooseMove(proposals, computer.margin, waiting->dice);
        const int wait = static_cast<int>(std::max<std::int64_t>(0, due - hall.outside.now()));
        hall.outside.later(wait, [&hall, serial, course, chosen] {
            if (Game* ready = stillWaiting(hall, serial, course)) playChosen(hall, *ready, chosen);
        });
    });
}

// Accepts in a moment, if the challenge still stands then.
void consider(Hall& hall, const PendingOffer& offer) {
    hall.outside.later(100, [&hall, serial = offer.serial] {
        if (const int number = hall.offers.numberOf(serial); number != 0) acceptOffer(hall, number);
    });
}

void startPair(Hall& hall) {
    std::vector<Player*> pair;
    for (const Computer& computer : computers()) {
        if (computer.role == Role::Pair) pair.push_back(hall.find(computer.name));
    }
    const auto isBusy = [&](const Player* player) { return !player || !hall.gamesOf(*player).empty(); };
    if (pair.size() != 2 || std::any_of(pair.begin(), pair.end(), isBusy)) return;
    startGame(hall, *pair[0], *pair[1], computerNamed(pair[0]->name)->offer);
}

// Both of the pair ask for it, and whoever comes second finds a game on.
void startPairLater(Hall& hall) {
    hall.outside.later(std::min(3000, 100 + 2 * hall.moveDelay), [&hall] { startPair(hall); });
}

// Who came like a person says what he is all the same, in his notes.
void letIn(Hall& hall, const Computer& computer) {
    Player& player = hall.enter(computer.name, computer.title, computer.ratingText());
    player.computer = true;
    player.manyGames = computer.role == Role::Host;
    player.channels.clear();
    player.variables.notes[0] = computer.about;
    player.variables.notes[1] = "The practice hall's engine plays my games.";
    player.reactions.toMove = [&hall, &computer](Game& game) { think(hall, game, computer); };
    player.reactions.challenged = [&hall](const PendingOffer& offer) { consider(hall, offer); };
    player.reactions.gameOver = [&hall, &computer] {
        computer.role == Role::Pair ? startPairLater(hall) : bringBackAd(hall, computer);
    };
    if (computer.role == Role::Pair) applySetting(player.variables, "open", "0");
}

// What a computer says of how to get a game.
std::string invitation(Hall& hall, const Player& computer) {
    if (!hall.seeks.numbersOf(computer.name).empty()) return "\"sought\" shows my ad.";
    if (!hall.gamesOf(computer).empty()) return "\"observe " + computer.name + "\" shows my game.";
    return "\"match " + computer.name + "\" gets you a game.";
}

} // namespace

void openComputerRoom(Hall& hall) {
    for (const Computer& computer : computers()) letIn(hall, computer);
    openAds(hall);
    startPair(hall);
}

void answerTell(Hall& hall, const Player& computer, const std::string& teller) {
    const std::string line =
        computer.titled() + " tells you: I talk best over the board; " + invitation(hall, computer);
    hall.outside.later(300, [&hall, line, teller] { hall.show(teller, line); });
}

} // namespace practice
