// The older settings files: values in sequence, from any bytes.
#include "settings/DefFile.h"

#include "TemporaryFolder.h"

#include <gmock/gmock.h>

#include <random>

using testing::ElementsAre;
using testing::IsEmpty;

TEST(DefFile, ValuesAreSeparatedByCommasOrLineEnds) {
    EXPECT_THAT(DefValues("1,2\r\n3\n4\r5").all(), ElementsAre("1", "2", "3", "4", "5"));
}

TEST(DefFile, ATextMayStandInQuotesWithCommasInside) {
    EXPECT_THAT(DefValues("\"C:\\Games, mine\",plain path \r\n").all(), ElementsAre("C:\\Games, mine", "plain path"));
}

TEST(DefFile, BlanksAroundAValueDoNotCountAndThoseInQuotesDo) {
    EXPECT_THAT(DefValues("  7 , \" a \" ,8").all(), ElementsAre("7", " a ", "8"));
}

TEST(DefFile, AnOpenQuoteEndsWithItsLine) { EXPECT_THAT(DefValues("\"a,b\n2").all(), ElementsAre("a,b", "2")); }

TEST(DefFile, AnEmptyFileHasNoValuesAndAnEmptyPlaceIsAValue) {
    EXPECT_THAT(DefValues("").all(), IsEmpty());
    EXPECT_THAT(DefValues("1,,3").all(), ElementsAre("1", "", "3"));
    EXPECT_THAT(DefValues("1,  ").all(), ElementsAre("1", "")) << "behind blanks the text may end";
}

TEST(DefFile, ABadNumberIsPassedOverAndTheNextIsStillRead) {
    DefValues values("abc,99999,,40");
    float bad = 1;
    float beyond = 2;
    std::int16_t empty = 3;
    std::int16_t good = 4;
    values.take(bad);
    values.take(beyond);
    values.take(empty);
    values.take(good);
    EXPECT_EQ(bad, 1);
    EXPECT_EQ(beyond, 2);
    EXPECT_EQ(empty, 3);
    EXPECT_EQ(good, 40);
}

TEST(DefFile, BehindTheLastValueAFieldKeepsWhatItHad) {
    DefValues values("5");
    float first = 0;
    float second = 2;
    std::string text = "kept";
    values.take(first);
    values.take(second);
    values.take(text);
    EXPECT_EQ(first, 5);
    EXPECT_EQ(second, 2);
    EXPECT_EQ(text, "kept");
}

TEST(DefFile, AtMost64ValuesAreRead) { EXPECT_EQ(DefValues(std::string(70, ',')).all().size(), 64U); }

TEST(DefFile, HugeAndRandomBytesAreReadWithoutHarm) {
    EXPECT_EQ(DefValues(std::string(5'000'000, ',')).all().size(), 64U);
    EXPECT_EQ(DefValues(std::string(5'000'000, '"')).all().size(), 1U);
    std::mt19937 random(1);
    for (int round = 0; round < 2000; ++round) {
        std::string bytes(random() % 200, '\0');
        for (char& c : bytes) c = static_cast<char>(random());
        DefValues values(bytes);
        float number = 0;
        for (std::size_t i = 0; i <= values.all().size(); ++i) values.take(number);
        EXPECT_LE(values.all().size(), DefValues::MaxValues);
        EXPECT_GE(number, -32768);
        EXPECT_LE(number, 32767);
    }
}

TEST(DefFile, AMissingFileIsNoFailureAndGivesNothing) {
    const TemporaryFolder folder;
    EXPECT_FALSE(readDefFile("seek.def").has_value());
}

TEST(DefFile, AFileEndsWhereItsBytesEnd) {
    const TemporaryFolder folder;
    folder.write("seek.def", "10,C:\\Games");
    EXPECT_THAT(readDefFile("seek.def")->all(), ElementsAre("10", "C:\\Games"));
}

TEST(DefFile, OnlyTheFrontOfAHugeFileIsRead) {
    const TemporaryFolder folder;
    folder.write("seek.def", std::string(70'000, '1') + ",2");
    EXPECT_EQ(readDefFile("seek.def")->all().size(), 1U);
}

TEST(DefFile, TheFrontThatIsReadHas65536Bytes) {
    const TemporaryFolder folder;
    folder.write("seek.def", std::string(70'000, '1'));
    EXPECT_EQ(readDefFile("seek.def")->all().front().size(), 65536U);
}

TEST(DefFile, AFolderOrADeviceOfThatNameGivesNothing) {
    const TemporaryFolder folder;
    std::filesystem::create_directory("seek.def");
    std::filesystem::create_symlink("/dev/zero", "notes.def");
    EXPECT_FALSE(readDefFile("seek.def").has_value());
    EXPECT_FALSE(readDefFile("notes.def").has_value());
}

TEST(DefFile, TheBoardsFileIsOpenedByTheCurrentDirectoryAndItsName) {
    const TemporaryFolder folder;
    EXPECT_EQ(boardDefFile(), (std::filesystem::current_path() / "peistenam.def").string());
}
