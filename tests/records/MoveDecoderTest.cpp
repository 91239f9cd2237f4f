// Reading a move's text, and finding the squares that it means.
#include "records/MoveDecoder.h"

#include "common/Squares.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>
#include <utility>
#include <vector>

namespace {

using Castling = MoveReading::Castling;
using Pairs = std::vector<std::pair<int, int>>;

// "e4", "-" for no target, or the number of one beside the board.
std::string target(std::string_view text) {
    const auto to = readMoveText(text).to;
    if (!to) return "-";
    return *to >= 0 && *to < 64 ? zSquareName(*to) : std::to_string(*to);
}

// A board with pieces of white by name, such as "Nb1", on which the search asks about every pair it should.
struct Search {
    FixedArray<std::int16_t, 64> board;
    Pairs asked;
    std::vector<int> mayMove; // from-squares that are accepted

    Search(std::initializer_list<std::pair<const char*, int>> pieces) {
        for (const auto& [name, code] : pieces) board[zSquareNumber(name)] = static_cast<std::int16_t>(code);
    }

    MoveSquares find(std::string_view text, std::int16_t colour = 1, std::int16_t from = 0) {
        asked.clear();
        return findMove(readMoveText(text), colour, from, board, [this](int square, int to) {
            asked.emplace_back(square, to);
            return std::ranges::find(mayMove, square) != mayMove.end();
        });
    }
};

constexpr int Knight = 5;
constexpr int Pawn = 6;

int square(const char* name) { return zSquareNumber(name); }

} // namespace

TEST(ReadMoveText, TheFirstLetterNamesThePiece) {
    const std::vector<std::pair<const char*, int>> table{{"Ke2", 1}, {"Qd1", 2}, {"Ra1", 3}, {"Bc4", 4}, {"Nf3", 5}};
    for (const auto& [text, piece] : table) {
        const MoveReading reading = readMoveText(text);
        EXPECT_EQ(reading.piece, piece) << text;
        EXPECT_LT(reading.file, 0) << text;
        EXPECT_LT(reading.rank, 0) << text;
        EXPECT_EQ(target(text), std::string(text).substr(1)) << text;
    }
}

TEST(ReadMoveText, AnyOtherFirstLetterIsAPawnsFile) {
    EXPECT_EQ(readMoveText("e4").piece, Pawn);
    EXPECT_EQ(readMoveText("e4").file, 4);
    EXPECT_EQ(readMoveText("k4").file, 10);
    EXPECT_EQ(readMoveText("E4").file, 'E' - 'a') << "a capital is no file";
    EXPECT_EQ(readMoveText("\xE4"
                           "4")
                  .file,
              0xE4 - 'a')
        << "bytes beyond 127 too";
}

TEST(ReadMoveText, APawnsTargetStandsFirstOrBehindTheX) {
    EXPECT_EQ(target("e4"), "e4");
    EXPECT_EQ(target("exd5"), "d5");
    EXPECT_EQ(readMoveText("exd5").file, 4);
    EXPECT_EQ(target("e4xd5"), "e4") << "the x is looked for in the second place alone";
}

TEST(ReadMoveText, APieceTakesBehindTheX) {
    EXPECT_EQ(target("Nxd7"), "d7");
    EXPECT_LT(readMoveText("Nxd7").file, 0);
    EXPECT_LT(readMoveText("Nxd7").rank, 0);
}

TEST(ReadMoveText, ASmallLetterInTheThirdPlaceMakesTheSecondAFile) {
    EXPECT_EQ(readMoveText("Nbd7").file, 1);
    EXPECT_EQ(target("Nbd7"), "d7");
    EXPECT_EQ(readMoveText("Nbxd7").file, 1);
    EXPECT_EQ(target("Nbxd7"), "d7");
    EXPECT_LT(readMoveText("Nbxd7").rank, 0);
}

TEST(ReadMoveText, ByteValueDecidesWhatIsASmallLetter) {
    EXPECT_LT(readMoveText("Nb3Z").file, 0);
    EXPECT_EQ(target("Nf3Z"), "f3");
    EXPECT_LT(readMoveText("NbZ7").file, 0) << "Z itself is not behind Z";
    EXPECT_EQ(readMoveText("Nb[7").file, 1);
    EXPECT_EQ(readMoveText("Nb\xE4"
                           "7")
                  .file,
              1);
}

