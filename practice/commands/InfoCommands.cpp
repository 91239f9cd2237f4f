// Commands that tell about players and settings, and the one that ends the session.
#include "practice/commands/HelpTexts.h"
#include "practice/commands/Subjects.h"
#include "practice/games/Assessment.h"
#include "practice/games/Scores.h"
#include "practice/text/Pages.h"
#include "practice/text/Text.h"

#include <algorithm>
#include <optional>

namespace practice {

namespace {

constexpr std::int64_t idleAfter = 300'000; // milliseconds

// "7 secs", "12 mins", "3 hrs, 1 min": seconds are dropped as soon as there are minutes.
std::string spanText(std::int64_t milliseconds) {
    const int seconds = static_cast<int>(std::max<std::int64_t>(0, milliseconds) / 1000);
    if (seconds < 60) return counted(seconds, "sec");
    const std::string minutes = counted(seconds / 60 % 60, "min");
    return seconds < 3600 ? minutes : counted(seconds / 3600, "hr") + ", " + minutes;
}

char stateMark(Hall& hall, const Player& player) {
    if (!hall.gamesOf(player).empty()) return '^';
    if (player.examining != 0) return '#';
    if (player.variables.value("open") == 0) return ':';
    return !player.computer && hall.outside.now() - player.lastTyped > idleAfter ? '.' : ' ';
}

// Strongest first; players without a rating keep the order in which they came.
std::vector<const Player*> byRating(const Hall& hall) {
    std::vector<const Player*> result;
    for (const Player& player : hall.players) result.push_back(&player);
    std::stable_sort(result.begin(), result.end(),
                     [](auto* a, auto* b) { return a->ratingValue() > b->ratingValue(); });
    return result;
}

Answer who(Hall& hall, Player&, const Arguments&) {
    std::string text;
    int count = 0;
    for (const Player* player : byRating(hall)) {
        const std::string cell = padLeft(player->rating, 4) + stateMark(hall, *player) + player->titled();
        text += ++count % 3 == 0 ? cell + "\n" : padRight(cell, 27);
    }
    const std::string total = std::to_string(count);
    return {text + (count % 3 == 0 ? "\n" : "\n\n") + " " + counted(count, "player") + " displayed (of " + total +
            ")."};
}

// " 1: text", the number in two columns: clients look for the colon in the third.
std::string notesText(const Variables& variables, std::size_t width) {
    std::string text;
    for (int i = 1; i <= variables.noteCount(); ++i) {
        text += "\n" + wrapped(padLeft(i, 2) + ": " + variables.notes[static_cast<std::size_t>(i - 1)], width);
    }
    return text.empty() ? text : "\n" + text;
}

// All games of the history count, rated or not: a guest's and an unrated player's as well.
std::string recordText(const Hall& hall, const std::string& name, const std::string& rating) {
    const std::string table = scoreTable(hall.archive, name, rating);
    if (number(trim(rating))) return table;
    const bool guest = rating == "++++";
    return name + (guest ? " is NOT a registered player." : " has not played any rated games.") +
           (table.empty() ? "" : "\n\n" + table);
}

// Of a registered player who is not here.
std::string fingerOfAbsent(Hall& hall, const Account& account, std::size_t width) {
    const Variables* kept = hall.settingsOf(account.name);
    return "Finger of " + account.name + ":\n\n" + account.name + " is not logged on.\n\n" +
           recordText(hall, account.name, account.ratingText()) + (kept ? notesText(*kept, width) : std::string());
}

std::string fingerOf(Hall& hall, const Player& about, std::size_t width) {
    const auto now = hall.outside.now();
    std::string text = "Finger of " + about.titled() + ":\n\nOn for: " + spanText(now - about.since) +
                       "   Idle: " + spanText(about.computer ? 0 : now - about.lastTyped) + "\n";
    for (const Game* game : hall.gamesOf(about)) {
        text +=
            "(playing game " + std::to_string(game->number) + ": " + game->names[0] + " vs. " + game->names[1] + ")\n";
    }
    return text + "\n" + recordText(hall, about.name, about.rating) + notesText(about.variables, width);
}

Answer finger(Hall& hall, Player& player, const Arguments& arguments) {
    const std::string name = arguments.word(0);
    const auto width = static_cast<std::size_t>(player.variables.value("width"));
    if (const Player* about = name.empty() ? &player : hall.findByHead(name)) return {fingerOf(hall, *about, width)};
    const Account* account = hall.accounts.find(name);
    return account ? Answer{fingerOfAbsent(hall, *account, width)} : noSuchPlayer(name);
}

// Somebody who is here, or a registered player who is not.
std::optional<Rated> ratedPlayer(Hall& hall, const std::string& word) {
    if (const Player* player = hall.findByHead(word)) return Rated{player->name, player->ratingValue()};
    const Account* account = hall.accounts.find(word);
    return account ? std::optional<Rated>({account->name, account->rating}) : std::nullopt;
}

bool isGuestHere(Hall& hall, const Rated& rated) {
    const Player* player = hall.find(rated.name);
    return player && player->isGuest();
}

// With one name the player himself is the first.
Answer assess(Hall& hall, Player& player, const Arguments& arguments) {
    if (arguments.words.empty()) return {"Usage: assess NAME [NAME]"};
    const bool own = arguments.words.size() == 1;
    const std::string second = arguments.word(own ? 0 : 1);
    const auto one = ratedPlayer(hall, own ? player.name : arguments.word(0));
    const auto other = ratedPlayer(hall, second);
    if (!one || !other) return noSuchPlayer(one ? second : arguments.word(0));
    if (one->name == other->name) return {"Nobody plays himself."};
    for (const Rated& rated : {*one, *other}) {
        if (isGuestHere(hall, rated)) return {rated.name + " is not registered, so a game of the two is unrated."};
    }
    return {assessmentTable(*one, *other)};
}

Answer next(Hall&, Player& player, const Arguments&) {
    if (player.unread.empty()) return {"There is no more."};
    return {takePage(player.unread, player.variables.value("height"))};
}

Answer help(Hall& hall, Player& player, const Arguments& arguments) {
    player.unread = helpOn(arguments.rest);
    return next(hall, player, {});
}

// A registered player who has not been here yet has the settings that all have at first.
Answer variables(Hall& hall, Player& player, const Arguments& arguments) {
    const std::string word = arguments.word(0);
    const Player* about = word.empty() ? &player : hall.findByHead(word);
    if (about) return {variablesTable(about->name, about->variables)};
    const Account* account = hall.accounts.find(word);
    if (!account) return noSuchPlayer(word);
    const Variables* kept = hall.settingsOf(account->name);
    return {variablesTable(account->name, kept ? *kept : Variables())};
}

Answer set(Hall&, Player& player, const Arguments& arguments) {
    if (arguments.words.empty()) return {"Usage: set VARIABLE VALUE"};
    return {applySetting(player.variables, arguments.word(0), arguments.restBehindFirst())};
}

Answer style(Hall&, Player& player, const Arguments& arguments) {
    return {applySetting(player.variables, "style", arguments.word(0))};
}

// Clients try these at every log-on and take the refusal well.
Answer interfaceSet(Hall&, Player&, const Arguments& arguments) {
    return {"No such ivariable \"" + arguments.word(0) + "\"."};
}

Answer date(Hall& hall, Player&, const Arguments&) {
    const std::string now = hall.outside.wallClock();
    return {"Local time     - " + now + "\nServer time    - " + now};
}

Answer uptime(Hall& hall, Player&, const Arguments&) {
    return {"The practice hall has been open for " + spanText(hall.outside.now() - hall.began) + "."};
}

Answer quit(Hall&, Player& player, const Arguments&) {
    if (player.playing != 0) return {"You cannot leave while you are playing: \"resign\" or \"abort\" first."};
    return {"Logging you out.\nThe practice hall stays open; come back soon.\n", false, true};
}

} // namespace

const CommandTable& infoCommands() {
    static const CommandTable routines{
        {"assess", assess},     {"date", date},     {"finger", finger},       {"help", help},
        {"iset", interfaceSet}, {"next", next},     {"quit", quit},           {"set", set},
        {"style", style},       {"uptime", uptime}, {"variables", variables}, {"who", who},
    };
    return routines;
}

} // namespace practice
