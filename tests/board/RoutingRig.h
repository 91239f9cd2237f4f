// Open windows without windows: boards in the list, and hooks that write down what they are asked.
#pragma once

#include "board/BoardRig.h"
#include "board/GameRouting.h"
#include "platform/OpenWindows.h"

struct RoutingRig {
    GameRouting routing;
    std::vector<std::unique_ptr<Game>> boards;
    std::vector<std::string> asked;

    RoutingRig() {
        modChess = {};
        openWindows = {};
        routing.hooks.openBoard = [this]() -> const void* {
            asked.emplace_back("open");
            return &addIdle();
        };
        routing.hooks.pump = [this] { asked.emplace_back("pump"); };
        routing.hooks.beep = [this] { asked.emplace_back("beep"); };
        routing.hooks.playSound = [this](std::string_view name, std::int16_t mode) {
            asked.push_back("sound " + std::string(name) + " " + std::to_string(mode));
        };
        routing.hooks.showSeek = [this] { asked.emplace_back("seek"); };
    }
    ~RoutingRig() { openWindows = {}; }

    // A window whose load has not begun.
    Game& add() {
        boards.push_back(std::make_unique<Game>());
        openWindows.add({"frmChessBoard", boards.back().get(), boards.back().get(), {}});
        return *boards.back();
    }
    Game& addIdle() {
        Game& game = add();
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
