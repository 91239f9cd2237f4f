// The whole program with a board for each of many watched games, and a hand on every moment at which events run.
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
        rig.roads.openBoard = [this] {
            auto* board = new frmChessBoard(rig.boardRoads);
            watch(*board);
            board->load();
        };
        boxes.okCancel = [](QWidget*, const std::string&, const std::string&) { return true; };
    }

    void SetUp() override {
        for (frmChessBoard* board : rig.boards()) watch(*board);
        rig.connectNow();
        rig.learnPrompt();
    }
    // Whatever a test has done: no fault, nothing waits, and nothing stays behind.
    void TearDown() override {
        EXPECT_EQ(rig.fault, std::nullopt);
        EXPECT_FALSE(rig.client->session.pipeline.ParseBusy);
        behindUpdate = nullptr;
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

    // From now on `behindUpdate` runs behind each of the board's updates, as an event of the loop.
    void watch(frmChessBoard& board) {
        board.game.surface.keepPicture = [this, own = QPointer(&board), real = board.game.surface.keepPicture] {
            ++updates;
            QMetaObject::invokeMethod(
                qApp,
                [this, own, number = updates] {
                    if (behindUpdate) behindUpdate(number, own);
                },
                Qt::QueuedConnection);
            real();
        };
    }
    static void close(const QPointer<frmChessBoard>& board) {
        if (board) board->close();
    }
    int dice(int sides) { return static_cast<int>(random() % static_cast<unsigned>(sides)); }

    ProgramRig rig;
    std::vector<WatchedGame> games;
    std::mt19937 random{20211121}; // the same course each time
    std::function<void(int number, const QPointer<frmChessBoard>& board)> behindUpdate;
    int updates = 0;
    int parts = 0;
};
