// Open windows without windows: boards in the list, and hooks that write down what they are asked.
#pragma once

#include "board/BoardRig.h"
#include "board/GameRouting.h"
#include "board/QuietGame.h"
#include "platform/OpenWindows.h"
#include "session/QuietSurface.h"
#include "session/Session.h"

struct RoutingRig {
    Session session{quietSurface()};
    GameRouting& routing = session.routing;
    std::vector<std::unique_ptr<Game>> boards;
    std::vector<std::string> asked;

    RoutingRig() {
        modChess = {};
        openWindows = {};
        routing.hooks.zNewBoard = [this] {
            asked.emplace_back("open");
            addIdle();
        };
        routing.hooks.beep = [this] { asked.emplace_back("beep"); };
        routing.hooks.playSound = [this](std::string_view name, std::int16_t mode) {
            asked.push_back("sound " + std::string(name) + " " + std::to_string(mode));
        };
        routing.hooks.showSeek = [this] { asked.emplace_back("seek"); };
    }
    ~RoutingRig() { openWindows = {}; }

    Game& addIdle() {
        Game& game = *boards.emplace_back(quietGame());
        openWindows.add({.className = "frmChessBoard", .window = &game, .unload = {}, .content = &game});
        game.beginLoad();
        game.finishLoad();
        return game;
    }
    Game& addGame(std::int16_t number, std::int16_t relation) {
        Game& game = addIdle();
        game.gameIndex = number;
        game.Style12Record.GameNumber = number;
        game.Style12Record.Relation = relation;
        return game;
    }
};
