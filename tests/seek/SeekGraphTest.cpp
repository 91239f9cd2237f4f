// The dots of the seek graph: their places, their looks, and which one is under the pointer.
#include "seek/SeekGraph.h"

#include <gmock/gmock.h>

using testing::ElementsAre;

namespace {

struct SeekGraphTest : testing::Test {
    SeekTable table;
    std::string caption;
    int answered = 0;
    SeekGraph graph{
        table, {.setCaption = [this](const std::string& text) { caption = text; }, .answered = [this] { ++answered; }}};

    SeekGraphTest() { layOut(7800, 6900); } // cells of 240, 7.05 of them to a unit of ln(minutes)

    void layOut(float width, float height) { graph.geometry.zSize({width, height}, false); }
    void add(int time, int inc, int rating = 1540) {
        SeekAd& ad = table.SeekAds[table.SeekAdCount++];
        ad = SeekAd();
        ad.AdNumber = static_cast<std::int16_t>(100 + table.SeekAdCount);
        ad.AdTime = static_cast<std::int16_t>(time);
        ad.AdInc = static_cast<std::int16_t>(inc);
        ad.AdRating = static_cast<std::int16_t>(rating);
    }
    // The column of a lone ad.
    int column(int time, int inc = 0) {
        table.SeekAdCount = 0;
        add(time, inc);
        graph.zGraph();
        return graph.SeekX[0] / graph.geometry.CellSize;
    }
    int row(int rating) {
        table.SeekAdCount = 0;
        add(5, 0, rating);
        graph.zGraph();
        return graph.SeekY[0] / graph.geometry.CellSize;
    }
    std::vector<int> rows(int count) const {
        std::vector<int> found;
        for (int i = 0; i < count; ++i) found.push_back(graph.SeekY[i] / graph.geometry.CellSize);
        return found;
    }
    int shown() const {
        return static_cast<int>(std::ranges::count_if(graph.dots, [](const SeekDot& dot) { return dot.shown; }));
    }
};

} // namespace

TEST_F(SeekGraphTest, BeforeAnAnswerThereAreNoAdsAndNoDots) {
    const SeekTable fresh;
    EXPECT_EQ(fresh.SeekAdCount, 0);
    const SeekAd ad;
    for (const int number : {ad.AdNumber, ad.AdRating, ad.AdTime, ad.AdInc}) EXPECT_EQ(number, 0);
    EXPECT_FALSE(ad.AdComputer);
    EXPECT_EQ(graph.DotsDrawn, 0);
    const SeekDot dot;
    EXPECT_EQ(dot.Left, 0);
    EXPECT_EQ(dot.Top, 0);
    EXPECT_EQ(dot.color, 0);
    EXPECT_EQ(dot.AdNumber, 0);
    EXPECT_FALSE(dot.filled);
    EXPECT_FALSE(dot.shown);
}

// Places

TEST_F(SeekGraphTest, TimeRunsAlongOnALogarithmicScale) {
    EXPECT_EQ(column(1), 3);
    EXPECT_EQ(column(5), 14);  // 14.35
    EXPECT_EQ(column(10), 19); // 19.24
    EXPECT_EQ(column(30), 27); // 26.99
}

TEST_F(SeekGraphTest, TwoThirdsOfTheIncrementCountAsMinutes) {
    EXPECT_EQ(column(2, 12), column(10));
    EXPECT_EQ(column(0, 15), column(10));
    EXPECT_EQ(column(4, 1), 14); // 4.667: 13.86
}

TEST_F(SeekGraphTest, RatingRunsUp) {
    EXPECT_EQ(row(1540), 15);
    EXPECT_EQ(row(600), 25);
    EXPECT_EQ(row(2800), 2);
    EXPECT_EQ(row(3000), 2);
    EXPECT_EQ(row(647), 24) << "a half goes to the even row";
    EXPECT_EQ(row(741), 24); // 23.5
}

TEST_F(SeekGraphTest, UnratedAndRating0StandOnTheBottomRow) {
    EXPECT_EQ(row(-1), 25);
    EXPECT_EQ(table.SeekAds[0].AdRating, 0) << "the mark becomes 0 in the table";
    EXPECT_EQ(row(0), 25);
}

TEST_F(SeekGraphTest, BeyondSixtyMinutesADotIsPulledIn) {
    EXPECT_EQ(column(240), 31); // 31.875 - 1
    EXPECT_EQ(column(60), 31) << "whose cell begins right of the end";
    EXPECT_EQ(column(240, 30), 31);
}

TEST_F(SeekGraphTest, AColumnLeftOfTheGraphBecomesTheFirst) {
    layOut(7800, 1600);
    EXPECT_EQ(column(0, 1), 1);
}

