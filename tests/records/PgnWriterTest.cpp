// Games written to PGN files: every byte, and files that cannot take one.
#include "records/PgnWriter.h"

#include "common/InChild.h"
#include "records/FileOne.h"
#include "records/MoveListRig.h"
#include "settings/TemporaryFolder.h"

#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>
#include <functional>
#include <memory>
#include <random>
#include <string_view>

using testing::ElementsAre;
using testing::HasSubstr;

namespace {

constexpr uid_t Nobody = 65534;

struct PgnWriter : testing::Test {
    TemporaryFolder folder;
    std::unique_ptr<GameRecord> owned = std::make_unique<GameRecord>();
    GameRecord& record = *owned;
    std::vector<std::string> told;

    PgnWriter() {
        record.Event = "Rated blitz match";
        record.Site = "FICS, Fremont, California USA";
        record.Date = "2010.10.14";
        record.Time = "20:36";
        record.White = "Ajido";
        record.Black = "IMgooeyjim";
        record.WhiteElo = 2281;
        record.BlackElo = 2068;
        record.TimeControl = "5+12";
        record.ResultLine = "      {White resigns} 1-0\r\n";
        moves({"e4", "e5"});
    }

    // Sets the half-moves of the game.
    void moves(const std::vector<std::string>& texts) {
        for (std::size_t half = 0; half < texts.size(); ++half) {
            auto& column = half % 2 == 0 ? record.WhiteMoves : record.BlackMoves;
            column[static_cast<long>(half / 2 + 1)] = texts[half];
        }
        record.LastMove = static_cast<float>(texts.size()) / 2;
        if (texts.size() % 2 != 0) record.LastMove = static_cast<float>(texts.size() / 2) + 0.5F;
    }

    void write(const std::string& file) {
        zWriteGame(file, record,
                   {.print = [this](const std::string& text) { told.push_back("print " + text); },
                    .tell = [this](const std::string& text) { told.push_back("box " + text); }});
    }

    void expectFailure(const std::string& file) {
        write(file);
        EXPECT_THAT(told, ElementsAre("box Game could not be saved."));
    }

    // The lines of the moves.
    std::vector<std::string> moveLines() const {
        const std::string text = pgnText(record);
        const auto start = text.find("\r\n\r\n") + 4;
        return linesWithEnds(text.substr(start, text.find("1-0\r\n\r\n", start) - start));
    }
};

} // namespace

// The text

TEST_F(PgnWriter, AGameIsTheseBytes) {
    EXPECT_EQ(pgnText(record), "[Event \"Rated blitz match\"]\r\n"
                               "[Site \"FICS, Fremont, California USA\"]\r\n"
                               "[Date \"2010.10.14\"]\r\n"
                               "[Time \"20:36\"]\r\n"
                               "[White \"Ajido\"]\r\n"
                               "[Black \"IMgooeyjim\"]\r\n"
                               "[WhiteElo \"2281\"]\r\n"
                               "[BlackElo \"2068\"]\r\n"
                               "[TimeControl \"5+12\"]\r\n"
                               "[Result \"1-0\"]\r\n"
                               "\r\n"
                               "1. e4 e5\r\n"
                               "1-0\r\n"
                               "\r\n");
}

TEST_F(PgnWriter, ValuesAreWrittenAsTheyAreWithoutEscaping) {
    record.White = "\"Quo\\te\"\xe9";
    EXPECT_THAT(pgnText(record), HasSubstr("[White \"\"Quo\\te\"\xe9\"]\r\n"));
    record.WhiteElo = -5;
    EXPECT_THAT(pgnText(record), HasSubstr("[WhiteElo \"-5\"]\r\n"));
}

TEST_F(PgnWriter, ALastMoveOfWhiteAloneGoesOutWithoutBlacks) {
    moves({"e4"});
    EXPECT_THAT(moveLines(), ElementsAre("1. e4\r\n"));
    moves({"e4", "e5", "Nf3"});
    EXPECT_THAT(moveLines(), ElementsAre("1. e4 e5 2. Nf3\r\n"));
}

TEST_F(PgnWriter, AnEmptyMoveIsALoneBlank) {
    moves({"e4", "", "", "Nf6"});
    EXPECT_THAT(moveLines(), ElementsAre("1. e4  2.  Nf6\r\n"));
}

