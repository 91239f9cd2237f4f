// Lenient and strict conversions.
#include "common/Numbers.h"

#include "common/Fault.h"

#include <gtest/gtest.h>

namespace {

// The text of the fault in `act`, empty without one.
template <typename Act>
std::string faultOf(Act act) {
    try {
        act();
    } catch (const Fault& fault) {
        return fault.what();
    }
    return {};
}

} // namespace

TEST(Numbers, LenientReadsTheLeadingNumberAndGivesZeroWithoutOne) {
    EXPECT_EQ(leadingNumber("12abc"), 12);
    EXPECT_EQ(leadingNumber("  -7.5 x"), -7.5);
    EXPECT_EQ(leadingNumber("+3"), 3);
    EXPECT_EQ(leadingNumber(".5"), 0.5);
    EXPECT_EQ(leadingNumber("abc"), 0);
    EXPECT_EQ(leadingNumber(""), 0);
    EXPECT_EQ(leadingNumber("-"), 0);
    EXPECT_EQ(leadingNumber("nan"), 0);
    EXPECT_EQ(leadingNumber("inf"), 0);
    EXPECT_EQ(leadingNumber(std::string_view("-5").substr(0, 1)), 0) << "what lies behind the text is no part of it";
    EXPECT_EQ(leadingNumber(std::string_view(".5").substr(0, 1)), 0);
}

TEST(Numbers, AnExponentMayLeadBeyondEveryNumberOrToNothing) {
    EXPECT_EQ(leadingNumber("2e3x"), 2000);
    EXPECT_GT(leadingNumber("1e999"), 1e300);
    EXPECT_LT(leadingNumber("-1e999"), -1e300);
    EXPECT_LT(leadingNumber("-1e999e-"), -1e300) << "only the number's own sign counts";
    EXPECT_EQ(leadingNumber("1e-999"), 0);
    EXPECT_EQ(strictInt16("1E-999"), 0);
}

TEST(Numbers, StrictFaultsOnTextThatIsNoNumber) {
    EXPECT_EQ(strictInt16(" 42 "), 42);
    EXPECT_EQ(strictInt32("-70000"), -70000);
    for (const char* text : {"", "x", "1x", "1 2", "--1"}) {
        EXPECT_THROW(strictInt16(text), Fault) << text;
    }
}

TEST(Numbers, StrictFaultsOnOverflowOfTheField) {
    EXPECT_EQ(strictInt16("32767"), 32767);
    EXPECT_EQ(strictInt16("-32768"), -32768);
    EXPECT_THROW(strictInt16("32768"), Fault);
    EXPECT_THROW(strictInt32("2147483648"), Fault);
    EXPECT_THROW(strictInt32("1e999"), Fault);
}

TEST(Numbers, AFaultNamesWhatWasFound) {
    EXPECT_EQ(faultOf([] { strictInt16("40000"); }), "the number 40000 does not fit a field of 16 bits");
    EXPECT_EQ(faultOf([] { strictInt32("1e300"); }), "the number 1e+300 does not fit a field of 32 bits");
    EXPECT_EQ(faultOf([] { strictInt32("abc"); }), "\"abc\" is no number");
    EXPECT_EQ(faultOf([] { strictInt32(std::string(1000, 'x')); }).size(), 80U + 15U) << "cut short";
}

TEST(Numbers, AHalfRoundsToTheEvenNeighbour) {
    EXPECT_EQ(strictInt16("0.5"), 0);
    EXPECT_EQ(strictInt16("1.5"), 2);
    EXPECT_EQ(toInt16(-2.5), -2);
    EXPECT_EQ(toInt32(70000.5), 70000);
    EXPECT_EQ(roundHalfEven(3.5), 4);
}

TEST(Numbers, BooleanTakesTheWordsInAnyCaseAndNumbers) {
    EXPECT_TRUE(strictBool("True"));
    EXPECT_FALSE(strictBool("FALSE"));
    EXPECT_TRUE(strictBool("-1"));
    EXPECT_FALSE(strictBool("0"));
    EXPECT_THROW(strictBool("yes"), Fault);
}
