// A game whose surface writes down every effect, and lines of the server to feed it with.
#pragma once

#include "board/Game.h"
#include "board/Style12Line.h"
#include "common/modChess.h"

#include <algorithm>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

inline const std::string StartRanks =
    "rnbqkbnr pppppppp -------- -------- -------- -------- PPPPPPPP RNBQKBNR"; // rank 8 first
inline const std::string AfterE4 = "rnbqkbnr pppppppp -------- -------- ----P--- -------- PPPP-PPP RNBQKBNR";
inline const std::string AfterE4E5 = "rnbqkbnr pppp-ppp -------- ----p--- ----P--- -------- PPPP-PPP RNBQKBNR";

// One line of the server, field by field.
struct LineOf {
    std::string ranks = StartRanks;
    std::string turn = "W";
    int game = 12;
    int relation = 1;
    int whiteClock = 300;
    int blackClock = 300;
    int moveNumber = 1;
    std::string verbose = "none";
    std::string pretty = "none";
    int flip = 0;

    std::string text(const std::string& end = " 1 0 0\r\n") const {
        std::ostringstream line;
        line << "<12> " << ranks << ' ' << turn << " -1 1 1 1 1 0 " << game << " Anders Berta " << relation
             << " 5 2 39 39 " << whiteClock << ' ' << blackClock << ' ' << moveNumber << ' ' << verbose << " (0:00) "
             << pretty << ' ' << flip << end;
        return line.str();
    }
};

// The record of a line, read as the server's lines are.
inline Style12Record recordOf(const LineOf& line) {
    const std::string text = line.text();
    const auto tokens = cutStyle12(text, LineEnd::RestIsToken);
    Style12Record record;
    readStyle12(tokens.value(), Style12Fields::All, record);
    return record;
}

// A loaded board: idle, start position on show, nothing written down yet.
struct BoardRig {
    std::unique_ptr<Game> owned = std::make_unique<Game>(surface(), gridSurface());
    Game& game = *owned;
    std::vector<std::string> effects;
    double second = 1000;

    BoardRig() {
        modChess = {};
        game.beginLoad();
        game.finishLoad();
        effects.clear();
    }

    // What the client does with a line that has reached this board.
    void receive(const LineOf& line) {
        modChess.Record = recordOf(line);
        game.zGS();
        game.zSetPosition(false);
    }

    // The first position of a new game.
    void open(LineOf line = {}) {
        modChess.NewGameFlag = true;
        receive(line);
        modChess.NewGameFlag = false;
        effects.clear();
    }

    bool saw(const std::string& effect) const { return std::ranges::find(effects, effect) != effects.end(); }

    // The effects that begin with `word` and a blank.
    std::vector<std::string> all(const std::string& word) const {
        std::vector<std::string> found;
        std::ranges::copy_if(effects, std::back_inserter(found), [&](const std::string& effect) {
            return effect == word || effect.starts_with(word + " ");
        });
        return found;
    }

    // Where an effect stands among all; -1 if it never came.
    long place(const std::string& effect) const {
        const auto found = std::ranges::find(effects, effect);
        return found == effects.end() ? -1 : found - effects.begin();
    }

    template <typename... Parts>
    void note(const Parts&... parts) {
        std::ostringstream text;
        const char* gap = "";
        ((text << gap << parts, gap = " "), ...);
        effects.push_back(text.str());
    }

private:
    GameSurface surface() {
        return {
            .zDrawSquare = [this](int square, int mode) { note("draw", square, mode); },
            .zMovePiece = [this](float x, float y, int alpha) { note("piece", x, y, alpha); },
            .paintBoard = [this] { note("paint"); },
            .keepPicture = [this] { note("picture"); },
            .setPointerPicture = [](int) {},
            .setLastMove = [this](const std::string& text) { note("last", text); },
            .setClock = [this](int side, const std::string& text) { note("clock", side, text); },
            .setClockColor = [this](int side, std::uint32_t color) { note("color", side, color); },
            .showHoldings = [this](const std::string& white, const std::string& black) { note("hold", white, black); },
            .hideHoldings = [this] { note("hideHoldings"); },
            .setPanel = [this](int panel, const std::string& text) { note("panel", panel, text); },
            .setTitle = [this](const std::string& text) { note("title", text); },
            .showUn = [this](bool shown) { note("un", shown); },
            .enableSavePGN = [this](bool enabled) { note("save", enabled); },
            .bringToFront = [] {},
            .startClock = [this] { note("startClock"); },
            .stopClock = [this] { note("stopClock"); },
            .startNoPlay = [this] { note("startNoPlay"); },
            .stopNoPlay = [this] { note("stopNoPlay"); },
            .secondsOfDay = [this] { return second; },
            .print = [this](const std::string& text) { note("print", text); },
            .beep = [this] { note("beep"); },
            .playSound = [this](std::string_view name, std::int16_t mode) { note("sound", name, mode); },
            .zSendMsg = [this](const std::string& text) { note("send", text); },
            .zSqFinish = [this](int square) { note("finish", square); },
        };
    }

    MoveGridSurface gridSurface() {
        return {
            .showCell = [this](int row, int col) { note("cell", row, col, "[" + game.grdMoves.text(row, col) + "]"); },
            .scrollTo = [this](int row) { note("top", row); },
            .setUp = [this] { note("gridSetup"); },
            .showCurrent = [this] { note("current", game.grdMoves.row, game.grdMoves.col); },
            .zFindBottomRow = [this] { note("bottomRow"); },
        };
    }
};