TEST_F(PgnWriter, ATokenGoesToTheNextLineWhereItAndTheColumnReachSeventySeven) {
    // The first token ends in column 7 and leaves the line there: 7 + 69 is below 77, 7 + 70 is not.
    moves({"Nb1d2", std::string(68, 'x')});
    EXPECT_THAT(moveLines(), ElementsAre("1. Nb1d2 " + std::string(68, 'x') + "\r\n"));
    moves({"Nb1d2", std::string(69, 'x')});
    EXPECT_THAT(moveLines(), ElementsAre("1. Nb1d2\r\n", std::string(69, 'x') + "\r\n"));
    // A second one and the blank in front of it move the column by three.
    moves({"e4", "e5", std::string(65, 'x')});
    EXPECT_THAT(moveLines(), ElementsAre("1. e4 e5 2. " + std::string(65, 'x') + "\r\n"));
    moves({"e4", "e5", std::string(66, 'x')});
    EXPECT_THAT(moveLines(), ElementsAre("1. e4 e5\r\n", "2. " + std::string(66, 'x') + "\r\n"));
}

TEST_F(PgnWriter, ALineMayHaveSeventySevenCharactersWithItsLastBlank) {
    moves({"Nb1d2", std::string(68, 'x'), "e4"});
    EXPECT_EQ(moveLines().front().size(), 77U + 2);
    EXPECT_EQ(moveLines().at(1), "2. e4\r\n");
}

TEST_F(PgnWriter, ALongGameIsCutIntoLinesAtTokensAlone) {
    std::vector<std::string> texts;
    for (int half = 0; half < 400; ++half) texts.push_back(half % 3 == 0 ? "Nbxd7" : "e4");
    moves(texts);
    std::string joined;
    for (const std::string& line : moveLines()) {
        EXPECT_LE(line.size(), 79U);
        joined += line.substr(0, line.size() - 2) + " ";
    }
    std::string expected;
    for (std::size_t half = 0; half < texts.size(); ++half) {
        if (half % 2 == 0) expected += std::to_string(half / 2 + 1) + ". ";
        expected += texts[half] + " ";
    }
    EXPECT_EQ(joined, expected);
}

TEST_F(PgnWriter, TheResultIsWhatStandsBehindTheBrace) {
    const std::vector<std::pair<std::string, std::string>> cases{
        {"      {White resigns} 1-0\r\n", "1-0"},
        {"      {White resigns}1-0 {} \r\n", "1-0 {}"},
        {"      {Game in progress} *\r\n", "*"},
        {"      {Game drawn} by {agreement} 1/2-1/2\r\n", "by {agreement} 1/2-1/2"},
        {"  0-1\r\n", "0-1"},
        {"", ""},
        {"*", "*"},
        {"\r\n", "\r\n"},
    };
    for (const auto& [line, result] : cases) {
        record.ResultLine = line;
        EXPECT_THAT(pgnText(record), HasSubstr("[Result \"" + result + "\"]\r\n"));
        EXPECT_TRUE(pgnText(record).ends_with("\r\n" + result + "\r\n\r\n")) << line;
    }
}

// Files

TEST_F(PgnWriter, ASaveMakesTheFileAndTellsSoInTheConsole) {
    write("games.pgn");
    EXPECT_EQ(folder.read("games.pgn"), pgnText(record));
    EXPECT_THAT(told, ElementsAre("print \nGame was saved to games.pgn\n"));
}

