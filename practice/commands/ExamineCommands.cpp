// Commands about games that are over or adjourned: lists, journals, move lists, examining.
#include "practice/commands/Subjects.h"
#include "practice/play/ExamineRoom.h"
#include "practice/text/Text.h"

namespace practice {

namespace {

const Answer notExamining{"You are not examining any games."};

// The whole handle that a word means, of somebody here or of a registered player; empty if there is none.
std::string handleMeant(Hall& hall, const Player& player, const std::string& word) {
    if (word.empty()) return player.name;
    if (const Player* other = hall.findByHead(word)) return other->name;
    const Account* account = hall.accounts.find(word);
    return account ? account->name : std::string();
}

Answer history(Hall& hall, Player& player, const Arguments& arguments) {
    const std::string name = handleMeant(hall, player, arguments.word(0));
    return name.empty() ? noSuchPlayer(arguments.word(0)) : Answer{historyTable(hall.archive, name)};
}

Answer stored(Hall& hall, Player& player, const Arguments& arguments) {
    const std::string name = handleMeant(hall, player, arguments.word(0));
    if (name.empty()) return noSuchPlayer(arguments.word(0));
    return {storedTable(hall.archive, name, [&](const std::string& other) { return hall.find(other) != nullptr; })};
}

// Everybody reads his own.
bool mayReadJournal(Hall& hall, const Player& player, const std::string& owner) {
    const Variables* settings = hall.settingsOf(owner);
    return owner == player.name || !settings || settings->value("jprivate") == 0;
}

std::string privateJournal(const std::string& owner) { return "The journal of " + owner + " is private."; }

Answer journal(Hall& hall, Player& player, const Arguments& arguments) {
    const std::string name = handleMeant(hall, player, arguments.word(0));
    if (name.empty()) return noSuchPlayer(arguments.word(0));
    return {mayReadJournal(hall, player, name) ? journalTable(hall.archive, name) : privateJournal(name)};
}

// "A" or "a" is slot 1 of a journal; 0 for a word that names none.
int slotMeant(const std::string& word) {
    const int slot = word.size() == 1 ? upperOf(word[0]) - 'A' + 1 : 0;
    return slot >= 1 && slot <= Archive::slots ? slot : 0;
}

std::string slotName(int slot) { return {static_cast<char>('A' + slot - 1)}; }

// What "NAME NUMBER", "NAME SLOT" or "NAME OPPONENT" means, with the player's own name where none is given: a game of
// the history, of the journal, or an adjourned one.
struct Wanted {
    KeptGamePtr game;
    std::string complaint;
};

Wanted wantedGame(Hall& hall, const Player& player, const std::vector<std::string>& words) {
    const std::string which = words.back();
    const std::string named = words.size() == 1 ? std::string() : words.front();
    const std::string name = handleMeant(hall, player, named);
    if (name.empty()) return {nullptr, noSuchPlayer(named).text};
    if (const int slot = slotMeant(which)) {
        if (!mayReadJournal(hall, player, name)) return {nullptr, privateJournal(name)};
        const KeptGamePtr game = hall.archive.inJournal(name, slot);
        return {game, game ? "" : "Journal entry " + slotName(slot) + " is not available for " + name + "."};
    }
    if (const KeptGamePtr game = hall.archive.find(name, which)) return {game, {}};
    const std::string other = handleMeant(hall, player, which);
    if (const KeptGamePtr game = hall.archive.adjournedBetween(name, other); game && !other.empty()) return {game, {}};
    return {nullptr, "There is no history game " + which + " for " + name + "."};
}

Answer storedMoves(Hall& hall, Player& player, const Arguments& arguments) {
    if (arguments.words.empty()) return {"Usage: smoves [name] number|slot|opponent"};
    const Wanted wanted = wantedGame(hall, player, arguments.words);
    return {wanted.game ? "\n" + keptMoveList(*wanted.game) : wanted.complaint};
}

// There is no mail; the answer says where the moves are to be had.
Answer mailStored(Hall& hall, Player& player, const Arguments& arguments) {
    if (arguments.words.empty()) return {"Usage: mailstored [name] number|slot|opponent"};
    const Wanted wanted = wantedGame(hall, player, arguments.words);
    if (!wanted.game) return {wanted.complaint};
    return {"There is no mail in the practice hall; \"smoves " + arguments.rest + "\" shows the moves."};
}

Answer saveInJournal(Hall& hall, Player& player, const Arguments& arguments) {
    const int slot = slotMeant(arguments.word(0));
    if (arguments.words.size() < 2) return {"Usage: jsave slot [name] number|slot|opponent"};
    if (slot == 0) return {"Your maximum journal entry is " + slotName(Archive::slots)};
    const Wanted wanted = wantedGame(hall, player, {arguments.words.begin() + 1, arguments.words.end()});
    if (!wanted.game) return {wanted.complaint};
    hall.archive.putInJournal(player.name, slot, wanted.game);
    return {"Game " + arguments.restBehindFirst() + " saved in slot " + slotName(slot) + " in journal."};
}

Answer removeFromJournal(Hall& hall, Player& player, const Arguments& arguments) {
    const int slot = slotMeant(arguments.word(0));
    if (arguments.words.empty()) return {"Usage: jkill slot"};
    if (slot == 0) return {"Your maximum journal entry is " + slotName(Archive::slots)};
    if (!hall.archive.inJournal(player.name, slot)) return {"You have no journal entry " + slotName(slot) + "."};
    hall.archive.putInJournal(player.name, slot, nullptr);
    return {"Journal entry " + slotName(slot) + " deleted."};
}

Answer examine(Hall& hall, Player& player, const Arguments& arguments) {
    if (player.playing != 0) return {"You are playing a game."};
    if (player.examining != 0) return {"You are already examining a game."};
    if (arguments.words.empty()) return {startExamining(hall, player, nullptr)};
    const Wanted wanted = wantedGame(hall, player, arguments.words);
    return {wanted.game ? startExamining(hall, player, wanted.game.get()) : wanted.complaint};
}

Answer shareExamined(Hall& hall, Player& player, const Arguments& arguments) {
    if (player.examining == 0) return notExamining;
    if (arguments.words.empty()) return {"Usage: mexamine NAME"};
    Player* to = hall.findByHead(arguments.word(0));
    if (!to) return notOnline(arguments.word(0));
    if (hall.game(player.examining)->isExaminer(to->name)) return {to->name + " is examining this game already."};
    return {shareExamining(hall, player, *to)};
}

Answer walk(Hall& hall, Player& player, const Arguments& arguments,
            std::string (*step)(Hall& hall, Player& player, int halfmoves)) {
    if (player.examining == 0) return notExamining;
    const auto count = arguments.words.empty() ? std::optional<int>(1) : number(arguments.word(0));
    if (!count || *count == 0) return {"How many half-moves?"};
    return {step(hall, player, *count)};
}

Answer forward(Hall& hall, Player& player, const Arguments& arguments) {
    return walk(hall, player, arguments, goForward);
}

Answer backward(Hall& hall, Player& player, const Arguments& arguments) {
    return walk(hall, player, arguments, goBackward);
}

Answer revert(Hall& hall, Player& player, const Arguments&) {
    return player.examining == 0 ? notExamining : Answer{revertToMainLine(hall, player)};
}

Answer unexamine(Hall& hall, Player& player, const Arguments&) {
    return player.examining == 0 ? notExamining : Answer{stopExamining(hall, player)};
}

} // namespace

const CommandTable& examineCommands() {
    static const CommandTable routines{
        {"backward", backward},       {"examine", examine}, {"forward", forward},     {"history", history},
        {"jkill", removeFromJournal}, {"journal", journal}, {"jsave", saveInJournal}, {"mailstored", mailStored},
        {"mexamine", shareExamined},  {"revert", revert},   {"smoves", storedMoves},  {"stored", stored},
        {"unexamine", unexamine},
    };
    return routines;
}

} // namespace practice
