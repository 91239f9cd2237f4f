// Characters of a position text to piece codes.
#include "board/PieceCodes.h"

#include <gtest/gtest.h>

TEST(PieceCodes, UpperCaseLettersAreWhiteAndLowerCaseBlack) {
    const char* const letters = "KQRBNP";
    for (int code = 1; code <= 6; ++code) {
        const char upper = letters[code - 1];
        EXPECT_EQ(pieceCode(upper), code) << upper;
        EXPECT_EQ(pieceCode(static_cast<char>(upper + 32)), -code) << upper;
    }
}

TEST(PieceCodes, EveryOtherByteIsAnEmptySquare) {
    const std::string_view pieces = "kqrbnpKQRBNP";
    for (int byte = 0; byte < 256; ++byte) {
        const char letter = static_cast<char>(byte);
        if (pieces.find(letter) == pieces.npos) {
            EXPECT_EQ(pieceCode(letter), 0) << byte;
        }
    }
}
