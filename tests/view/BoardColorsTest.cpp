// The four colours of the boards, taken from the program and given back to it.
#include "view/BoardColors.h"

#include "common/modChess.h"

#include <gtest/gtest.h>

TEST(BoardColors, TakeTheProgramsFourColoursAndGiveThemBack) {
    modChess = {};
    modChess.ColorWhite = 1;
    modChess.ColorBlack = 2;
    modChess.ColorMove = 3;
    modChess.ColorPreMove = 4;
    const BoardColors colors = boardColors();
    EXPECT_EQ(colors[WhiteSquares], 1);
    EXPECT_EQ(colors[BlackSquares], 2);
    EXPECT_EQ(colors[NormalMove], 3);
    EXPECT_EQ(colors[PreMove], 4);
    modChess = {};
    setBoardColors(colors);
    EXPECT_EQ(modChess.ColorWhite, 1);
    EXPECT_EQ(modChess.ColorBlack, 2);
    EXPECT_EQ(modChess.ColorMove, 3);
    EXPECT_EQ(modChess.ColorPreMove, 4);
    modChess = {};
}

TEST(BoardColors, TheDefaultsAreThoseOfTheSettings) {
    EXPECT_EQ(DefaultColorWhite, 241 | 234 << 8 | 205 << 16);
    EXPECT_EQ(DefaultColorBlack, 188 | 131 << 8 | 46 << 16);
    EXPECT_EQ(DefaultColorWhite, ModChess{}.ColorWhite);
    EXPECT_EQ(DefaultColorBlack, ModChess{}.ColorBlack);
}
