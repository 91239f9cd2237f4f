// When a resized board is fitted anew.
#include "view/ResizeWatch.h"

#include <gtest/gtest.h>

TEST(ResizeWatch, AResizeMarksTheBoardAndStartsTheTimerOver) {
    ResizeWatch watch;
    EXPECT_TRUE(watch.formResized(false));
    EXPECT_TRUE(watch.Resized);
    EXPECT_EQ(ResizeWatch::IntervalMs, 1000);
}

TEST(ResizeWatch, AMinimisedOrMutedFormIsLeftAlone) {
    ResizeWatch watch;
    EXPECT_FALSE(watch.formResized(true));
    watch.Muted = true;
    EXPECT_FALSE(watch.formResized(false));
    EXPECT_FALSE(watch.Resized);
}

TEST(ResizeWatch, TheVeryFirstFiringDoesNothingAndKeepsTheMark) {
    ResizeWatch watch;
    watch.formResized(false);
    EXPECT_FALSE(watch.timerFired());
    EXPECT_TRUE(watch.Resized);
    EXPECT_TRUE(watch.timerFired());
}

TEST(ResizeWatch, TheMarkIsUpWhileTheBoardIsFittedAndDownBehindThat) {
    ResizeWatch watch;
    watch.timerFired();
    watch.formResized(false);
    EXPECT_TRUE(watch.timerFired());
    EXPECT_TRUE(watch.formResized(false)) << "the window takes the size that fits";
    watch.fitted();
    EXPECT_FALSE(watch.timerFired());
}

TEST(ResizeWatch, ALaterFiringFitsTheBoardOnceAMark) {
    ResizeWatch watch;
    watch.timerFired();
    EXPECT_FALSE(watch.timerFired()) << "no mark";
    watch.formResized(false);
    watch.formResized(false);
    EXPECT_TRUE(watch.timerFired());
    watch.fitted();
    EXPECT_FALSE(watch.timerFired()) << "the mark is down";
}
