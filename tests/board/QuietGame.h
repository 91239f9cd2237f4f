// A game that nobody looks at; a test replaces what it looks at.
#pragma once

#include "board/Game.h"

#include <memory>

inline MoveGridSurface quietGrid() {
    return {.showCell = [](int, int) {},
            .scrollTo = [](int) {},
            .setUp = [] {},
            .showCurrent = [] {},
            .zFindBottomRow = [] {}};
}

inline std::unique_ptr<Game> quietGame() {
    const auto nothing = [] {};
    const auto takeText = [](const std::string&) {};
    const auto takeFlag = [](bool) {};
    const auto takeNumber = [](int) {};
    const auto takeNumberAndText = [](int, const std::string&) {};
    GameSurface surface{
        .zDrawSquare = [](int, int) {},
        .zMovePiece = [](float, float, int) {},
        .paintBoard = nothing,
        .keepPicture = nothing,
        .setPointerPicture = takeNumber,
        .setLastMove = takeText,
        .setClock = takeNumberAndText,
        .setClockColor = [](int, std::uint32_t) {},
        .showHoldings = [](const std::string&, const std::string&) {},
        .hideHoldings = nothing,
        .setPanel = takeNumberAndText,
        .setTitle = takeText,
        .showUn = takeFlag,
        .enableSavePGN = takeFlag,
        .bringToFront = nothing,
        .startClock = nothing,
        .stopClock = nothing,
        .startNoPlay = nothing,
        .stopNoPlay = nothing,
        .secondsOfDay = [] { return 0.0; },
        .print = takeText,
        .beep = nothing,
        .playSound = [](std::string_view, std::int16_t) {},
        .zSendMsg = takeText,
        .zSqFinish = takeNumber,
    };
    return std::make_unique<Game>(std::move(surface), quietGrid());
}
