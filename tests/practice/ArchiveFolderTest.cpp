// Tests of the archive in a folder: what a server that starts anew finds there.
#include "practice/games/ArchiveFolder.h"
#include "practice/games/KeptGameText.h"

#include <gtest/gtest.h>

#include <fstream>

namespace practice {
namespace {

namespace fs = std::filesystem;

PlayedMove move(const std::string& engineForm, const std::string& verbose, const std::string& pretty, int doublePush,
                const std::string& fen) {
    PlayedMove played{engineForm, verbose, pretty, 1500, doublePush};
    played.fen = fen;
    played.clock.left = {899'000, 901'000};
    played.clock.increment = 2000;
    played.clock.halfmoves = 1;
    return played;
}

KeptGamePtr gameOf(const std::string& white, const std::string& black) {
    Game game;
    game.names = {white, black};
    game.ratings = {"1711", "++++"};
    game.terms.minutes = 15;
    game.terms.increment = 2;
    game.terms.rated = true;
    game.startFen = startFen;
    game.startedAt = "Sat Nov  1, 02:40 UTC 2026";
    game.firstClock.start(15, 2, 0);
    game.moves = {move("e2e4", "P/e2-e4", "e4", 4, "rnbqkbnr/pppppppp/8/8/4P3/8/PPPP1PPP/RNBQKBNR b KQkq - 0 1"),
                  move("e7e5", "P/e7-e5", "e5", 4, "rnbqkbnr/pppp1ppp/8/4p3/4P3/8/PPPP1PPP/RNBQKBNR w KQkq - 0 2")};
    game.clock = game.moves.back().clock;
    game.facts.fen = game.moves.back().fen;
    return keptGame(game, white + " resigns", "0-1", "Sat Nov 21, 02:42 UTC 2026");
}

struct ArchiveFolderTest : testing::Test {
    fs::path folder = fs::path(testing::TempDir()) /
                      ("archive-" + std::string(testing::UnitTest::GetInstance()->current_test_info()->name()));

    ArchiveFolderTest() { fs::remove_all(folder); }
    ~ArchiveFolderTest() override { fs::remove_all(folder); }

    // What a server finds that starts with this folder.
    Archive found() const {
        Archive archive;
        ArchiveFolder reader;
        EXPECT_EQ(reader.open(folder, archive), "");
        return archive;
    }

