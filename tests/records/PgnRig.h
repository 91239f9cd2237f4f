// Game files for tests: as lines, and as bytes.
#pragma once

#include "common/modChess.h"
#include "records/PgnGames.h"
#include "settings/TemporaryFolder.h"

#include <memory>
#include <string>
#include <vector>

// A game as our own writer leaves it, CR LF and all.
inline std::string pgnText(const std::string& white, const std::string& moves, const std::string& result = "1-0") {
    return "[Event \"rated blitz match\"]\r\n[Date \"2026.11.22\"]\r\n[White \"" + white +
           "\"]\r\n[Black \"Berta\"]\r\n[Result \"" + result + "\"]\r\n\r\n" + moves + "\r\n" + result + "\r\n\r\n";
}

// So many of them, their whites called "1", "2" and so on.
inline std::string pgnTexts(int count, const std::string& moves = "1. e4 e5") {
    std::string text;
    for (int game = 1; game <= count; ++game) text += pgnText(std::to_string(game), moves);
    return text;
}

// A folder with the file "games.pgn".
struct PgnRig {
    PgnRig() { modChess = {}; }
    ~PgnRig() { modChess = {}; }

    void file(const std::string& bytes) const { folder.write("games.pgn", bytes); }
    std::string path() const { return (folder.path() / "games.pgn").string(); }

    // All lines of a file of `bytes`.
    std::vector<std::string> lines(const std::string& bytes) const {
        file(bytes);
        LineFile read(path());
        std::vector<std::string> all;
        for (std::string line; read.next(line);) all.push_back(line);
        return all;
    }

    // What readPgnTags gives for a file of `bytes`.
    std::int16_t scan(const std::string& bytes) {
        file(bytes);
        LineFile read(path());
        return readPgnTags(read, games);
    }

    TemporaryFolder folder;
    std::unique_ptr<PgnTable> owned = std::make_unique<PgnTable>();
    PgnTable& games = *owned;
};

// The kind of fault that `act` ends in; "none" without one.
template <typename Act>
std::string faultOf(Act act) {
    try {
        act();
    } catch (const Fault& fault) {
        switch (fault.kind()) {
        case FaultKind::Subscript:
            return "subscript";
        case FaultKind::TypeMismatch:
            return "type mismatch";
        case FaultKind::Overflow:
            return "overflow";
        case FaultKind::File:
            return "file";
        }
    }
    return "none";
}
