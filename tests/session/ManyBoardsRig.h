// The whole program with a board for each of many watched games, and an event in every moment of a drain.
#pragma once

#include "platform/Boxes.h"
#include "platform/OpenWindows.h"
#include "platform/WaitUntil.h"
#include "session/ProgramRig.h"
#include "session/WatchedGame.h"

#include <QCoreApplication>
#include <QPointer>

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <random>
#include <string>
#include <vector>

inline constexpr int Forty = 40;
inline constexpr int PatienceMs = 40000; // only a hang takes as long

// A game with names and a course of its own.
inline WatchedGame gameOf(int number, const std::string& round) {
    const std::string name = round + std::to_string(number);
    return {number, "White" + name, "Black" + name, static_cast<std::size_t>(9 * number % 380)};
}

class ManyBoards : public testing::Test {
protected:
    ManyBoards() {
        rig.inDrain = [this](int game) {
            ++moments;
            QMetaObject::invokeMethod(
                qApp,
                [this, game, number = moments] {
                    EXPECT_FALSE(rig.client->session.pipeline.ParseBusy) << "nothing runs in the middle of a drain";
                    if (atEvent) atEvent(number, game);
                },
                Qt::QueuedConnection);
        };
        boxes.okCancel = [](QWidget*, const std::string&, const std::string&) { return true; };
    }

    void SetUp() override {
        rig.connectNow();
        rig.learnPrompt();
    }
    // Whatever a test has done: no fault, nothing waits, and nothing stays behind.
    void TearDown() override {
        EXPECT_EQ(rig.fault, std::nullopt);
        EXPECT_FALSE(rig.client->session.pipeline.ParseBusy);
        atEvent = nullptr;
        rig.client->queryUnload();
        EXPECT_EQ(openWindows.windows.size(), 1U) << "only the console is left";
    }

    // Games 1 to `count`, each with a board.
    void openAll(int count = Forty) {
        std::string text;
        for (int number = 1; number <= count; ++number) {
            games.push_back(gameOf(number, "first"));
            text += games.back().next();
        }
        read(text);
        ASSERT_EQ(rig.boards().size(), games.size());
    }
    WatchedGame& game(int number) { return games[static_cast<std::size_t>(number - 1)]; }

    // Sent all at once; returns when everything in it has been classified.
    void read(const std::string& text) {
        rig.server.sendLater(text + "\n\rhere ends the text of part " + std::to_string(++parts) + "\n\rfics% ");
        const std::string mark = "here ends the text of part " + std::to_string(parts) + "\n";
        EXPECT_TRUE(
            waitUntil([&] { return rig.fault || rig.console().text().find(mark) != std::string::npos; }, PatienceMs));
    }
    // The next position of every game.
    std::string nextOfAll() {
        std::string text;
        for (WatchedGame& each : games) text += each.next();
        return text;
    }
    bool serverGot(const std::string& command) {
        return waitUntil([&] { return std::ranges::count(rig.server.commands(), command) > 0; });
    }

    // Every game has one board, which shows it.
    void expectFaces() {
        for (const WatchedGame& each : games) {
            const frmChessBoard* board = rig.boardOf(each.number());
            ASSERT_NE(board, nullptr) << each.number();
            EXPECT_EQ(faceOf(*board), each.face());
        }
    }
    void expectMoves() {
        for (const WatchedGame& each : games) {
            EXPECT_EQ(movesOf(*rig.boardOf(each.number())), each.moves()) << each.number();
        }
    }

    int dice(int sides) { return static_cast<int>(random() % static_cast<unsigned>(sides)); }

    ProgramRig rig;
    std::vector<WatchedGame> games;
    std::mt19937 random{20211121}; // the same course each time
    // An event that is posted in each moment of a drain at which it could run if the drain let it: as a board opens
    // (game 0) and as a position has reached the board of its game.
    std::function<void(int number, int game)> atEvent;
    int moments = 0;
    int parts = 0;
};