TEST(ReadMoveText, TheEmptyTextNamesNoPiece) { EXPECT_EQ(readMoveText("").piece, 0); }

TEST(ReadMoveText, BehindTheEndOfATextThereIsNoFile) { EXPECT_LT(readMoveText("Nf").file, 0); }

TEST(ReadMoveText, BehindAnXInTheSecondPlaceTheTargetStandsAtOnce) { EXPECT_EQ(target("Nxxe4"), "-"); }

TEST(ReadMoveText, ATargetsSecondCharacterIsADigit) {
    EXPECT_EQ(target("e:"), "-");
    EXPECT_EQ(target("e/"), "-");
}

TEST(ReadMoveText, ADigitInTheSecondPlaceIsARank) {
    EXPECT_EQ(readMoveText("N1d2").rank, 0);
    EXPECT_EQ(target("N1d2"), "d2");
    EXPECT_EQ(readMoveText("R8xe4").rank, 7);
    EXPECT_EQ(target("R8xe4"), "e4");
    EXPECT_LT(readMoveText("R8xe4").file, 0);
    EXPECT_LT(readMoveText("N9d2").rank, 0) << "there is no ninth";
    EXPECT_EQ(readMoveText("N9d2").file, '9' - 'a');
}

TEST(ReadMoveText, ADigitInTheThirdPlaceEndsThePlainTarget) {
    EXPECT_LT(readMoveText("Nf3+").file, 0);
    EXPECT_EQ(target("Nf3+"), "f3");
}

TEST(ReadMoveText, AWholeNameInFrontOfTheTargetIsTakenForTheTarget) {
    EXPECT_EQ(target("Qa1xb2"), "a1");
    EXPECT_EQ(target("Qa1b2"), "a1");
}

TEST(ReadMoveText, WhatStandsBehindTheTargetIsNotLookedAt) {
    for (const char* text : {"Nf3", "Nf3+", "Nf3#", "Nf3!?", "Nf3 and so on"}) EXPECT_EQ(target(text), "f3") << text;
}

TEST(ReadMoveText, ThePieceOfAPromotionStandsBehindTheTarget) {
    const std::vector<std::pair<const char*, int>> table{{"exd8=Q+", 2}, {"e8Q", 2},  {"e8=R", 3}, {"a1=B", 4},
                                                         {"axb1=N", 5},  {"e8=K", 0}, {"e8", 0},   {"e8==Q", 0},
                                                         {"exd8=q", 0},  {"e8+", 0},  {"e8=~", 0}};
    for (const auto& [text, piece] : table) EXPECT_EQ(readMoveText(text).promotion, piece) << text;
    EXPECT_EQ(target("exd8=Q+"), "d8");
}

TEST(ReadMoveText, OnlyAPawnAtTheEndHasAPromotion) {
    for (const char* text : {"e4", "e7=Q", "Qe8", "P@e8", "O-O", ""}) {
        EXPECT_FALSE(readMoveText(text).promotion) << text;
    }
}

TEST(ReadMoveText, CastlingIsToTheQueensSideUnlessItIsExactlyTheShortText) {
    for (const char* text : {"O-O", "o-o", "O-o"}) EXPECT_EQ(readMoveText(text).castling, Castling::Short) << text;
    for (const char* text : {"O-O-O", "O-O-O+", "O-O+", "o-x", "O", "o4"}) {
        EXPECT_EQ(readMoveText(text).castling, Castling::Long) << text;
    }
}

TEST(ReadMoveText, ZerosAreNoCastling) {
    EXPECT_EQ(readMoveText("0-0").castling, Castling::None);
    EXPECT_EQ(readMoveText("0-0").piece, Pawn);
    EXPECT_EQ(target("0-0"), "-");
}

