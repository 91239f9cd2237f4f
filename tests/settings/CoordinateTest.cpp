// Coordinates as single-precision text, read back as signed 16-bit numbers.
#include "settings/Coordinate.h"

#include "common/Fault.h"

#include <gtest/gtest.h>

TEST(Coordinate, IsWrittenWithSevenDigitsAndNoTrailingZeros) {
    EXPECT_EQ(coordinateText(0), "0");
    EXPECT_EQ(coordinateText(1500), "1500");
    EXPECT_EQ(coordinateText(-75), "-75");
    EXPECT_EQ(coordinateText(0.1F), "0.1");
    EXPECT_EQ(coordinateText(1234.567F), "1234.567");
    EXPECT_EQ(coordinateText(1e7F), "1E+07");
}

TEST(Coordinate, IsReadBackAsASigned16BitNumber) {
    EXPECT_EQ(coordinateOf("32767"), 32767);
    EXPECT_EQ(coordinateOf("-32768"), -32768);
    EXPECT_EQ(coordinateOf("12.5"), 12);
    EXPECT_EQ(coordinateOf("1E+03"), 1000);
}

TEST(Coordinate, OutsideTheRangeOrNoNumberIsAFault) {
    for (const char* text : {"32768", "99999", "-32769", "1E+07", "", "abc", "12px"}) {
        EXPECT_THROW(coordinateOf(text), Fault) << text;
    }
}
