// Commands of those who talk: tells, shouts, channels, and words over the board.
#include "practice/commands/Subjects.h"
#include "practice/play/ComputerRoom.h"
#include "practice/text/Text.h"

#include <map>

namespace practice {

namespace {

constexpr int highestChannel = 255;

std::string wrappedFor(const Player& reader, const std::string& text) {
    return wrapped(text, static_cast<std::size_t>(reader.variables.value("width")));
}

void speak(const Player& to, const std::string& text) { to.show(wrappedFor(to, text)); }

bool isOn(const Player& player, int channel) { return player.channels.count(channel) > 0; }

bool hearsChannel(const Player& listener, const Player& speaker) {
    const Variables& settings = listener.variables;
    if (settings.value("chanoff") != 0) return false;
    return &listener == &speaker ||
           (!listener.playsInSilence() && (!speaker.isGuest() || settings.value("ctell") != 0));
}

bool hearsShout(const Player& listener, const Player& speaker) {
    return !listener.computer && &listener != &speaker && listener.variables.value("shout") != 0 &&
           !listener.playsInSilence();
}

bool hearsKibitz(const Player& listener, const Player& speaker) {
    return &listener != &speaker && listener.variables.value("kibitz") != 0 &&
           speaker.ratingValue() >= listener.variables.value("kiblevel");
}

// Ada(50): hello
Answer tellChannel(Hall& hall, Player& player, int channel, const std::string& text) {
    const std::string number = std::to_string(channel);
    if (!isOn(player, channel)) return {"(Not sent because you are not in channel " + number + ".)"};
    const std::string line = player.titled() + "(" + number + "): " + text;
    int heard = 0;
    for (const Player& other : hall.players) {
        if (!isOn(other, channel) || !hearsChannel(other, player)) continue;
        if (&other != &player) speak(other, line);
        ++heard;
    }
    return {wrappedFor(player, line) + "\n(told " + counted(heard, "player") + " in channel " + number + ")"};
}

// Ada tells you: hello
Answer tellPlayer(Hall& hall, Player& player, Player& to, const std::string& text) {
    if (player.isGuest() && to.variables.value("tell") == 0)
        return {to.name + " does not listen to unregistered users."};
    player.lastTold = to.name;
    const std::string line = player.titled() + " tells you: " + text;
    if (&to == &player) return {wrappedFor(player, line) + "\n(told " + to.name + ")"};
    speak(to, line);
    if (to.computer) answerTell(hall, to, player.name);
    const bool playing = !hall.gamesOf(to).empty();
    return {"(told " + to.name +
            (playing             ? ", who is playing)"
             : to.examining != 0 ? ", who is examining a game)"
                                 : ")")};
}

Answer tell(Hall& hall, Player& player, const Arguments& arguments) {
    const std::string text = arguments.restBehindFirst();
    if (text.empty()) return {"Usage: tell NAME|CHANNEL TEXT"};
    if (const auto channel = number(arguments.word(0))) {
        if (*channel > highestChannel) return {"Channels go from 0 to " + std::to_string(highestChannel) + "."};
        return tellChannel(hall, player, *channel, text);
    }
    const std::string name = arguments.word(0) == "." ? player.lastTold : arguments.word(0);
    if (name.empty()) return {"You have told nobody anything yet."};
    Player* to = hall.findByHead(name);
    if (!to) return notOnline(name);
    return tellPlayer(hall, player, *to, text);
}

Answer say(Hall& hall, Player& player, const Arguments& arguments) {
    if (arguments.rest.empty()) return {"Usage: say TEXT"};
    if (player.lastOpponent.empty() && player.playing == 0) return {"You have not played anybody."};
    const Game* game = hall.game(player.playing);
    const std::string name = game ? game->opponentOf(player.name) : player.lastOpponent;
    Player* to = hall.find(name);
    if (!to) return {name + " is no longer logged on."};
    const std::string tag = game ? "[" + std::to_string(game->number) + "]" : "";
    speak(*to, player.titled() + tag + " says: " + arguments.rest);
    return {"(told " + to->name + (game ? ", who is playing)" : ")")};
}

Answer shoutLine(Hall& hall, Player& player, const std::string& line, const std::string& verb) {
    int heard = 0;
    for (const Player& other : hall.players) {
        if (!hearsShout(other, player)) continue;
        speak(other, line);
        ++heard;
    }
    return {wrappedFor(player, line) + "\n(" + verb + " to " + counted(heard, "player") + ")"};
}

Answer shout(Hall& hall, Player& player, const Arguments& arguments) {
    if (arguments.rest.empty()) return {"Usage: shout TEXT"};
    return shoutLine(hall, player, player.titled() + " shouts: " + arguments.rest, "shouted");
}

Answer it(Hall& hall, Player& player, const Arguments& arguments) {
    if (arguments.rest.empty()) return {"Usage: it TEXT"};
    return shoutLine(hall, player, "--> " + player.titled() + " " + arguments.rest, "it-shouted");
}

// Words to a game's observers, and to its players unless whispered.
Answer comment(Hall& hall, Player& player, const Game& game, const std::string& text, bool whisper) {
    const std::string line = player.titled() + "(" + player.rating + ")[" + std::to_string(game.number) + "] " +
                             (whisper ? "whispers: " : "kibitzes: ") + text;
    int heard = 0;
    for (const Player& other : hall.players) {
        const bool plays = (!whisper && game.sideOf(other.name) >= 0) || game.isExaminer(other.name);
        if ((!game.isObserver(other.name) && !plays) || !hearsKibitz(other, player)) continue;
        speak(other, line);
        ++heard;
    }
    return {wrappedFor(player, line) + "\n(" + (whisper ? "whispered" : "kibitzed") + " to " +
            counted(heard, "player") + ")"};
}

Answer commentAtHand(Hall& hall, Player& player, const Arguments& arguments, bool whisper) {
    const Game* game = hall.gameAtHand(player);
    if (!game) return noGameAtHand;
    if (arguments.rest.empty()) return {"There is nothing to say."};
    return comment(hall, player, *game, arguments.rest, whisper);
}

Answer commentOn(Hall& hall, Player& player, const Arguments& arguments, bool whisper) {
    const auto which = number(arguments.word(0));
    const Game* game = which ? hall.game(*which) : nullptr;
    if (!game) return {"There is no such game."};
    if (arguments.restBehindFirst().empty()) return {"There is nothing to say."};
    return comment(hall, player, *game, arguments.restBehindFirst(), whisper);
}

Answer kibitz(Hall& hall, Player& player, const Arguments& arguments) {
    return commentAtHand(hall, player, arguments, false);
}

Answer whisper(Hall& hall, Player& player, const Arguments& arguments) {
    return commentAtHand(hall, player, arguments, true);
}

Answer kibitzOn(Hall& hall, Player& player, const Arguments& arguments) {
    return commentOn(hall, player, arguments, false);
}

Answer whisperOn(Hall& hall, Player& player, const Arguments& arguments) {
    return commentOn(hall, player, arguments, true);
}

// A number is no channel here.
Answer tellName(Hall& hall, Player& player, const Arguments& arguments) {
    if (number(arguments.word(0))) return {"Usage: xtell NAME TEXT"};
    return tell(hall, player, arguments);
}

// 50: Ada Bert(U)
Answer inChannel(Hall& hall, Player&, const Arguments& arguments) {
    std::map<int, std::string> lists;
    for (const Player& player : hall.players) {
        for (const int channel : player.channels) lists[channel] += " " + player.titled();
    }
    const auto wanted = number(arguments.word(0));
    std::string text;
    for (const auto& [channel, names] : lists) {
        if (wanted && *wanted != channel) continue;
        text += (text.empty() ? "" : "\n") + std::to_string(channel) + ":" + names;
    }
    return {text.empty() ? "Nobody is in that channel." : text};
}

} // namespace

Answer changeChannel(Player& player, const std::string& which, bool join) {
    const auto channel = number(which);
    if (!channel || *channel > highestChannel) return {"Channels go from 0 to " + std::to_string(highestChannel) + "."};
    const std::string name = "[" + which + "]";
    if (join == isOn(player, *channel)) {
        return {name + (join ? " is already on your channel list." : " is not in your channel list.")};
    }
    if (join) {
        player.channels.insert(*channel);
        return {name + " added to your channel list."};
    }
    player.channels.erase(*channel);
    return {name + " removed from your channel list."};
}

const CommandTable& talkCommands() {
    static const CommandTable routines{
        {"inchannel", inChannel}, {"it", it},
        {"kibitz", kibitz},       {"say", say},
        {"shout", shout},         {"tell", tell},
        {"whisper", whisper},     {"xkibitz", kibitzOn},
        {"xtell", tellName},      {"xwhisper", whisperOn},
    };
    return routines;
}

} // namespace practice
