// A board under the mouse: 54-pixel squares, every effect written down, squares named as the user sees them.
#pragma once

#include "board/BoardRig.h"
#include "board/MoveInput.h"
#include "common/Squares.h"
#include "view/BoardGeometry.h"

#include <string>
#include <utility>

inline const std::string BlackE5 = "rnbqkbnr pppp-ppp -------- ----p--- ----P--- -------- PPPP-PPP RNBQKBNR";

// The user's own games. White moved e4 last, or black answered e5.
inline const LineOf MyMove{.relation = 1};                                            // white
inline const LineOf AfterMine{AfterE4, "B", 12, -1, 300, 300, 1, "P/e2-e4", "e4", 0}; // white
inline const LineOf Answered{BlackE5, "W", 12, 1, 300, 300, 2, "P/e7-e5", "e5", 0};   // white
inline const LineOf Examined{AfterE4, "B", 12, 2, 300, 300, 1, "P/e2-e4", "e4", 0};

struct MoveInputRig : BoardRig {
    static constexpr int Left = 1;
    static constexpr int Right = 2;

    MoveInput input{game, inputSurface()};
    BoardGeometry geometry;
    int slip = 0; // interval of tmrSlip while it runs
    std::string popped;

    MoveInputRig() {
        modChess.DragMode = 1;
        geometry.zBoardSetup({(8 * 54 + 68) * 15, 0, 0}, 0);
        game.surface.setPointerPicture = [this](int picture) { note("pointer", picture); };
        game.surface.zSqFinish = [this](int square) { input.zSqFinish(square); };
    }

    MoveInputSurface inputSurface() {
        return {
            .zGetSqr = [this](float x, float y) { return geometry.zGetSqr(x, y); },
            .DisplaySquare = [this](int square) { return geometry.DisplaySquare[square]; },
            .centreOf =
                [this](int position) {
                    BoardPoint point;
                    geometry.zGetXY(static_cast<std::int16_t>(position), point.x, point.y);
                    return BoardPoint{point.x + 27, point.y + 27};
                },
            .zYankPiece = [this](int square) { note("yank", square); },
            .startSlip = [this](int milliseconds) { slip = milliseconds; },
            .stopSlip = [this] { slip = 0; },
            .popupDrop =
                [this](const DropEntries& entries) {
                    popped.clear();
                    for (const DropEntry& entry : entries) popped += entry.caption + (entry.enabled ? "+" : "-") + " ";
                    note("menu", input.DropSquare);
                },
            .popupPromote = [this] { note("promote"); },
            .focusTyping = [this] { note("focus"); },
            .moveMade = [this] { note("made"); },
        };
    }

    void turnBoard() {
        geometry.Flipped = !geometry.Flipped;
        geometry.zBoardSetup({(8 * 54 + 68) * 15, 0, 0}, 0);
        game.Flipped = geometry.Flipped;
    }

    // The middle of a square such as "e2".
    std::pair<float, float> at(const std::string& name) const {
        const auto position = geometry.DisplaySquare[zSquareNumber(name)];
        return {static_cast<float>(position % 8 * 54 + 27), static_cast<float>((7 - position / 8) * 54 + 27)};
    }
    std::string pieceAt(const std::string& name, int alpha) const {
        std::ostringstream text;
        text << "piece " << at(name).first << ' ' << at(name).second << ' ' << alpha;
        return text.str();
    }

    void press(const std::string& name, int button = Left) {
        const auto [x, y] = at(name);
        input.mouseDown(button, x, y);
    }
    void move(const std::string& name, int button = 0) {
        const auto [x, y] = at(name);
        input.mouseMoved(button, x, y);
    }
    void release(const std::string& name, int button = Left) {
        const auto [x, y] = at(name);
        input.mouseUp(button, x, y);
    }
    // Drag style without a delay.
    void drag(const std::string& from, const std::string& to) {
        press(from);
        move(to, Left);
        release(to);
    }
    // A pre-move of a game in which the opponent is to move.
    void queue(const std::string& from, const std::string& to) {
        move(from);
        drag(from, to);
    }

    void openWith(const LineOf& line) {
        open(line);
        game.noPlay = false;
    }
    // The opponent is to move, and pre-moves are allowed.
    void openWaiting() {
        modChess.PreMoveOK = 1;
        openWith(MyMove);
        receive(AfterMine);
        effects.clear();
    }
};
