// What the controls of the options dialog stand for and give back.
#include "settings/OptionChoices.h"

#include "SettingsFixture.h"

#include <gmock/gmock.h>

#include <initializer_list>
#include <string>
#include <vector>

namespace {

class OptionChoices : public SettingsFixture {};

} // namespace

TEST_F(OptionChoices, ASoundSwitchHasTheBoxInBit0AndTheSecondSoundInBit1) {
    EXPECT_EQ(soundSwitchOf({true, true}), 3);
    EXPECT_EQ(soundSwitchOf({true, false}), 1);
    EXPECT_EQ(soundSwitchOf({false, true}), 2);
    EXPECT_EQ(soundSwitchOf({false, false}), 0);
}

TEST_F(OptionChoices, EverySoundSwitchReadsByItsTwoLowestBits) {
    for (const int value : {-32768, -4, -3, -2, -1, 0, 1, 2, 3, 4, 5, 6, 7, 32767}) {
        const auto held = static_cast<std::int16_t>(value);
        const auto bits = static_cast<unsigned>(value) & 3U;
        EXPECT_EQ(soundSettingOf(held).ticked, (bits & 1U) != 0) << value;
        EXPECT_EQ(soundSettingOf(held).second, (bits & 2U) != 0) << value;
        EXPECT_EQ(soundSwitchOf(soundSettingOf(held)), static_cast<std::int16_t>(bits)) << value;
    }
}

TEST_F(OptionChoices, ATickBoxTakes0And1AndRefusesTheRest) {
    EXPECT_EQ(tickOf(0), std::optional(false));
    EXPECT_EQ(tickOf(1), std::optional(true));
    for (const int value : {-1, 2, 3, 255, -32768, 32767}) {
        EXPECT_EQ(tickOf(static_cast<std::int16_t>(value)), std::nullopt) << value;
    }
}

TEST_F(OptionChoices, TheGraphsFlagIsMinus1Or0) {
    EXPECT_EQ(seekWhiteOf(true), -1);
    EXPECT_EQ(seekWhiteOf(false), 0);
}

TEST_F(OptionChoices, TheWarningIsTheNumericPrefixOfItsText) {
    EXPECT_EQ(warnTimeOf("15"), 15);
    EXPECT_EQ(warnTimeOf(" 7 seconds"), 7);
    EXPECT_EQ(warnTimeOf("-3"), -3);
    EXPECT_EQ(warnTimeOf("2.5"), 2);
    EXPECT_EQ(warnTimeOf("3.5"), 4);
    EXPECT_EQ(warnTimeOf(""), 0);
    EXPECT_EQ(warnTimeOf("soon"), 0);
}

TEST_F(OptionChoices, NoTextOfTheWarningIsAFault) {
    EXPECT_EQ(warnTimeOf("32768"), 32767);
    EXPECT_EQ(warnTimeOf("99999999999"), 32767);
    EXPECT_EQ(warnTimeOf("-99999999999"), -32768);
    EXPECT_EQ(warnTimeOf("1e400"), 32767);
}

TEST_F(OptionChoices, TheSchemesHoldTheirColours) {
    ASSERT_EQ(colorSchemes.size(), 3U);
    const ConsoleColors black{.Main = 0x0080FF,
                              .Background = 0,
                              .Bar = 0xFFFFFF,
                              .Tell = 0x0000FF,
                              .Copy = 0xE2C9A9,
                              .Type = 0,
                              .Shout = 0xFFFFFF};
    const ConsoleColors pastel{.Main = 0,
                               .Background = 0xC0FFFF,
                               .Bar = 0xC0FFFF,
                               .Tell = 0x0000FF,
                               .Copy = 0xFF0000,
                               .Type = 0,
                               .Shout = 0x800080};
    ConsoleColors white = pastel;
    white.Background = white.Bar = 0xFFFFFF;
    EXPECT_EQ(colorSchemes[0].colors, black);
    EXPECT_EQ(colorSchemes[1].colors, pastel);
    EXPECT_EQ(colorSchemes[2].colors, white);
    EXPECT_TRUE(colorSchemes[0].whiteGraph);
    EXPECT_FALSE(colorSchemes[1].whiteGraph);
    EXPECT_FALSE(colorSchemes[2].whiteGraph);
}

