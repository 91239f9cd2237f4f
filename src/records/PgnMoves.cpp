// The moves of a game file's game, cut out of its text.
#include "records/PgnMoves.h"

#include "common/Numbers.h"
#include "common/Text.h"

namespace {

enum State : std::int16_t { WhiteMove, BlackMove, Number };

bool isRank(char c) { return c >= '1' && c <= '8'; }

bool isFile(char c) { return c >= 'a' && c <= 'h'; }

bool isCapture(char c) { return c == 'x' || c == 'X'; }

// By its first two characters.
bool looksLikeMove(std::string_view token) {
    if (token.size() < 2) return false;
    const char first = token[0];
    const char second = token[1];
    if (contains("KQRBN", token.substr(0, 1))) return isRank(second) || isFile(second) || isCapture(second);
    if (isFile(first)) return isRank(second) || isCapture(second);
    return (first == 'O' || first == 'o') && second == '-';
}

} // namespace

PgnEnd cutPgnMoves(std::string_view text,
                   const Needed<void(std::int16_t number, int side, std::string_view move)>& store) {
    PgnEnd end;
    std::size_t from = 0;
    while (true) {
        const std::size_t blank = text.find(' ', from);
        if (blank == text.npos) return end;
        const std::string_view token = text.substr(from, blank - from);
        from = text.find_first_not_of(' ', blank);
        if (from == text.npos) return end;
        if (token.ends_with('.')) {
            end.number = toInt16(leadingNumber(token));
            end.state = WhiteMove;
        } else if (end.state == WhiteMove) {
            store(end.number, 0, token);
            store(end.number, 1, "");
            end.state = BlackMove;
        } else if (end.state == BlackMove) {
            if (!looksLikeMove(token)) return end;
            store(end.number, 1, token);
            end.state = Number;
        }
    }
}