TEST_F(SeekGraphTest, TheColumnAtTheLeftEdgeStays) {
    layOut(8100, 6900); // 7.36 cells to a unit: 0.67 minutes round to column 0
    EXPECT_EQ(column(0, 1), 0);
}

TEST_F(SeekGraphTest, ACellThatBeginsExactlyAtTheRightEndIsInside) {
    layOut(7830, 6900);
    ASSERT_EQ(graph.geometry.RightX, 32 * 240);
    EXPECT_EQ(column(60), 32);
}

TEST_F(SeekGraphTest, ATimeBelow3IsKeptLeftOfItsLineByOneCell) {
    layOut(3818, 6900); // 3 cells to a unit: 3 minutes round to column 6, and so does 2.67
    EXPECT_EQ(column(2, 1), 5);
    EXPECT_LT(column(2, 1) * 240, graph.geometry.Line3X);
}

TEST_F(SeekGraphTest, ATimeBelow15IsKeptLeftOfItsLineByOneCell) {
    layOut(3818, 6900); // 15 and 14.67 round to column 11
    EXPECT_EQ(column(14, 1), 10);
    EXPECT_LT(column(14, 1) * 240, graph.geometry.Line15X);
}

TEST_F(SeekGraphTest, ExactlyThreeAndExactlyFifteenBelongToTheBandOnTheirRight) {
    layOut(3818, 6900);
    EXPECT_EQ(column(3), 6);
    EXPECT_EQ(column(1, 3), 6);
    EXPECT_EQ(column(15), 11);
    EXPECT_EQ(column(5, 15), 11);
    EXPECT_GT(column(3) * 240, graph.geometry.Line3X);
    EXPECT_GT(column(15) * 240, graph.geometry.Line15X);
}

TEST_F(SeekGraphTest, ADotLeftOfItsBandMovesOneCellToTheRightAndNoMore) {
    graph.geometry.Line3X = 12 * 240; // further right than the scale has it
    graph.geometry.Line15X = 25 * 240;
    EXPECT_EQ(column(3), 12);
    EXPECT_EQ(column(15), 23);
}

TEST_F(SeekGraphTest, ADotExactlyOnTheLineOfItsBandStays) {
    graph.geometry.Line3X = column(3) * 240;
    graph.geometry.Line15X = column(15) * 240;
    EXPECT_EQ(column(3) * 240, graph.geometry.Line3X);
    EXPECT_EQ(column(15) * 240, graph.geometry.Line15X);
    graph.geometry.Line15X = column(5) * 240;
    EXPECT_EQ(column(5) * 240, graph.geometry.Line15X) << "from the left as well";
    graph.geometry.Line3X = column(2) * 240;
    EXPECT_EQ(column(2) * 240, graph.geometry.Line3X);
}

TEST_F(SeekGraphTest, ASecondDotOfTheSamePlaceStandsOneRowAboveTheFirst) {
    add(5, 0);
    add(5, 0);
    graph.zGraph();
    EXPECT_THAT(rows(2), ElementsAre(15, 14));
    EXPECT_EQ(graph.SeekX[0], graph.SeekX[1]);
}

TEST_F(SeekGraphTest, AThirdMovesOffTheFirstAndThenOffTheSecond) {
    for (int i = 0; i < 3; ++i) add(5, 0);
    graph.zGraph();
    EXPECT_THAT(rows(3), ElementsAre(15, 14, 13));
}

TEST_F(SeekGraphTest, ThePassIsNotRepeatedSoAMovedDotMayCoverAnEarlierOne) {
    add(5, 0, 1634); // row 14
    add(5, 0, 1540); // row 15
    add(5, 0, 1540);
    graph.zGraph();
    EXPECT_THAT(rows(3), ElementsAre(14, 15, 14));
}

TEST_F(SeekGraphTest, AllAtOneSpotMakeAColumnThatLeavesTheGraphAtItsTop) {
    for (int i = 0; i < 201; ++i) add(5, 0, 600);
    graph.zGraph();
    EXPECT_EQ(shown(), 201);
    EXPECT_EQ(graph.SeekY[200], (25 - 200) * 240);
    EXPECT_EQ(graph.DotsDrawn, 201);
}

TEST_F(SeekGraphTest, AnAdOfNoTimeIsSkippedAndItsOldPlaceMultipliedAgain) {
    add(5, 0);
    graph.zGraph();
    add(-2, 3);
    graph.zGraph();
    EXPECT_EQ(graph.SeekX[0], 14 * 240 * 240);
    EXPECT_EQ(graph.DotsDrawn, 1);
}

