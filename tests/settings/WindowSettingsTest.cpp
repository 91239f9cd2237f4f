// The sections of the other windows: keys, defaults, older files, saving.
#include "settings/WindowSettings.h"

#include "SettingsFixture.h"
#include "TemporaryFolder.h"

#include <gmock/gmock.h>

using testing::ElementsAre;

namespace {

class WindowSettings : public SettingsFixture {
protected:
    void inSection(const std::string& section, const std::string& key, const std::string& text) {
        values->texts[{section, key}] = text;
    }

    TemporaryFolder folder;
    WindowPlace place{0, 0, 5000, 4000};
    MatchSettings match;
};

const std::array AllSections{BoardSection, OptionsSection, SeekSection,    HelpSection, NotesSection,
                             VarsSection,  ChatSection,    HistorySection, MatchSection};

} // namespace

TEST_F(WindowSettings, SectionsCarryTheirNamesOlderFilesAndSizes) {
    std::vector<std::string> found;
    for (const auto& s : AllSections) {
        found.push_back(std::string(s.name) + " " + s.defFile + (s.sized ? " sized" : ""));
    }
    EXPECT_THAT(found, ElementsAre("Board peistenam.def sized", "Options options.def", "Seek seek.def sized",
                                   "Help chesshelp.def sized", "Notes notes.def", "ICS_Vars vars.def",
                                   "Chat chesschat.def sized", "History chesshist.def", "Match match.def"));
}

TEST_F(WindowSettings, EverySectionButTheHistorysHasTheLimitOfThePlacementRule) {
    for (const auto& s : AllSections) {
        EXPECT_EQ(s.limit, s.name == std::string("History") ? std::nullopt : std::optional(1)) << s.name;
    }
    EXPECT_EQ(ClientLimit, 0);
}

TEST_F(WindowSettings, NothingReadIsNothing) {
    EXPECT_EQ(match, (MatchSettings{0, 0, 0, 0, 0, 0, 0, 0}));
    EXPECT_EQ(WindowPlace{}, (WindowPlace{0, 0, 0, 0}));
    EXPECT_EQ(Extent{}.Width, 0);
    EXPECT_EQ(Extent{}.Height, 0);
}

TEST_F(WindowSettings, ASizedSectionReadsFourKeysAndAnotherTwo) {
    zGetReg(store, SeekSection, place);
    EXPECT_THAT(values->keysRead, ElementsAre("Left", "Top", "Width", "Height"));
    values->keysRead.clear();
    zGetReg(store, NotesSection, place);
    EXPECT_THAT(values->keysRead, ElementsAre("Left", "Top"));
}

TEST_F(WindowSettings, AbsentKeysGiveZeroAndTheDesignedSize) {
    place.Left = place.Top = 77;
    zGetReg(store, SeekSection, place);
    EXPECT_EQ(place, (WindowPlace{0, 0, 5000, 4000}));
}

TEST_F(WindowSettings, TheFirstBadTextStopsTheReading) {
    inSection("Seek", "Left", "150");
    inSection("Seek", "Top", "300");
    inSection("Seek", "Width", "99999");
    inSection("Seek", "Height", "2000");
    zGetReg(store, SeekSection, place);
    EXPECT_EQ(place, (WindowPlace{150, 300, 5000, 4000}));
}

TEST_F(WindowSettings, SavingWritesTheCurrentPlace) {
    zSaveReg(store, ChatSection, {15, 30, 4500, 3000.5F});
    EXPECT_THAT(values->keysWritten, ElementsAre("Left", "Top", "Width", "Height"));
    EXPECT_EQ((values->texts[{"Chat", "Left"}]), "15");
    EXPECT_EQ((values->texts[{"Chat", "Top"}]), "30");
    EXPECT_EQ((values->texts[{"Chat", "Width"}]), "4500");
    EXPECT_EQ((values->texts[{"Chat", "Height"}]), "3000.5");
}

TEST_F(WindowSettings, WhatIsSavedStandsOnTheDiskAtOnce) {
    std::vector<std::size_t> writtenBefore;
    store.sync = [&] { writtenBefore.push_back(values->keysWritten.size()); };
    zSaveReg(store, ChatSection, place);
    zSaveReg(store, place, match);
    EXPECT_THAT(writtenBefore, ElementsAre(4U, 4U + 10U));
}

TEST_F(WindowSettings, SavingAWindowWithoutSizeWritesItsPositionAlone) {
    zSaveReg(store, HistorySection, place);
    EXPECT_THAT(values->keysWritten, ElementsAre("Left", "Top"));
}

TEST_F(WindowSettings, MatchIsReadAndWrittenInItsOrder) {
    const auto order = ElementsAre("Left", "Top", "Time", "Increment", "Rated", "Server_Settings", "Minimum", "Maximum",
                                   "Color", "Type");
    zSaveReg(store, place, {3, 12, 1, 0, 1500, 1800, 2, 16});
    EXPECT_THAT(values->keysWritten, order);
    zGetReg(store, place, match);
    EXPECT_THAT(values->keysRead, order);
    EXPECT_EQ(match, (MatchSettings{3, 12, 1, 0, 1500, 1800, 2, 16}));
}

