// The special keys of a typing line, in the console and on every board.
#include "common/TypingKey.h"

#include "common/modChess.h"

namespace {

// "Kibitz " in the console, "xKibitz 42 " on the board of game 42.
std::string toGame(const std::string& command, std::optional<int> game) {
    return game ? "x" + command + " " + std::to_string(*game) + " " : command + " ";
}

} // namespace

TypingAnswer typingAnswer(int key, CommandHistory& history, const std::string& line, std::optional<int> game) {
    switch (key) {
    case KeyUp:
        return {true, history.up(line)};
    case KeyDown:
        return {true, history.down()};
    case KeyF5:
        return {true, "Say "};
    case KeyF7:
        return {true, toGame("Kibitz", game)};
    case KeyF8:
        return {true, toGame("Whisper", game)};
    case KeyF9:
        return {true, "Tell " + modChess.TellTarget + " "};
    default:
        return {};
    }
}