TEST_F(PgnWriter, ANewFileMayBeReadAndWrittenAsFarAsTheUsersMaskAllows) {
    const mode_t mask = ::umask(0);
    write("games.pgn");
    ::umask(mask);
    struct stat status {};
    ASSERT_EQ(::stat((folder.path() / "games.pgn").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0666U);
}

TEST_F(PgnWriter, TheConsoleSpellsTheNameOfTheFileAsTheUserDoes) {
    write("J\xC3\xB6rg \xE2\x82\xAC \xFF.pgn");
    EXPECT_THAT(told, ElementsAre("print \nGame was saved to J\xF6rg ? \xFF.pgn\n"));
}

TEST_F(PgnWriter, TwoSavesToOneNameGiveTwoGamesOneBehindTheOther) {
    folder.write("games.pgn", "what stood there\n");
    write("games.pgn");
    const std::string first = pgnText(record);
    record.White = "Other";
    write("games.pgn");
    EXPECT_EQ(folder.read("games.pgn"), "what stood there\n" + first + pgnText(record));
}

TEST_F(PgnWriter, AGameFileThatIsOpenAlreadyFailsOnceAndIsClosedByThat) {
    const FileOne chooser;
    expectFailure("games.pgn");
    EXPECT_FALSE(std::filesystem::exists("games.pgn"));
    told.clear();
    write("games.pgn");
    EXPECT_THAT(told, ElementsAre(HasSubstr("Game was saved to ")));
}

TEST_F(PgnWriter, WhileTheBoxIsUpTheFileIsClosed) {
    const FileOne chooser;
    bool free = false;
    zWriteGame("games.pgn", record,
               {.print = [](const std::string&) {},
                .tell = [&](const std::string&) { free = passOver([] { const FileOne another; }); }});
    EXPECT_TRUE(free);
}

TEST_F(PgnWriter, AGameWithoutMovesTouchesNoFileAndIsToldToBeSaved) {
    record.LastMove = 0;
    write("games.pgn");
    EXPECT_FALSE(std::filesystem::exists("games.pgn"));
    write("no such folder/games.pgn");
    EXPECT_THAT(told, ElementsAre("print \nGame was saved to games.pgn\n",
                                  "print \nGame was saved to no such folder/games.pgn\n"));
}

TEST_F(PgnWriter, AFolderInPlaceOfTheFileIsToldInABoxAlone) {
    std::filesystem::create_directory("games.pgn");
    expectFailure("games.pgn");
}

TEST_F(PgnWriter, AMissingFolderOrAnEmptyNameIsToldInABoxAlone) {
    expectFailure("no such folder/games.pgn");
    told.clear();
    expectFailure("");
}

TEST_F(PgnWriter, APipeThatNobodyReadsIsNotWaitedFor) {
    ASSERT_EQ(::mkfifo("games.pgn", 0600), 0);
    expectFailure("games.pgn");
}

TEST_F(PgnWriter, ADeviceThatIsFullIsToldInABoxAlone) { expectFailure("/dev/full"); }

TEST_F(PgnWriter, ANumberBeyondTheRecordIsToldInABoxAndWritesNothing) {
    record.LastMove = 201;
    expectFailure("games.pgn");
    EXPECT_FALSE(std::filesystem::exists("games.pgn"));
}

TEST_F(PgnWriter, ADiskThatFillsUpInMidGameLeavesTheGamesBeforeAsTheyWere) {
    write("games.pgn");
    const std::string before = folder.read("games.pgn");
    const bool ended = inChild([&] {
        limitFiles(before.size() + 100);
        told.clear();
        write("games.pgn");
        if (told != std::vector<std::string>{"box Game could not be saved."}) ::_exit(1);
    });
    EXPECT_TRUE(ended) << "it was told in a box";
    EXPECT_EQ(folder.read("games.pgn"), before);
}

TEST_F(PgnWriter, AGameIsWrittenWithoutAStandardInputToo) {
    write("games.pgn");
    EXPECT_TRUE(inChild([&] {
        ::close(STDIN_FILENO); // whose number the file then gets
        write("games.pgn");
        if (told != std::vector<std::string>(2, "print \nGame was saved to games.pgn\n")) ::_exit(1);
    }));
    EXPECT_EQ(folder.read("games.pgn"), pgnText(record) + pgnText(record));
}

TEST_F(PgnWriter, WithoutPermissionTheFileStaysAsItWasAndABoxSaysSo) {
    write("games.pgn");
    const std::string before = folder.read("games.pgn");
    ASSERT_EQ(::chmod("games.pgn", 0444), 0);
    ASSERT_EQ(::chmod(".", 0555), 0);
    const bool ended = inChild([&] {
        if (::geteuid() == 0 && ::setuid(Nobody) != 0) ::_exit(2); // the superuser may write anywhere
        for (const char* file : {"games.pgn", "another.pgn"}) {
            told.clear();
            write(file);
            if (told != std::vector<std::string>{"box Game could not be saved."}) ::_exit(1);
        }
    });
    ASSERT_EQ(::chmod(".", 0755), 0);
    EXPECT_TRUE(ended) << "it was told in a box";
    EXPECT_EQ(folder.read("games.pgn"), before);
}

TEST_F(PgnWriter, AKillInTheMiddleOfSavesLeavesTheGamesBeforeWhole) {
    write("games.pgn");
    const std::string first = folder.read("games.pgn");
    std::vector<std::string> texts(400, "Nb1xd2");
    moves(texts);
    const std::string game = pgnText(record);
    std::mt19937 random(11);
    std::string before = first;
    for (int round = 0; round < 20; ++round) {
        const pid_t child = ::fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            for (;;) write("games.pgn");
        }
        ::usleep(static_cast<unsigned>(500 + random() % 4000));
        ::kill(child, SIGKILL);
        ::waitpid(child, nullptr, 0);
        const std::string now = folder.read("games.pgn");
        ASSERT_TRUE(now.starts_with(before)) << "round " << round;
        std::string_view rest(now);
        rest.remove_prefix(before.size());
        while (rest.starts_with(game)) rest.remove_prefix(game.size());
        ASSERT_TRUE(game.starts_with(rest)) << "at most the last game is cut";
        before = now;
    }
}
