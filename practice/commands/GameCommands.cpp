// Commands of those who play: moves, ends, ads.
#include "practice/chess/MoveText.h"
#include "practice/commands/Subjects.h"
#include "practice/games/GameTexts.h"
#include "practice/play/Endings.h"
#include "practice/play/Flags.h"
#include "practice/play/GameEnd.h"
#include "practice/play/Moves.h"
#include "practice/play/SeekRoom.h"
#include "practice/text/Text.h"

#include <map>
#include <optional>

namespace practice {

namespace {

// The end line is the answer.
Answer resign(Hall& hall, Player& player, const Arguments&) {
    Game* game = hall.game(player.playing);
    if (!game) return notPlaying;
    endGame(hall, *game, player.name + " resigns", lossOf(game->sideOf(player.name)));
    return quiet;
}

Answer flag(Hall& hall, Player& player, const Arguments&) {
    Game* game = hall.game(player.playing);
    if (!game) return notPlaying;
    const std::string opponent = game->opponentOf(player.name);
    return claimFlag(hall, *game, player) ? quiet : Answer{opponent + " is not out of time."};
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
    if (player.examining != 0) return {"You cannot seek while you examine a game."};
    Terms standard;
    standard.minutes = player.variables.value("time");
    standard.increment = player.variables.value("inc");
    standard.rated = player.variables.value("rated") != 0 && !player.isGuest();
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

Answer sought(Hall& hall, Player&, const Arguments& arguments) {
    const bool understood = arguments.words.empty() || lower(arguments.word(0)) == "all";
    return {understood ? soughtTable(hall.seeks) : "Usage: sought [all]"};
}

// The ad that a number names, or the only one of a player; else the complaint.
struct NamedAd {
    std::optional<int> number;
    Answer complaint;
};

NamedAd adNamed(Hall& hall, const std::string& word) {
    if (word.empty()) return {{}, {"Usage: play NUMBER|NAME, with a number or a name of \"sought\"."}};
    if (const auto which = number(word)) return {which, {}};
    const Player* owner = hall.findByHead(word);
    if (!owner) return {{}, notOnline(word)};
    const auto numbers = hall.seeks.numbersOf(owner->name);
    if (numbers.size() == 1) return {numbers.front(), {}};
    return {{}, {owner->name + (numbers.empty() ? " is not seeking any games." : " is seeking several games.")}};
}

Answer play(Hall& hall, Player& player, const Arguments& arguments) {
    if (player.playing != 0) return {"You are playing a game already."};
    if (player.examining != 0) return {"You are examining a game."};
    const NamedAd ad = adNamed(hall, arguments.word(0));
    if (!ad.number) return ad.complaint;
    const std::string complaint = answerSeek(hall, player, *ad.number);
    return complaint.empty() ? quiet : Answer{complaint};
}

} // namespace

const CommandTable& gameCommands() {
    static const CommandTable routines{
        {"flag", flag}, {"play", play},     {"promote", promote}, {"resign", resign},
        {"seek", seek}, {"sought", sought}, {"unseek", unseek},
    };
    return routines;
}

Answer typedMove(Hall& hall, Player& player, const std::string& text) {
    Game* game = hall.gameAtBoard(player);
    if (!game) return {"You are not playing or examining a game."};
    const bool mayMove = game->isExamined() || game->sideOf(player.name) == game->toMove();
    if (game->pending || !mayMove) return {"It is not your move."};
    if (callFlag(hall, *game)) return quiet;
    if (game->moves.size() >= Game::plyLimit) return {"There is no room for more moves in this game."};
    const TypedMove typed = readMove(game->facts, text, player.promotion);
    if (typed.reading == MoveReading::Legal) {
        playMove(hall, *game, typed.move, game->isExamined() ? player.name : std::string());
        return quiet;
    }
    const std::string word = typed.reading == MoveReading::Ambiguous ? "Ambiguous move (" : "Illegal move (";
    return {word + text + ").\n\n" + boardLineFor(*game, player.name, hall.outside.now())};
}

} // namespace practice