    int files() const {
        int count = 0;
        for (const auto& entry : fs::directory_iterator(folder)) count += entry.is_regular_file() ? 1 : 0;
        return count;
    }
};

TEST_F(ArchiveFolderTest, EverythingThatIsKeptIsFoundAgain) {
    Archive archive;
    ArchiveFolder writer;
    ASSERT_EQ(writer.open(folder, archive), "");
    archive.keep(gameOf("Rookery", "Partner"));
    archive.keep(gameOf("Partner", "Rookery"));
    archive.putInJournal("Partner", 10, archive.find("Rookery", "0"));
    archive.adjourn(gameOf("Pupil", "Tester"));
    ASSERT_EQ(writer.save(archive), "");

    Archive again = found();
    EXPECT_EQ(historyTable(again, "Rookery"), historyTable(archive, "Rookery"));
    EXPECT_EQ(historyTable(again, "Partner"), historyTable(archive, "Partner"));
    EXPECT_EQ(journalTable(again, "Partner"), journalTable(archive, "Partner"));
    const auto offline = [](const std::string&) { return false; };
    EXPECT_EQ(storedTable(again, "Pupil", offline), storedTable(archive, "Pupil", offline));
    EXPECT_EQ(keptMoveList(*again.find("Rookery", "1")), keptMoveList(*archive.find("Rookery", "1")));
    EXPECT_EQ(again.find("Rookery", "0"), again.inJournal("partner", 10)) << "one game, whoever has it";
    again.keep(gameOf("Rookery", "Tester"));
    EXPECT_NE(again.find("Rookery", "2"), nullptr) << "the numbers go on";
}

TEST_F(ArchiveFolderTest, AGameThatNobodyHasAnyMoreLeavesTheFolder) {
    Archive archive;
    ArchiveFolder writer;
    writer.open(folder, archive);
    for (int i = 0; i < 25; ++i) {
        archive.keep(gameOf("Rookery", "Partner"));
        ASSERT_EQ(writer.save(archive), "");
    }
    EXPECT_EQ(files(), 11) << "ten games and the index";
    archive.forget("Rookery");
    writer.save(archive);
    EXPECT_EQ(files(), 11) << "the other player keeps his";
    archive.forget("Partner");
    writer.save(archive);
    EXPECT_EQ(files(), 1);
}

TEST_F(ArchiveFolderTest, OtherFilesStayAsTheyAre) {
    fs::create_directories(folder);
    std::ofstream(folder / "game-7") << "mine";
    std::ofstream(folder / "notes.txt") << "mine too";
    Archive archive;
    ArchiveFolder writer;
    ASSERT_EQ(writer.open(folder, archive), "");
    archive.keep(gameOf("Rookery", "Partner"));
    ASSERT_EQ(writer.save(archive), "");
    EXPECT_EQ(fs::file_size(folder / "game-7"), 4U);
    EXPECT_TRUE(fs::exists(folder / "game-8")) << "a number that was there is not used again";
    EXPECT_TRUE(fs::exists(folder / "notes.txt"));
}

TEST_F(ArchiveFolderTest, AnIndexThatCannotBeReadIsNamedAndStays) {
    fs::create_directories(folder);
    for (const std::string line : {"history rookery 0 game-1", "history rookery", "adjourned ../index",
                                   "journal a 11 b", "next rookery x", "next rookery 101", "nonsense a 1 game-1"}) {
        std::ofstream(folder / "index") << line << "\n";
        Archive archive;
        ArchiveFolder reader;
        EXPECT_EQ(reader.open(folder, archive), "cannot read \"" + line + "\" in " + (folder / "index").string());
        EXPECT_EQ(fs::file_size(folder / "index"), line.size() + 1);
    }
}

TEST_F(ArchiveFolderTest, AFolderThatCannotBeMadeIsNamed) {
    std::ofstream(folder) << "a file";
    Archive archive;
    ArchiveFolder writer;
    EXPECT_EQ(writer.open(folder, archive), "cannot make " + folder.string());
}

TEST(KeptGameText, AGameComesBackWhole) {
    const auto kept = gameOf("Rookery", "Partner");
    const auto read = readKeptGame(keptGameText(*kept));
    ASSERT_TRUE(read);
    EXPECT_EQ(keptGameText(*read), keptGameText(*kept));
    EXPECT_EQ(read->game.facts.fen, kept->game.facts.fen);
    EXPECT_EQ(read->game.clock.left, kept->game.clock.left);
    EXPECT_EQ(read->game.clock.increment, 2000);
    EXPECT_EQ(read->reason, "Rookery resigns");
    EXPECT_EQ(read->game.moves[1].doublePushFile, 4);
}

TEST(KeptGameText, ATextThatIsCutOrChangedGivesNothing) {
    const std::string whole = keptGameText(*gameOf("Rookery", "Partner"));
    for (std::size_t end = 0; end < whole.size() - 1; ++end) {
        EXPECT_FALSE(readKeptGame(whole.substr(0, end))) << whole.substr(0, end);
    }
    for (const auto& [from, to] : {std::pair<std::string, std::string>{"game 1", "game 2"},
                                   {"terms 15", "terms 999"},
                                   {"rated -", "rated checkers"},
                                   {"\nmove e2e4", "\nmove"},
                                   {"\nclock ", "\nclocks "}}) {
        std::string text = whole;
        text.replace(text.find(from), from.size(), to);
        EXPECT_FALSE(readKeptGame(text)) << to;
    }
}

} // namespace
} // namespace practice
