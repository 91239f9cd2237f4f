// FixedArray: every subscript is checked.
#include "common/FixedArray.h"

#include <gtest/gtest.h>

TEST(FixedArray, HoldsTheElementsZeroToLast) {
    FixedArray<int, 3> array;
    array[0] = 1;
    array[3] = 4;
    EXPECT_EQ(array[0], 1);
    EXPECT_EQ(array[3], 4);
}

TEST(FixedArray, ASubscriptOutsideFaultsAndNamesTheLimit) {
    FixedArray<int, 3> array;
    EXPECT_THROW(array[-1], Fault);
    try {
        array[4] = 1;
        FAIL() << "no fault";
    } catch (const Fault& fault) {
        EXPECT_EQ(fault.kind(), FaultKind::Subscript);
        EXPECT_STREQ(fault.what(), "subscript 4 is outside 0 to 3");
    }
}

TEST(Fault, PassOverTakesAFaultAndSaysSo) {
    EXPECT_FALSE(passOver([] { throw Fault(FaultKind::File, "x"); }));
    EXPECT_TRUE(passOver([] {}));
}
