// The lines and labels of the seek graph, to the twip.
#include "seek/GraphGeometry.h"

#include <cmath>

#include <gtest/gtest.h>

namespace {

struct Laid {
    GraphGeometry geometry;
    Extent size;
    explicit Laid(Extent window, bool tall = false) { size = geometry.zSize(window, tall); }
};

} // namespace

TEST(GraphGeometryTest, BeforeItIsLaidOutTheScaleIs12) { EXPECT_EQ(GraphGeometry().LogScale, 12); }

TEST(GraphGeometryTest, BeforeItIsLaidOutTheLabelsHave10PointsAndAllStandsInTheCorner) {
    const GraphGeometry fresh;
    EXPECT_EQ(fresh.FontPoints, 10);
    for (const int twips :
         {fresh.CellSize, fresh.CellHalf, fresh.Line3X, fresh.Line15X, fresh.RightX, fresh.BaseY, fresh.TopY})
        EXPECT_EQ(twips, 0);
    EXPECT_EQ(GraphGeometry::Corner{}.X, 0);
    EXPECT_EQ(GraphGeometry::Corner{}.Y, 0);
}

TEST(GraphGeometryTest, AWindowBelow1600IsRaisedToItAndHasCellsOf30) {
    for (const float height : {0.0F, 100.0F, 1599.0F, 1600.0F}) {
        GraphGeometry geometry;
        Extent window{6000, height};
        EXPECT_EQ(geometry.zFigCz(window), 30) << height;
        EXPECT_EQ(window.Height, 1600) << height;
        EXPECT_EQ(window.Width, 6000) << height;
    }
}

TEST(GraphGeometryTest, ACellIsAWholeNumberOfPixelsOfWhichTheRoomTakes25AndAHalf) {
    GraphGeometry geometry;
    const auto cell = [&](float height) {
        Extent window{6000, height};
        return geometry.zFigCz(window);
    };
    EXPECT_EQ(cell(6900), 240);
    EXPECT_EQ(cell(780 + 25.5F * 15 * 9.4F), 135);
    EXPECT_EQ(cell(780 + 25.5F * 15 * 9.6F), 150);
    EXPECT_EQ(cell(780 + 25.5F * 15 * 2.5F), 30) << "a half goes to the even number of pixels";
    EXPECT_EQ(cell(780 + 25.5F * 15 * 3.5F), 60);
}

TEST(GraphGeometryTest, SixtyMinutesLandOnTheRightEnd) {
    const Laid laid({7800, 6900});
    EXPECT_NEAR(laid.geometry.LogScale, (7650.0 / 240 - 3) / std::log(60.0), 1e-6);
    EXPECT_EQ(laid.geometry.RightX, 7650);
}

TEST(GraphGeometryTest, TheLinesOfAWindow) {
    const Laid laid({7800, 6900});
    EXPECT_EQ(laid.geometry.CellSize, 240);
    EXPECT_EQ(laid.geometry.CellHalf, 120);
    EXPECT_EQ(laid.geometry.Line3X, 11 * 240 - 120);  // 10.75 cells
    EXPECT_EQ(laid.geometry.Line15X, 22 * 240 - 120); // 22.1
    EXPECT_EQ(laid.geometry.BaseY, 25 * 240 + 120);
    EXPECT_EQ(laid.geometry.TopY, 383); // 1.5957 cells
}

TEST(GraphGeometryTest, TheLinesOfAWideWindowStandAtThreeAndFifteenMinutes) {
    const Laid laid({30000, 6900}); // 29.65 cells to a unit of ln(minutes)
    const auto cells = [&](double minutes) { return std::round(laid.geometry.LogScale * std::log(minutes) + 3); };
    EXPECT_EQ(laid.geometry.Line3X, cells(3) * 240 - 120);
    EXPECT_EQ(laid.geometry.Line15X, cells(15) * 240 - 120);
}

