// The games of a file, as their tags tell of them.
#include "records/PgnGames.h"

#include "common/Numbers.h"
#include "common/Text.h"

#include <algorithm>
#include <array>
#include <utility>

namespace {

struct Tag {
    std::string_view name;
    std::string PgnGame::*field;
};

constexpr std::array Tags{
    Tag{"event", &PgnGame::Event},
    Tag{"site", &PgnGame::Site},
    Tag{"round", &PgnGame::Round},
    Tag{"white", &PgnGame::White},
    Tag{"black", &PgnGame::Black},
    Tag{"result", &PgnGame::Result},
    Tag{"whiteelo", &PgnGame::WhiteElo},
    Tag{"blackelo", &PgnGame::BlackElo},
    Tag{"date", &PgnGame::Date},
    Tag{"time", &PgnGame::Time},
    Tag{"timecontrol", &PgnGame::TimeControl},
};

// What stands between two columns, both included.
std::string_view between(std::string_view text, long first, long last) {
    return mid(text, first, std::max(last - first + 1, 0L));
}

// Behind the tags of one game; false at the end of the file.
bool readTags(LineFile& file, std::int16_t game, PgnTable& games, long& lines) {
    bool tagsSeen = false;
    for (std::string line; file.next(line);) {
        ++lines;
        const bool isTag = fQuote(line, game, games);
        if (tagsSeen && !isTag) return true;
        tagsSeen = isTag;
    }
    return false;
}

} // namespace

// [White "Anders"]
bool fQuote(std::string_view line, std::int16_t game, PgnTable& games) {
    if (line.empty() || line.front() != '[' || line.back() != ']') return false;
    PgnGame& row = games[game];
    const long blank = find(1, line, " ");
    if (blank == 0) return true;
    const auto tag = std::ranges::find(Tags, lower(between(line, 2, blank - 1)), &Tag::name);
    if (tag != Tags.end()) row.*tag->field = between(line, blank + 2, std::ssize(line) - 2);
    return true;
}

std::int16_t readPgnTags(LineFile& file, PgnTable& games) {
    std::int16_t next = 1;
    for (long lines = 0; next <= LastPgnGame && readTags(file, next, games, lines); ++next) {
        games[next].Line = toInt16(static_cast<double>(lines));
    }
    return next;
}

std::string readPgnMoves(LineFile& file) {
    std::string text;
    std::string line;
    while (true) {
        file.take(line);
        if (!line.empty()) {
            text += line;
            text += ' ';
        } else if (!text.empty()) {
            return text;
        }
    }
}
