// What the master switch and a bit-coded switch ask for.
#include "settings/SoundChoice.h"

#include <gtest/gtest.h>

TEST(SoundChoice, ThreeIsTheWaveFileOneTheBeepAndAnythingElseSilence) {
    EXPECT_EQ(soundChoice(1, 3), SoundKind::Wave);
    EXPECT_EQ(soundChoice(1, 1), SoundKind::Beep);
    for (const int other : {0, 2, 4, 7, -1, 32767}) EXPECT_EQ(soundChoice(1, other), SoundKind::Silence) << other;
}

TEST(SoundChoice, TheMasterSwitchAtZeroSilencesEverything) {
    for (const int any : {0, 1, 2, 3}) EXPECT_EQ(soundChoice(0, any), SoundKind::Silence) << any;
}

TEST(SoundChoice, AnyNonZeroMasterSwitchCounts) { EXPECT_EQ(soundChoice(-1, 3), SoundKind::Wave); }
