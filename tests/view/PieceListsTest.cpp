// The table of image lists and the choice among them.
#include "view/PieceLists.h"

#include "common/Fault.h"

#include <gmock/gmock.h>

#include <initializer_list>
#include <vector>

namespace {

std::vector<int> sizesOf(std::int16_t chessSet) {
    std::vector<int> sizes;
    const PieceFamily& family = pieceFamily(chessSet);
    for (int list = family.first; list <= family.last; ++list) sizes.push_back(pieceListSize(list));
    return sizes;
}

} // namespace

TEST(PieceLists, ThreeFamiliesWithTheirSizesInIndexOrder) {
    EXPECT_THAT(sizesOf(0), testing::ElementsAre(76, 64, 54, 46, 38, 32, 28, 24));
    EXPECT_THAT(sizesOf(1), testing::ElementsAre(76, 64, 54, 46, 38, 32, 28, 24));
    EXPECT_THAT(sizesOf(2), testing::ElementsAre(76, 64, 54, 49, 45, 40, 37, 33, 29, 25));
    EXPECT_EQ(pieceFamily(1).first, 8);
    EXPECT_EQ(pieceFamily(2).first, 16);
    EXPECT_EQ(pieceFamily(2).last, PieceListCount - 1);
}

TEST(PieceLists, AnyOtherValueOfTheSettingIsGnu) {
    for (const std::int16_t chessSet : std::initializer_list<std::int16_t>{2, 3, -1, 32767})
        EXPECT_EQ(pieceFamily(chessSet).name, "gnu") << chessSet;
    EXPECT_EQ(pieceFamily(0).name, "bookup");
    EXPECT_EQ(pieceFamily(1).name, "quorl");
}

TEST(PieceLists, EachListKnowsItsFamily) {
    EXPECT_EQ(familyOfList(0).name, "bookup");
    EXPECT_EQ(familyOfList(7).name, "bookup");
    EXPECT_EQ(familyOfList(8).name, "quorl");
    EXPECT_EQ(familyOfList(15).name, "quorl");
    EXPECT_EQ(familyOfList(16).name, "gnu");
    EXPECT_EQ(familyOfList(25).name, "gnu");
}

TEST(PieceLists, AListThatIsNotThereFaults) {
    EXPECT_THROW(pieceListSize(-1), Fault);
    EXPECT_THROW(pieceListSize(26), Fault);
}

TEST(PieceLists, TheFirstListNoWiderThanTheSquareWins) {
    EXPECT_EQ(choosePieceList(0, 100), 0);
    EXPECT_EQ(choosePieceList(0, 76), 0);
    EXPECT_EQ(choosePieceList(0, 75), 1);
    EXPECT_EQ(choosePieceList(0, 28), 6);
    EXPECT_EQ(choosePieceList(1, 54), 10);
    EXPECT_EQ(choosePieceList(1, 53), 11);
}

TEST(PieceLists, Square37TakesList22And36TakesList23InTheThirdFamily) {
    EXPECT_EQ(choosePieceList(2, 37), 22);
    EXPECT_EQ(choosePieceList(2, 36), 23);
}

TEST(PieceLists, WhenNoneFitsTheWalkEndsOnTheFamilysSmallest) {
    EXPECT_EQ(choosePieceList(0, 24), 7);
    EXPECT_EQ(choosePieceList(1, 24), 15);
    EXPECT_EQ(choosePieceList(2, 24), 25);
    EXPECT_EQ(pieceListSize(25), 25) << "one pixel larger than the square";
    EXPECT_EQ(choosePieceList(0, 1), 7);
}

TEST(PieceLists, BlackImagesFollowTheWhiteOnesByListOfSix) {
    for (std::int16_t piece = 1; piece <= 6; ++piece) {
        EXPECT_EQ(pieceImage(piece), piece);
        EXPECT_EQ(pieceImage(static_cast<std::int16_t>(-piece)), piece + 6);
    }
    EXPECT_EQ(PiecesInAList, 12);
}

TEST(PieceLists, AnEmptySquareAndACodeOfNoPieceHaveNoImage) {
    for (const std::int16_t code : std::initializer_list<std::int16_t>{0, 7, -7, 127, 32767, -32768})
        EXPECT_EQ(pieceImage(code), 0) << code;
}
