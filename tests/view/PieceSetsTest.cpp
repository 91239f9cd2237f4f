// The image lists: drawn once, shared, sharp, with smooth edges.
#include "view/PieceSets.h"

#include "common/Fault.h"
#include "view/Artwork.h"
#include "view/BoardFixture.h"

#include <gtest/gtest.h>

#include <deque>

namespace {

bool hasEdgeOfPartAlpha(const QImage& image) {
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const int alpha = qAlpha(image.pixel(x, y));
            if (alpha > 0 && alpha < 255) return true;
        }
    }
    return false;
}

bool isDrawn(const QImage& image) {
    QImage empty(image.size(), image.format());
    empty.fill(Qt::transparent);
    return image != empty;
}

} // namespace

TEST(PieceSetsTest, EveryListHoldsTwelveImagesOfItsSize) {
    PieceSets sets;
    for (int list = 0; list < PieceListCount; ++list) {
        const PieceImages& images = sets.images(list, 1);
        for (std::size_t image = 1; image <= PiecesInAList; ++image) {
            EXPECT_EQ(images[image].size(), QSize(pieceListSize(list), pieceListSize(list)));
            EXPECT_TRUE(isDrawn(images[image])) << "list " << list << " image " << image;
        }
        EXPECT_EQ(sets.count(list), 12);
    }
}

TEST(PieceSetsTest, TheImagesOfAListAllDiffer) {
    PieceSets sets;
    const PieceImages& images = sets.images(0, 1);
    for (std::size_t one = 1; one <= PiecesInAList; ++one) {
        for (std::size_t other = one + 1; other <= PiecesInAList; ++other) EXPECT_NE(images[one], images[other]);
    }
}

TEST(PieceSetsTest, EdgesAreSmoothAndTheCornerIsClear) {
    PieceSets sets;
    for (const int list : {7, 15, 25}) {
        for (std::size_t image = 1; image <= PiecesInAList; ++image) {
            const QImage& picture = sets.images(list, 1)[image];
            EXPECT_TRUE(hasEdgeOfPartAlpha(picture));
            EXPECT_EQ(qAlpha(picture.pixel(1, 1)), 0) << "list " << list << " image " << image;
        }
    }
}

TEST(PieceSetsTest, AScreenOfTwoDevicePixelsGetsImagesOfTwiceTheSize) {
    PieceSets sets;
    EXPECT_EQ(sets.images(2, 2)[1].width(), 108);
    EXPECT_EQ(sets.images(2, 1.25)[1].width(), 68);
    EXPECT_NE(sets.images(2, 2)[1], sets.images(2, 1)[1].scaled(108, 108)) << "drawn anew, not stretched";
}

TEST(PieceSetsTest, AListIsDrawnAtItsFirstUseAndOnlyOnce) {
    PieceSets sets;
    EXPECT_EQ(sets.drawnLists(), 0);
    const PieceImages* first = &sets.images(2, 1);
    sets.images(10, 1);
    EXPECT_EQ(&sets.images(2, 1), first);
    EXPECT_EQ(sets.drawnLists(), 2);
}

TEST(PieceSetsTest, AListThatIsNotThereFaults) {
    PieceSets sets;
    EXPECT_THROW(sets.images(26, 1), Fault);
    EXPECT_THROW(sets.images(-1, 1), Fault);
    EXPECT_THROW(sets.add(26, QStringLiteral("Sw"), {}), Fault);
}

TEST(PieceSetsTest, KeyedImagesAreAddedBehindTheTwelfthAndTakenOutAgain) {
    PieceSets sets;
    QImage plain(39, 39, QImage::Format_RGB32);
    plain.fill(Qt::red);
    for (int round = 0; round < 2; ++round) {
        sets.removeAdded(1);
        for (const char* key : {"Sw", "Fw", "Tw", "Sb", "Fb", "Tb", "Tf"}) sets.add(1, QLatin1String(key), plain);
    }
    EXPECT_EQ(sets.count(1), 19);
    EXPECT_EQ(sets.count(0), 12);
    ASSERT_NE(sets.find(1, QStringLiteral("Tf")), nullptr);
    EXPECT_EQ(*sets.find(1, QStringLiteral("Tf")), plain);
    EXPECT_EQ(sets.find(1, QStringLiteral("tf")), nullptr);
    EXPECT_EQ(sets.find(0, QStringLiteral("Sw")), nullptr);
}

TEST(Artwork, ADrawingThatIsNotThereIsClear) {
    EXPECT_FALSE(isDrawn(drawArtwork(QStringLiteral("pieces/gnu/wx.svg"), 8)));
    EXPECT_TRUE(isDrawn(drawArtwork(QStringLiteral("pieces/gnu/wk.svg"), 8)));
}

using SharedPieceSets = BoardFixture;

TEST_F(SharedPieceSets, FortyBoardsShareOneDrawing) {
    const int drawn = imlPieces.drawnLists();
    const QImage* king = &imlPieces.images(view.geometry().PieceList, ratio())[1];
    std::deque<BoardView> boards;
    while (boards.size() < 40) boards.emplace_back(view.pieceAt).zBoardSetup(view.geometry());
    EXPECT_EQ(imlPieces.drawnLists(), drawn);
    EXPECT_EQ(&imlPieces.images(view.geometry().PieceList, ratio())[1], king);
}