TEST(GraphGeometryTest, HalvesOfACellGoToTheEvenTwip) {
    const Laid laid({6000, 780 + 25.5F * 45});
    ASSERT_EQ(laid.geometry.CellSize, 45);
    EXPECT_EQ(laid.geometry.CellHalf, 22);                            // 22.5
    EXPECT_EQ(laid.geometry.BaseY, 1148);                             // 1147.5
    EXPECT_EQ(laid.geometry.Line3X % 45, 22) << laid.geometry.Line3X; // 22.5 below an even number of cells
}

TEST(GraphGeometryTest, TheWindowTakesTheSizeOfWholeCells) {
    const Laid laid({7800, 7000});
    EXPECT_EQ(laid.size.Width, 7800);
    EXPECT_EQ(laid.size.Height, 6120 + 780);
}

TEST(GraphGeometryTest, TallTitleBarsAdd105) { EXPECT_EQ(Laid({7800, 6900}, true).size.Height, 6120 + 780 + 105); }

TEST(GraphGeometryTest, LaidOutAgainAtItsOwnSizeNothingChanges) {
    for (float height = 1600; height < 40000; height += 97) {
        const Laid once({7800, height});
        const Laid twice(once.size);
        EXPECT_EQ(twice.geometry.CellSize, once.geometry.CellSize) << height;
        EXPECT_EQ(twice.size.Height, once.size.Height) << height;
        EXPECT_NEAR(twice.size.Width, once.size.Width, 1) << height;
    }
}

TEST(GraphGeometryTest, TheLabelsFontIs10PointsOrA645thOfTheWidth) {
    EXPECT_FLOAT_EQ(Laid({6450, 6900}).geometry.FontPoints, 10);
    EXPECT_FLOAT_EQ(Laid({6450.5F, 6900}).geometry.FontPoints, 10);
    EXPECT_FLOAT_EQ(Laid({6465, 6900}).geometry.FontPoints, 10);
    EXPECT_FLOAT_EQ(Laid({30000, 6900}).geometry.FontPoints, 10);
    EXPECT_FLOAT_EQ(Laid({3225, 6900}).geometry.FontPoints, 5);
    EXPECT_FLOAT_EQ(Laid({6449, 6900}).geometry.FontPoints, 6449.0F / 645);
}

TEST(GraphGeometryTest, ARatingsLabelStandsOnItsRowAtTheRight) {
    const Laid laid({7800, 6900});
    const auto label = laid.geometry.zRatingY(2000, {450, 240});
    EXPECT_DOUBLE_EQ(label.X, 7800 - 450 - 180);
    EXPECT_DOUBLE_EQ(label.Y, (25 - 1400 / 94.0) * 240 - 120);
    EXPECT_DOUBLE_EQ(laid.geometry.zRatingY(1000, {450, 240}).Y, (25 - 400 / 94.0) * 240 - 120);
    EXPECT_DOUBLE_EQ(laid.geometry.zRatingY(0, {450, 240}).Y, (25 + 600 / 94.0) * 240 - 120) << "not kept to the scale";
}

TEST(GraphGeometryTest, RatingsRunUpTheRowsFrom600To2800) {
    EXPECT_DOUBLE_EQ(GraphGeometry::rowOf(600), 25);
    EXPECT_NEAR(GraphGeometry::rowOf(2800), 1.6, 0.01);
    EXPECT_DOUBLE_EQ(GraphGeometry::rowOf(1540), 15);
    EXPECT_DOUBLE_EQ(GraphGeometry::rowOf(0), 25);
    EXPECT_DOUBLE_EQ(GraphGeometry::rowOf(-50), 25);
    EXPECT_DOUBLE_EQ(GraphGeometry::rowOf(3500), GraphGeometry::rowOf(2800));
}

TEST(GraphGeometryTest, AScreenOfAnySizeHasRoomInTheFields) {
    const Laid laid({2'000'000, 1'000'000});
    EXPECT_GT(laid.geometry.CellSize, 32767);
    EXPECT_EQ(laid.geometry.RightX, 1'999'850);
    EXPECT_GT(laid.geometry.BaseY, 900'000);
}
