// What the computer players do in the hall: offer games, think, answer, and play each other.
#include "practice/play/ComputerRoom.h"

#include "practice/hall/Computers.h"
#include "practice/play/GameStart.h"
#include "practice/play/Moves.h"
#include "practice/play/OfferRoom.h"

#include <algorithm>

namespace practice {

namespace {

constexpr int hurryBelow = 8'000; // milliseconds left on the computer's clock

const Computer* characterOf(const std::string& name) {
    const auto& all = computers();
    const auto at = std::find_if(all.begin(), all.end(), [&](const Computer& c) { return c.name == name; });
    return at == all.end() ? nullptr : &*at;
}

bool inHurry(const Hall& hall, const Game& game) {
    return game.clock.timed && game.clock.remaining(game.toMove(), game.toMove(), hall.outside.now()) < hurryBelow;
}

// How long the whole move may look like thinking.
int paceOf(Hall& hall, const Game& game, const Computer& computer) {
    if (computer.prompt) return 0;
    if (inHurry(hall, game)) return 50;
    const bool pair = characterOf(game.names[0]) && characterOf(game.names[1]);
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
        if (computer.always) pair.push_back(hall.find(computer.name));
    }
    const auto isBusy = [&](const Player* player) { return !player || !hall.gamesOf(*player).empty(); };
    if (pair.size() != 2 || std::any_of(pair.begin(), pair.end(), isBusy)) return;
    startGame(hall, *pair[0], *pair[1], characterOf(pair[0]->name)->offer);
}

// Both of the pair ask for it, and whoever comes second finds a game on.
void startPairLater(Hall& hall) {
    hall.outside.later(std::min(3000, 100 + 2 * hall.moveDelay), [&hall] { startPair(hall); });
}

void letIn(Hall& hall, const Computer& computer) {
    Player& player = hall.enter(computer.name, "(C)", std::to_string(computer.rating));
    player.channels.clear();
    player.variables.notes[0] = computer.about;
    player.reactions.toMove = [&hall, &computer](Game& game) { think(hall, game, computer); };
    player.reactions.challenged = [&hall](const PendingOffer& offer) { consider(hall, offer); };
    if (!computer.always) {
        hall.seeks.post({player.name, player.title, player.rating, computer.offer});
        return;
    }
    player.reactions.gameOver = [&hall] { startPairLater(hall); };
    applySetting(player.variables, "open", "0");
}

} // namespace

void openComputerRoom(Hall& hall) {
    for (const Computer& computer : computers()) letIn(hall, computer);
    startPair(hall);
}

void answerTell(Hall& hall, const Player& computer, const std::string& teller) {
    const Computer* character = characterOf(computer.name);
    const bool always = character && character->always;
    const std::string line = computer.titled() + " tells you: I talk best over the board; " +
                             (always ? "\"observe " + computer.name + "\" shows mine." : "\"sought\" shows my ad.");
    hall.outside.later(300, [&hall, line, teller] { hall.show(teller, line); });
}

} // namespace practice
