// The game files that end the program, and those that do not.
#include "TestPaths.h"
#include "platform/EndedProgram.h"
#include "records/PgnRig.h"

#include <gmock/gmock.h>

#include <filesystem>

using testing::StartsWith;

namespace {

struct PgnFault : testing::Test {
    EndedProgram run(int row, const QStringList& more = {}) const {
        return runToEnd(QStringLiteral(PGN_PROGRAM),
                        QStringList{QString::fromStdString(files.path()), QString::number(row)} + more);
    }

    void expectEnd(const EndedProgram& ended, const std::string& error, const std::string& out) const {
        EXPECT_EQ(ended.status, 1);
        EXPECT_EQ(ended.error, "brightrank: " + error + "\n");
        EXPECT_EQ(ended.out, out);
    }

    PgnRig files;
};

} // namespace

TEST_F(PgnFault, AFileThatIsNotThereEndsTheProgram) {
    expectEnd(run(1), "file error: " + files.path() + ": No such file or directory", "");
}

TEST_F(PgnFault, AFolderEndsTheProgram) {
    std::filesystem::create_directory(files.path());
    expectEnd(run(1), "file error: " + files.path() + ": Is a directory", "");
}

TEST_F(PgnFault, ALastGameWithoutAnEmptyLineBehindItEndsTheProgramWhenItIsChosen) {
    const std::string text = pgnTexts(2);
    files.file(text.substr(0, text.size() - 2));
    expectEnd(run(2), "file error: " + files.path() + ": the file ends within a game", "games 2\n");
    EXPECT_EQ(run(1).out, "games 2\nlast row 1\n") << "the game in front of it is whole";
}

TEST_F(PgnFault, AGameChosenOutOfAHundredEndsTheProgram) {
    for (const int count : {100, 101}) {
        files.file(pgnTexts(count));
        expectEnd(run(1), "file error: a game file is open already", "games 100\n");
    }
}

TEST_F(PgnFault, AfterAHundredGamesTheNextFileEndsTheProgram) {
    files.file(pgnTexts(100));
    EXPECT_EQ(run(0).out, "games 100\nlast row 0\n");
    expectEnd(run(0, {QStringLiteral("again")}), "file error: a game file is open already", "");
}

TEST_F(PgnFault, NinetyNineGamesDoNot) {
    files.file(pgnTexts(99));
    const EndedProgram ended = run(99, {QStringLiteral("again")});
    EXPECT_EQ(ended.status, 0);
    EXPECT_EQ(ended.out, "games 99\nlast row 1\n");
}

TEST_F(PgnFault, AMoveNumberBeyond200EndsTheProgram) {
    files.file(pgnText("Anders", "1. e4 e5 201. Nf3 Nc6"));
    const EndedProgram ended = run(1);
    expectEnd(ended, "subscript error: subscript 201 is outside 0 to 200 (moves of a game)", "games 1\n");
}

TEST_F(PgnFault, ANumberBeyond16BitsEndsTheProgram) {
    files.file(pgnText("Anders", "1. e4 e5 99999. Nf3 Nc6"));
    const EndedProgram ended = run(1);
    EXPECT_EQ(ended.status, 1);
    EXPECT_THAT(ended.error, StartsWith("brightrank: overflow error:"));
}