TEST_F(SeekGraphTest, ATimeBelow0EndsTheDrawingSilentlyWhereItIs) {
    add(5, 0);
    graph.zGraph();
    caption.clear();
    add(10, 0);
    add(-3, 0);
    graph.zGraph();
    EXPECT_EQ(caption, "");
    EXPECT_EQ(answered, 1);
    EXPECT_EQ(table.SeekAdCount, 2) << "the next capture goes on from here";
    EXPECT_EQ(graph.dots[0].Left, 14 * 240 - 120) << "the dot of before";
}

// Looks

TEST_F(SeekGraphTest, ADotIsACircleOfACellAroundItsPlace) {
    add(5, 0);
    graph.zGraph();
    const SeekDot& dot = graph.dots[0];
    EXPECT_EQ(dot.Left, 14 * 240 - 120);
    EXPECT_EQ(dot.Top, 15 * 240 - 120);
    EXPECT_TRUE(dot.shown);
    EXPECT_EQ(dot.AdNumber, 101);
}

TEST_F(SeekGraphTest, ADotLooksAsItsAdTells) {
    add(5, 0);
    add(10, 0);
    table.SeekAds[0].AdRated = "rated";
    table.SeekAds[1].AdType = "wild/2";
    graph.zGraph();
    EXPECT_TRUE(graph.dots[0].filled);
    EXPECT_EQ(graph.dots[0].color, 0x808000);
    EXPECT_FALSE(graph.dots[1].filled);
    EXPECT_EQ(graph.dots[1].color, 0xFF00FF);
}

TEST_F(SeekGraphTest, DotsWithoutAnAdAreHidden) {
    for (int i = 0; i < 5; ++i) add(5, 0);
    graph.zGraph();
    EXPECT_EQ(shown(), 5);
    for (int i = 0; i < 2; ++i) add(5, 0);
    graph.zGraph();
    EXPECT_EQ(shown(), 2);
    for (int i = 0; i < 201; ++i) add(5, 0);
    graph.zGraph();
    graph.zGraph();
    EXPECT_EQ(shown(), 0);
}

TEST_F(SeekGraphTest, TheCaptionCountsTheAds) {
    graph.zGraph();
    EXPECT_EQ(caption, "Seek Graph (0 Ads)");
    add(5, 0);
    graph.zGraph();
    EXPECT_EQ(caption, "Seek Graph (1 Ads)");
}

TEST_F(SeekGraphTest, TheTableIsEmptyBehindTheDrawingAndThePollGoesOn) {
    add(5, 0);
    add(10, 0);
    graph.zGraph();
    EXPECT_EQ(table.SeekAdCount, 0);
    EXPECT_EQ(graph.DotsDrawn, 2);
    EXPECT_EQ(answered, 1);
}

TEST_F(SeekGraphTest, ACountBelow0DrawsNothing) {
    table.SeekAdCount = -5;
    graph.zGraph();
    EXPECT_EQ(shown(), 0);
    EXPECT_EQ(graph.dotAt(0, 0), -1);
    EXPECT_EQ(table.SeekAdCount, 0);
}

// Under the pointer

TEST_F(SeekGraphTest, AHitIsLessThanHalfACellOffInBothDirections) {
    add(5, 0);
    graph.zGraph();
    const double x = 14 * 240;
    const double y = 15 * 240;
    EXPECT_EQ(graph.dotAt(x, y), 0);
    EXPECT_EQ(graph.dotAt(x + 119.9, y - 119.9), 0) << "the square around the circle";
    EXPECT_EQ(graph.dotAt(x + 120, y), -1);
    EXPECT_EQ(graph.dotAt(x - 120, y), -1);
    EXPECT_EQ(graph.dotAt(x, y + 120), -1);
    EXPECT_EQ(graph.dotAt(x, y - 120), -1);
}

TEST_F(SeekGraphTest, OfTwoDotsOnASpotTheEarlierAdIsHit) {
    add(5, 0, 1634);
    add(5, 0, 1540);
    add(5, 0, 1540);
    graph.zGraph();
    EXPECT_EQ(graph.dotAt(14 * 240, 14 * 240), 0);
}

TEST_F(SeekGraphTest, OnlyDrawnDotsAreHit) {
    add(5, 0);
    add(10, 0);
    graph.zGraph();
    add(5, 0);
    graph.zGraph();
    EXPECT_EQ(graph.dotAt(graph.SeekX[1], graph.SeekY[1]), -1);
}

TEST_F(SeekGraphTest, BetweenCapturesAHitReadsWhatTheTableHoldsThen) {
    add(5, 0);
    graph.zGraph();
    add(30, 0);
    table.SeekAds[0].AdName = "Newer";
    EXPECT_EQ(table.SeekAds[graph.dotAt(14 * 240, 15 * 240)].AdName, "Newer");
}