TEST_F(OptionChoices, TheFontSchemesKeepTheirSpelling) {
    EXPECT_STREQ(fontSchemes[0].name, "FixedSys");
    EXPECT_STREQ(fontSchemes[0].font, "Fixedsys");
    EXPECT_STREQ(fontSchemes[1].name, "Lucida");
    EXPECT_STREQ(fontSchemes[1].font, "Lucida COnsole");
}

TEST_F(OptionChoices, EachColourOfTheConsoleIsReadFromAndPutIntoItsOwnVariable) {
    setConsoleColors({.Main = 1, .Background = 2, .Bar = 3, .Tell = 4, .Copy = 5, .Type = 6, .Shout = 7});
    EXPECT_EQ(modChess.ColorMain, 1);
    EXPECT_EQ(modChess.ColorBackground, 2);
    EXPECT_EQ(modChess.ColorBar, 3);
    EXPECT_EQ(modChess.ColorTell, 4);
    EXPECT_EQ(modChess.ColorCopy, 5);
    EXPECT_EQ(modChess.ColorType, 6);
    EXPECT_EQ(modChess.ColorShout, 7);
    EXPECT_EQ(consoleColors(), (ConsoleColors{1, 2, 3, 4, 5, 6, 7}));
}

TEST_F(OptionChoices, TheTickBoxesHaveTheirNamesAndCaptions) {
    struct Row {
        const TickOption& option;
        const char* name;
        const char* caption;
    };
    for (const Row& row : std::initializer_list<Row>{{UseSounds, "chkSounds", "&Use Sounds"},
                                                     {ArrivalSound, "chkArrival", "A&rrival"},
                                                     {PreMoves, "chkPreMove", "&Pre-Move"},
                                                     {Dragging, "chkDrag", "&Drag Mode"},
                                                     {AlwaysQueen, "chkQueen", "Always Promote to &Queen"},
                                                     {ConfirmResigning, "chkCnfResign", "Confirm &Resign / Draw"},
                                                     {SeekOffInGames, "chkSeekOff", "Seek &Off During Games"}}) {
        EXPECT_STREQ(row.option.name, row.name);
        EXPECT_STREQ(row.option.caption, row.caption);
    }
}

TEST_F(OptionChoices, TheSoundsHaveTheirNamesCaptionsAndWaves) {
    const auto textsOf = [](const SoundOption& option) {
        return std::vector<std::string>{option.name,   option.caption,    option.choices,    option.first,
                                        option.second, option.tickedWave, option.changedWave};
    };
    using testing::ElementsAre;
    EXPECT_THAT(textsOf(soundOptions[0]),
                ElementsAre("chkMoves", "&Moves", "optMoves", "&Ding", "Cl&op", "capture.wav", "move.wav"));
    EXPECT_THAT(textsOf(soundOptions[1]), ElementsAre("chkGame", "Game Start / &End", "optStart", "D&ing", "C&lang",
                                                      "fitebell.wav", "fitebell.wav"));
    EXPECT_THAT(textsOf(soundOptions[2]),
                ElementsAre("chkTell", "&Tell", "optTell", "Di&ng", "&Whistle", "whistle.wav", "whistle.wav"));
}

TEST_F(OptionChoices, TheSchemesHaveTheirNamesAndThePreviewItsFont) {
    EXPECT_STREQ(colorSchemes[0].name, "Black");
    EXPECT_STREQ(colorSchemes[1].name, "Pastel");
    EXPECT_STREQ(colorSchemes[2].name, "White");
    EXPECT_STREQ(DesignedFont, "Fixedsys");
}

TEST_F(OptionChoices, WhatWasNotGivenIsBlackAndUnticked) {
    EXPECT_EQ(ConsoleColors{}, (ConsoleColors{0, 0, 0, 0, 0, 0, 0}));
    EXPECT_FALSE(SoundSetting{}.ticked);
    EXPECT_FALSE(SoundSetting{}.second);
}