TEST_F(WindowSettings, AFreshMatchFindsTimeEmptyAndStopsThere) {
    inSection("Match", "Left", "150");
    inSection("Match", "Color", "2");
    zGetReg(store, place, match);
    EXPECT_EQ(place.Left, 150);
    EXPECT_EQ(values->keysRead.back(), "Time");
    EXPECT_EQ(match, MatchSettings{});
}

TEST_F(WindowSettings, EachOfTheSixMatchKeysStopsTheReadingWhenAbsent) {
    const std::vector<std::string> six{"Time", "Increment", "Rated", "Server_Settings", "Minimum", "Maximum"};
    for (const std::string& key : six) {
        zSaveReg(store, place, {1, 1, 1, 1, 1, 1, 1, 1});
        values->texts.erase({"Match", key});
        values->keysRead.clear();
        zGetReg(store, place, match);
        EXPECT_EQ(values->keysRead.back(), key);
    }
}

TEST_F(WindowSettings, ColorAndTypeOfMatchDefaultToZero) {
    zSaveReg(store, place, {1, 1, 1, 1, 1, 1, 5, 5});
    values->texts.erase({"Match", "Color"});
    values->texts.erase({"Match", "Type"});
    match = {9, 9, 9, 9, 9, 9, 9, 9};
    zGetReg(store, place, match);
    EXPECT_EQ(match, (MatchSettings{1, 1, 1, 1, 1, 1, 0, 0}));
}

TEST_F(WindowSettings, BeforeTheFirstExitAWindowReadsItsOlderFile) {
    folder.write("seek.def", "150,300,7000,6000\r\n");
    inSection("Seek", "Left", "9");
    EXPECT_TRUE(readWindow(store, SeekSection, place));
    EXPECT_EQ(place, (WindowPlace{150, 300, 7000, 6000}));
    EXPECT_TRUE(values->keysRead.empty());
}

TEST_F(WindowSettings, WithoutStoreAndFileEveryWindowKeepsItsStartValues) {
    for (const auto& section : AllSections) {
        EXPECT_FALSE(readWindow(store, section, place)) << section.name;
        EXPECT_EQ(place, (WindowPlace{0, 0, 5000, 4000}));
    }
    EXPECT_FALSE(readBoard(store, place));
}

TEST_F(WindowSettings, TheOlderFileOfAWindowWithoutSizeHoldsItsPositionAlone) {
    folder.write("notes.def", "150,300,7000,6000");
    readWindow(store, NotesSection, place);
    EXPECT_EQ(place, (WindowPlace{150, 300, 5000, 4000}));
}

TEST_F(WindowSettings, OnceTheStoreIsWrittenTheOlderFilesAreIgnored) {
    modChess.RegistryState = "Yes";
    folder.write("seek.def", "150,300,7000,6000");
    inSection("Seek", "Left", "9");
    EXPECT_TRUE(readWindow(store, SeekSection, place));
    EXPECT_EQ(place, (WindowPlace{9, 0, 5000, 4000}));
}

TEST_F(WindowSettings, TheOlderFileOfMatchHasNineValuesAndNoType) {
    folder.write("match.def", "15,30\n5,0,1,0,1500,1800,2,16\n");
    match.Type = 4;
    EXPECT_TRUE(readMatch(store, place, match));
    EXPECT_EQ(place.Left, 15);
    EXPECT_EQ(match, (MatchSettings{5, 0, 1, 0, 1500, 1800, 2, 4}));
}

TEST_F(WindowSettings, OnceTheStoreIsWrittenMatchDefIsIgnoredAndTimeStopsTheReading) {
    modChess.RegistryState = "Yes";
    folder.write("match.def", "15,30,5,0,1,0,1500,1800,2");
    EXPECT_TRUE(readMatch(store, place, match));
    EXPECT_EQ(match, MatchSettings{});
    EXPECT_EQ(values->keysRead.back(), "Time");
}

TEST_F(WindowSettings, WithNeitherStoreNorMatchDefNothingIsRead) { EXPECT_FALSE(readMatch(store, place, match)); }

TEST_F(WindowSettings, TheOlderFileOfTheBoardAlsoHoldsTheTwoPaths) {
    folder.write("peistenam.def", "1,2,3,4\r\n\"C:\\PGN, mine\"\r\nC:\\Games\r\n");
    EXPECT_TRUE(readBoard(store, place));
    EXPECT_EQ(place, (WindowPlace{1, 2, 3, 4}));
    EXPECT_EQ(modChess.PGNPath, "C:\\PGN, mine");
    EXPECT_EQ(modChess.GamePath, "C:\\Games");
}

TEST_F(WindowSettings, OnceTheStoreIsWrittenTheBoardReadsItsSection) {
    modChess.RegistryState = "Yes";
    folder.write("peistenam.def", "1,2,3,4,a,b");
    inSection("Board", "Top", "45");
    EXPECT_TRUE(readBoard(store, place));
    EXPECT_EQ(place, (WindowPlace{0, 45, 5000, 4000}));
    EXPECT_EQ(modChess.PGNPath, "");
}