TEST(ReadMoveText, AnAtInTheSecondPlaceIsADrop) {
    for (const char* text : {"P@e4", "N@e4", "Q@e4+"}) {
        EXPECT_TRUE(readMoveText(text).drop) << text;
        EXPECT_EQ(target(text), "e4") << text;
    }
    EXPECT_EQ(readMoveText("P@e4").piece, Pawn);
    EXPECT_LT(readMoveText("P@e4").file, 0);
    EXPECT_EQ(readMoveText("N@e4").piece, Knight);
    EXPECT_FALSE(readMoveText("Ne@4").drop);
}

TEST(ReadMoveText, ATextThatBreaksOffHasNoTarget) {
    for (const char* text :
         {"", "e", "ex", "exd", "N", "Nf", "Nx", "Nxd", "Nb", "Nbd", "N1", "N1x", "P@", "P@e", "none", "--", "Nf+"}) {
        EXPECT_EQ(target(text), "-") << text;
    }
}

TEST(ReadMoveText, ATargetMayLieBesideTheBoard) {
    EXPECT_EQ(target("Nz3"), "b6") << "a letter behind h counts on, 25 files and 16 squares";
    EXPECT_EQ(target("Nz8"), std::to_string(25 + 56));
    EXPECT_EQ(target("Na9"), "64");
    EXPECT_EQ(target("Na0"), "-8");
    EXPECT_EQ(target("A4"), std::to_string('A' - 'a' + 24));
}

TEST(FindMove, WithoutAFilterTheLowestSquareOfThePieceWins) {
    Search search{{"b1", Knight}, {"d2", Knight}, {"g1", Knight}, {"c3", -Knight}};
    search.mayMove = {square("d2"), square("g1")};
    const MoveSquares found = search.find("Nf3");
    EXPECT_TRUE(found.ok);
    EXPECT_EQ(found.from, square("g1"));
    EXPECT_EQ(found.to, square("f3"));
    EXPECT_EQ(search.asked, (Pairs{{square("b1"), square("f3")}, {square("g1"), square("f3")}}));
}

TEST(FindMove, AFileIsSearchedUpwards) {
    Search search{{"b1", Knight}, {"b5", Knight}, {"a1", Knight}};
    search.mayMove = {square("b5")};
    EXPECT_EQ(search.find("Nbd6").from, square("b5"));
    EXPECT_EQ(search.asked.size(), 2U) << "the knight on a1 is not asked about";
}

TEST(FindMove, ARankIsSearchedFromTheFirstFileOn) {
    Search search{{"b1", Knight}, {"f1", Knight}, {"b5", Knight}};
    search.mayMove = {square("b1"), square("f1"), square("b5")};
    EXPECT_EQ(search.find("N1d2").from, square("b1"));
    EXPECT_EQ(search.find("N5d2").from, square("b5"));
}

TEST(FindMove, TheSearchReachesFromTheFirstSquareOfItsFilterToTheLast) {
    for (const auto& [text, first, last] : std::vector<std::array<const char*, 3>>{{"Nd4", "a1", "h8"},
                                                                                   {"Nad4", "a1", "a8"},
                                                                                   {"Nhd4", "h1", "h8"},
                                                                                   {"N1d4", "a1", "h1"},
                                                                                   {"N8d4", "a8", "h8"}}) {
        for (const char* only : {first, last}) {
            Search search{{only, Knight}};
            search.mayMove = {square(only)};
            EXPECT_EQ(search.find(text, 1, 20).from, square(only)) << text << " from " << only;
        }
    }
}

TEST(FindMove, TheSearchAsksAboutNoSquareOutsideOfItsFilter) {
    Search search{};
    search.board.fill(Knight);
    search.find("N2d4");
    EXPECT_EQ(search.asked.size(), 8U);
    EXPECT_EQ(search.asked.front().first, square("a2"));
    EXPECT_EQ(search.asked.back().first, square("h2"));
    search.find("Nbd4");
    EXPECT_EQ(search.asked.size(), 8U);
    search.find("Nd4");
    EXPECT_EQ(search.asked.size(), 64U) << "a piece in hand is not on the board";
}

