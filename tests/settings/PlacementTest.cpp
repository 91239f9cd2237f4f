// The placement rule, the centring of the first start, and the cascade of new boards.
#include "settings/Placement.h"

#include "settings/WindowSettings.h"

#include <gtest/gtest.h>

namespace {

constexpr Extent Designed{5000, 4000};
constexpr Extent Screen{15000, 12000};
constexpr WindowPlace AtOrigin{0, 0, 5000, 4000};

} // namespace

TEST(Placement, APositionWithinTheScreenAppliesWithItsSize) {
    const WindowPlace read{150, 300, 7000, 6000};
    EXPECT_EQ(placed(read, Designed, Screen, 1), read);
}

TEST(Placement, APositionBeyondTheScreenGoesToTheOriginWithTheDesignedSize) {
    EXPECT_EQ(placed({30000, 300, 7000, 6000}, Designed, Screen, ClientLimit), AtOrigin);
    EXPECT_EQ(placed({300, 12000, 7000, 6000}, Designed, Screen, ClientLimit), AtOrigin);
}

TEST(Placement, TheScreenEdgeItselfIsBeyondAndOneTwipBeforeItIsNot) {
    EXPECT_EQ(placed({15000, 1, 1, 1}, Designed, Screen, 1), AtOrigin);
    EXPECT_EQ(placed({14999, 11999, 7, 8}, Designed, Screen, 1), (WindowPlace{14999, 11999, 7, 8}));
}

TEST(Placement, ZeroDropsTheSizeOfSeekButKeepsThatOfTheClient) {
    const WindowPlace read{0, 300, 7000, 6000};
    EXPECT_EQ(placed(read, Designed, Screen, SeekSection.limit), AtOrigin);
    EXPECT_EQ(placed(read, Designed, Screen, ClientLimit), read);
    EXPECT_EQ(placed({300, 0, 7, 8}, Designed, Screen, SeekSection.limit), AtOrigin);
}

TEST(Placement, APositionAtTheLimitItselfApplies) {
    const WindowPlace read{1, 1, 7000, 6000};
    EXPECT_EQ(placed(read, Designed, Screen, 1), read);
}

TEST(Placement, ANegativePositionSendsTheClientToTheOrigin) {
    EXPECT_EQ(placed({-1, 300, 7000, 6000}, Designed, Screen, ClientLimit), AtOrigin);
    EXPECT_EQ(placed({300, -1, 7000, 6000}, Designed, Screen, ClientLimit), AtOrigin);
}

TEST(Placement, HistoryHasNoLimit) {
    EXPECT_FALSE(HistorySection.limit.has_value());
    EXPECT_EQ(placed({-500, 0, 5000, 4000}, Designed, Screen, HistorySection.limit),
              (WindowPlace{-500, 0, 5000, 4000}));
    EXPECT_EQ(placed({15000, 0, 5000, 4000}, Designed, Screen, HistorySection.limit), AtOrigin);
}

TEST(Placement, TheOtherWindowsHaveTheLimitOne) {
    for (const auto& section :
         {OptionsSection, SeekSection, HelpSection, NotesSection, VarsSection, MatchSection, ChatSection}) {
        EXPECT_EQ(section.limit, 1) << section.name;
    }
}

TEST(Placement, TheCentringOfTheFirstStartHasNoLastingEffect) {
    EXPECT_EQ(centred(Designed, Screen), (WindowPlace{5000, 4000, 5000, 4000}));
    EXPECT_EQ(placed({0, 0, 5000, 4000}, Designed, Screen, ClientLimit), AtOrigin);
}

TEST(Placement, ANewBoardTakesTheNextStepOf300) {
    WindowPlace read{1000, 1000, 1, 1};
    cascade(read, {300, 300, 600});
    EXPECT_EQ(read.Left, 900);
    EXPECT_EQ(read.Top, 900);
}

TEST(Placement, ASecondBoardTakesAStepToo) {
    WindowPlace read{1000, 1000, 1, 1};
    cascade(read, {300, 5000});
    EXPECT_EQ(read, (WindowPlace{600, 600, 1, 1}));
}

TEST(Placement, TheOnlyBoardKeepsWhatItRead) {
    WindowPlace read{1000, 1100, 1, 1};
    cascade(read, {300});
    EXPECT_EQ(read, (WindowPlace{1000, 1100, 1, 1}));
}

