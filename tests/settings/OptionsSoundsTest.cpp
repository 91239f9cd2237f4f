// The test sounds of the options dialog.
#include "settings/OptionsWindowRig.h"

#include <QAbstractButton>

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

// A row of sounds, and what its clicks play.
struct Row {
    const char* box;
    const char* choices;
    const char* tickedWave;
    const char* changedWave;
    std::int16_t ModChess::*held;
};

class OptionsSounds : public OptionsWindowRig, public testing::WithParamInterface<Row> {
protected:
    const Row& row = GetParam();
    std::string first = std::string(row.choices) + "(0)";
    std::string second = std::string(row.choices) + "(1)";
};

class OptionsSilence : public OptionsWindowRig {};

} // namespace

TEST_P(OptionsSounds, TickingTheBoxPlaysTheWaveOfTheSecondSoundElseABeep) {
    modChess.*row.held = 2;
    open();
    hand.click(row.box);
    EXPECT_THAT(takeSounds(), ElementsAre(row.tickedWave));
    hand.cancel();
    modChess.*row.held = 0;
    open();
    hand.click(row.box);
    EXPECT_THAT(takeSounds(), ElementsAre("beep"));
}

TEST_P(OptionsSounds, UntickingTheBoxIsSilent) {
    modChess.*row.held = 3;
    open();
    hand.click(row.box);
    EXPECT_THAT(takeSounds(), IsEmpty());
}

TEST_P(OptionsSounds, AClickedSoundIsPlayedWhetherItsBoxIsTickedOrNot) {
    for (const int value : {1, 0}) {
        modChess.*row.held = static_cast<std::int16_t>(value);
        open();
        hand.click(second);
        EXPECT_THAT(takeSounds(), ElementsAre(row.changedWave));
        hand.click(first);
        EXPECT_THAT(takeSounds(), ElementsAre("beep"));
        hand.cancel();
    }
}

TEST_P(OptionsSounds, TheyIgnoreTheMasterSwitch) {
    modChess.SoundOn = 0;
    modChess.*row.held = 2;
    open();
    hand.click(row.box);
    EXPECT_THAT(takeSounds(), ElementsAre(row.tickedWave));
}

TEST_P(OptionsSounds, OkGivesTheBitCodedSwitch) {
    for (int value = 0; value <= 3; ++value) {
        modChess.*row.held = static_cast<std::int16_t>(3 - value);
        open();
        hand.part<QAbstractButton>(row.box).setChecked((value & 1) != 0);
        hand.click(value >= 2 ? second : first);
        hand.ok();
        EXPECT_EQ(modChess.*row.held, value);
    }
}

TEST_P(OptionsSounds, AValueBeyondTheTwoBitsIsCutToThem) {
    modChess.*row.held = -1;
    open();
    hand.ok();
    EXPECT_EQ(modChess.*row.held, 3);
}

INSTANTIATE_TEST_SUITE_P(Of, OptionsSounds,
                         testing::Values(Row{"chkMoves", "optMoves", "capture.wav", "move.wav", &ModChess::SoundMove},
                                         Row{"chkGame", "optStart", "fitebell.wav", "fitebell.wav",
                                             &ModChess::SoundStart},
                                         Row{"chkTell", "optTell", "whistle.wav", "whistle.wav", &ModChess::SoundTell}),
                         [](const auto& row) { return std::string(row.param.box); });

TEST_F(OptionsSilence, OpeningOkAndCancelPlayNothing) {
    modChess.SoundMove = modChess.SoundStart = modChess.SoundTell = 3;
    modChess.SoundArrive = 1;
    open();
    hand.ok();
    open();
    hand.cancel();
    EXPECT_THAT(sounds, IsEmpty());
}

TEST_F(OptionsSilence, TickingArrivalBeepsAndUntickingItDoesNot) {
    modChess.SoundArrive = 0;
    open();
    hand.click("chkArrival");
    EXPECT_THAT(takeSounds(), ElementsAre("beep"));
    hand.click("chkArrival");
    EXPECT_THAT(takeSounds(), IsEmpty());
}

TEST_F(OptionsSilence, UseSoundsAndTheBoxesOfTheGamesAreSilent) {
    open();
    for (const char* box : {"chkSounds", "chkPreMove", "chkDrag", "chkQueen", "chkCnfResign", "chkSeekOff"}) {
        hand.click(box);
        hand.click(box);
    }
    EXPECT_THAT(sounds, IsEmpty());
}