TEST(FindMove, AFilterLeavesTheOtherFilesAndRanksAlone) {
    Search search{{"b1", Knight}, {"c2", Knight}};
    search.mayMove = {square("b1"), square("c2")};
    for (const char* text : {"Nad4", "N3d4", "N8d4"}) EXPECT_EQ(search.find(text, 1, 20).from, 20) << text;
    EXPECT_EQ(search.find("N1d4", 1, 20).from, square("b1"));
    search.mayMove = {square("c2")};
    EXPECT_EQ(search.find("N1d4", 1, 20).from, 20);
    EXPECT_TRUE(search.find("Nad4").ok);
}

TEST(FindMove, BlacksPiecesAreThoseOfColourMinusOne) {
    Search search{{"e2", Pawn}, {"e7", -Pawn}};
    search.mayMove = {square("e2"), square("e7")};
    EXPECT_EQ(search.find("e5", -1).from, square("e7"));
    EXPECT_EQ(search.find("e4", 1).from, square("e2"));
}

TEST(FindMove, APawnWithACapitalIsSearchedOnTheWholeBoard) {
    Search search{{"c2", Pawn}, {"e2", Pawn}};
    search.mayMove = {square("c2"), square("e2")};
    EXPECT_EQ(search.find("P@e4").from, square("c2"));
}

TEST(FindMove, WithoutASourceFromStaysAsItCame) {
    Search search{{"b1", Knight}};
    EXPECT_EQ(search.find("Nf3", 1, 0).from, 0);
    EXPECT_EQ(search.find("Nf3", 1, 17).from, 17);
    EXPECT_TRUE(search.find("Nf3").ok) << "and that is no failure";
}

TEST(FindMove, ADropComesFromTheHandUnlessALikePieceCanGoThere) {
    Search search{{"e3", Pawn}};
    EXPECT_EQ(search.find("P@e4").from, HandSquare);
    search.mayMove = {square("e3")};
    EXPECT_EQ(search.find("P@e4").from, square("e3"));
    EXPECT_EQ(search.find("N@e4").from, HandSquare);
}

TEST(FindMove, CastlingIsTheKingsStepFromHome) {
    Search search{};
    const auto squares = [&](const char* text, std::int16_t colour) {
        const MoveSquares found = search.find(text, colour);
        return std::pair<int, int>(found.from, found.to);
    };
    EXPECT_EQ(squares("O-O", 1), (std::pair{4, 6}));
    EXPECT_EQ(squares("O-O-O", 1), (std::pair{4, 2}));
    EXPECT_EQ(squares("O-O", -1), (std::pair{60, 62}));
    EXPECT_EQ(squares("O-O+", -1), (std::pair{60, 58}));
    EXPECT_TRUE(search.find("O-O").ok);
    EXPECT_TRUE(search.asked.empty()) << "and nothing is searched for";
}

TEST(FindMove, AMissingTargetIsAFailureThatLeavesTheRestAsItStands) {
    Search search{{"e2", Pawn}};
    const MoveSquares empty = search.find("", 1, 7);
    EXPECT_FALSE(empty.ok);
    EXPECT_EQ(empty.from, 7);
    EXPECT_EQ(empty.to, 0);
    const MoveSquares drop = search.find("P@");
    EXPECT_FALSE(drop.ok);
    EXPECT_EQ(drop.from, HandSquare);
    EXPECT_EQ(drop.to, 0);
    EXPECT_TRUE(search.asked.empty());
}

TEST(FindMove, AFileBesideTheBoardEndsInAFailure) {
    Search search{{"b4", Pawn}, {"b5", Pawn}};
    search.mayMove = {square("b5")};
    EXPECT_TRUE(search.find("z4").ok) << "square 25 and so on up hold b4 and b5 first";
    EXPECT_EQ(search.find("z4").from, square("b5"));
    search.mayMove = {};
    const MoveSquares found = search.find("z4", 1, 3);
    EXPECT_FALSE(found.ok);
    EXPECT_EQ(found.from, 3);
    EXPECT_EQ(found.to, 25 + 24);
}

TEST(FindMove, FromMinusOneStopsTheSearch) {
    Search search{{"e2", Pawn}};
    search.mayMove = {square("e2")};
    const MoveSquares found = search.find("e4", 1, -1);
    EXPECT_EQ(found.from, -1);
    EXPECT_EQ(found.to, square("e4"));
    EXPECT_FALSE(found.ok);
    EXPECT_TRUE(search.asked.empty());
}