TEST(Placement, ABoardIsPlacedOnlyWhereItFitsInsideTheScreen) {
    const WindowPlace designed{2000, 2000, 5000, 4000};
    const WindowPlace fits{1, 1, 14999, 11999};
    EXPECT_EQ(placedBoard(fits, designed, Screen), fits);
    EXPECT_EQ(placedBoard({2, 1, 14999, 11999}, designed, Screen), designed);
    EXPECT_EQ(placedBoard({1, 2, 14999, 11999}, designed, Screen), designed);
    EXPECT_EQ(placedBoard({0, 1, 100, 100}, designed, Screen), designed);
    EXPECT_EQ(placedBoard({1, 0, 100, 100}, designed, Screen), designed);
}

namespace {

constexpr Extent Board{9000, 7500};
constexpr WindowPlace Wide{0, 0, 1920 * 15, 1080 * 15};

} // namespace

TEST(Placement, ABoardGoesToTheRightOfTheConsole) {
    const auto place = beside({0, 0, 11400, 8400}, Board, Wide);
    ASSERT_TRUE(place);
    EXPECT_EQ(place->Left, 11400 + 180);
    EXPECT_LE(place->Left + Board.Width, Wide.Width);
    EXPECT_EQ(place->Top, 0);
    EXPECT_EQ(place->Width, Board.Width);
    EXPECT_EQ(place->Height, Board.Height);
}

TEST(Placement, ABoardBesideTheConsoleMayFillTheScreenWithItsFrame) {
    const WindowPlace console{0, 300, 11400, 8400};
    const float width = 11400 + 180 + Board.Width + 180;
    const float height = 300 + Board.Height + 600;
    const auto place = beside(console, Board, {0, 0, width, height});
    ASSERT_TRUE(place);
    EXPECT_EQ(place->Left, 11400 + 180);
    EXPECT_FALSE(beside(console, Board, {0, 0, width - 1, height}));
    EXPECT_FALSE(beside(console, Board, {0, 0, width, height - 1}));
}

TEST(Placement, ABoardGoesToTheLeftWhereThereIsNoRoomToTheRight) {
    const auto place = beside({15000, 300, 11400, 8400}, Board, Wide);
    ASSERT_TRUE(place);
    EXPECT_EQ(place->Left + Board.Width, 15000 - 180);
    EXPECT_EQ(place->Top, 300);
    const auto atTheEdge = beside({Board.Width + 180, 300, 20000, 8400}, Board, Wide);
    ASSERT_TRUE(atTheEdge);
    EXPECT_EQ(atTheEdge->Left, 0);
}

TEST(Placement, WhereABoardFitsOnNeitherSideThereIsNoPlaceBeside) {
    EXPECT_FALSE(beside({0, 0, 11400, 8400}, Board, {0, 0, 1366 * 15, 768 * 15}));
    EXPECT_FALSE(beside({8000, 0, 12000, 8400}, Board, Wide));
    EXPECT_FALSE(beside({0, 9000, 11400, 8400}, Board, Wide)) << "too low";
}

TEST(Placement, ABoardBesideTheConsoleStandsOnItsScreen) {
    constexpr WindowPlace Second{28800, 3000, Wide.Width, Wide.Height};
    constexpr float Right = Second.Left + Second.Width;
    EXPECT_EQ(beside({28800, 2700, 8000, 8400}, Board, Second), (WindowPlace{36980, 3000, 9000, 7500}));
    EXPECT_EQ(beside({Right - 8000, 3300, 8000, 8400}, Board, Second), (WindowPlace{40420, 3300, 9000, 7500}));
    EXPECT_EQ(beside({0, 3300, Wide.Width - 9360, 8400}, Board, Wide)->Left, Wide.Width - 9180);
    EXPECT_FALSE(beside({28800 + 9179, 3300, Wide.Width - 9179, 8400}, Board, Second)) << "the left is another screen";
    EXPECT_FALSE(beside({28800, 3000 + Wide.Height - 8099, 8000, 8400}, Board, Second)) << "too low";
    EXPECT_TRUE(beside({28800, 3000 + Wide.Height - 8100, 8000, 8400}, Board, Second));
}
