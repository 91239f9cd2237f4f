// The dialogs that name game files: their filters, where they begin, and what they leave behind.
#include "records/FileDialogs.h"
#include "common/modChess.h"
#include "platform/Boxes.h"

#include <gmock/gmock.h>

using testing::ElementsAre;

namespace {

class FileDialogs : public testing::Test {
protected:
    FileDialogs() {
        modChess = {};
        modChess.PGNPath = "/games/pgn";
        modChess.GamePath = "/games/gam";
        boxes.fileOpen = answering("open");
        boxes.fileSave = answering("save");
    }
    ~FileDialogs() override {
        boxes = Boxes();
        modChess = {};
    }

    std::optional<std::string> chosen = "/elsewhere/one.pgn";
    std::vector<std::string> asked;

private:
    Boxes::FileChoice answering(const std::string& kind) {
        return [this, kind](QWidget*, const std::string&, const std::string& start, const std::string& filter) {
            asked.push_back(kind + " in " + start + ": " + filter);
            return chosen;
        };
    }
};

} // namespace

TEST_F(FileDialogs, EachKindOfFileHasItsFilterAndItsFolder) {
    EXPECT_EQ(zSaveFile(nullptr, true), "/elsewhere/one.pgn");
    EXPECT_EQ(zSaveFile(nullptr, false), "/elsewhere/one.pgn");
    zLoadFile(nullptr, true);
    zLoadFile(nullptr, false);
    EXPECT_THAT(asked, ElementsAre("save in /games/pgn: PGN Files (*.pgn)", "save in /games/gam: Game Files (*.gam)",
                                   "open in /games/pgn: PGN Files (*.pgn)", "open in /games/gam: Game Files (*.gam)"));
}

TEST_F(FileDialogs, TheFolderOfAFileToReadIsWhereTheNextDialogOfItsKindBegins) {
    EXPECT_EQ(zLoadFile(nullptr, true), "/elsewhere/one.pgn");
    EXPECT_EQ(modChess.PGNPath, "/elsewhere");
    EXPECT_EQ(modChess.GamePath, "/games/gam");
    zLoadFile(nullptr, false);
    EXPECT_EQ(modChess.GamePath, "/elsewhere");
}

TEST_F(FileDialogs, AFileToWriteLeavesTheFoldersAsTheyAre) {
    zSaveFile(nullptr, true);
    zSaveFile(nullptr, false);
    EXPECT_EQ(modChess.PGNPath, "/games/pgn");
    EXPECT_EQ(modChess.GamePath, "/games/gam");
}

TEST_F(FileDialogs, CancelGivesNoNameAndLeavesTheFoldersAsTheyAre) {
    chosen.reset();
    EXPECT_EQ(zLoadFile(nullptr, true), "");
    EXPECT_EQ(zSaveFile(nullptr, true), "");
    EXPECT_EQ(modChess.PGNPath, "/games/pgn");
}
