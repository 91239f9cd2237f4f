// Tests of cutting long texts into pieces.
#include "practice/text/Pages.h"

#include <gtest/gtest.h>

namespace practice {
namespace {

TEST(Pages, ATextWithFewerLinesThanTheScreenIsOnePiece) {
    std::string rest = "1\n2\n3\n4";
    EXPECT_EQ(takePage(rest, 5), "1\n2\n3\n4");
    EXPECT_EQ(rest, "");
}

TEST(Pages, TheInvitationIsTheLastLineOfAFullScreen) {
    std::string rest = "1\n2\n3\n4\n5";
    EXPECT_EQ(takePage(rest, 5), "1\n2\n3\n4\nType [next] to see next page.");
    EXPECT_EQ(takePage(rest, 5), "5");
    EXPECT_EQ(rest, "");
}

TEST(Pages, EmptyLinesCount) {
    std::string rest = "1\n\n\n4";
    EXPECT_EQ(takePage(rest, 3), "1\n\nType [next] to see next page.");
    EXPECT_EQ(rest, "\n4");
}

} // namespace
} // namespace practice
