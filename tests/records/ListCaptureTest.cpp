// How the three lists of games are read: rows by their columns, titles, and the end.
#include "records/ListCapture.h"

#include "common/modChess.h"
#include "records/ListLines.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

using Reader = bool (*)(HistoryLists& lists, const std::string& line);

struct ListCapture : testing::Test {
    ListCapture() {
        modChess = {};
        modChess.gPrompt = "fics% ";
        lists.handleRead = [this](const std::string& title) {
            titles.push_back(title);
            toldHandle = lists.HistHandle;
        };
    }
    ~ListCapture() override { modChess = {}; }

    HistoryLists lists;
    std::vector<std::string> titles;
    std::string toldHandle; // that was there as the latest title was told of
};

struct Kind {
    Reader read;
    std::string row;
    std::string title;
    std::size_t shortBelow;
};

std::vector<Kind> kinds() {
    return {{zHistoryLines, GameRow, "History for ", 71},
            {zJournalLines, SlotRow, "Journal for ", 73},
            {zStoredLines, StoredRow, "Stored games for ", 71}};
}

} // namespace

TEST_F(ListCapture, AHistorysFieldsByTheirColumns) {
    EXPECT_THAT(fieldsOf(zHistoryLines, GameRow), ElementsAre(" 5", "+", "W", "1735", "1059", "", "cesarCR      ",
                                                              "br  5  12", "C53", "Res", "Thu Oct 24, 16:32 02"));
}

TEST_F(ListCapture, AJournalsFieldsByTheirColumnsTheLastWithItsLineEnd) {
    EXPECT_THAT(fieldsOf(zJournalLines, SlotRow), ElementsAre("A", "1/2-1/2", "", "2291", "2050", "tentacle     ",
                                                              "larsa        ", "lr  1   2", "D35", "Rep", ""));
    const std::string lost = SlotRow.substr(0, 70) + "0-1\r\n";
    EXPECT_EQ(fieldsOf(zJournalLines, lost)[1], "0-1\r\n");
}

TEST_F(ListCapture, AStoredGamesFieldsByTheirColumns) {
    EXPECT_THAT(fieldsOf(zStoredLines, StoredRow), ElementsAre(" 2", "39-39", "W", "", "  Y", "", "PyChess      ",
                                                               "su  2  12", "C20", "W3  ", "Sun Jan 11, 17:40 09"));
}

TEST_F(ListCapture, TheSlotsLetterIsItsNumberBehindTheAt) {
    const std::pair<const char*, std::string> slots[] = {{"01", "A"}, {"10", "J"}, {" 2", "B"},   {"26", "Z"},
                                                         {"xx", "@"}, {"-1", "?"}, {"99", "\xA3"}};
    for (const auto& [digits, letter] : slots) {
        EXPECT_EQ(fieldsOf(zJournalLines, "%" + std::string(digits) + SlotRow.substr(3))[0], letter) << digits;
    }
}

TEST_F(ListCapture, ARowNeedsEachOfItsSeparators) {
    const std::vector<std::pair<Kind, std::vector<std::size_t>>> separators{
        {kinds()[0], {3, 4, 33, 44}}, {kinds()[1], {1, 4, 5, 50, 61}}, {kinds()[2], {3, 4, 25, 36}}};
    for (const auto& [kind, columns] : separators) {
        for (const std::size_t column : columns) {
            std::string line = kind.row;
            line[column - 1] = 'x';
            EXPECT_THAT(fieldsOf(kind.read, line), IsEmpty()) << line;
        }
    }
}

TEST_F(ListCapture, ALineBelowItsLengthIsNoRow) {
    for (const Kind& kind : kinds()) {
        EXPECT_THAT(fieldsOf(kind.read, kind.row.substr(0, kind.shortBelow - 1)), IsEmpty()) << kind.title;
        EXPECT_THAT(fieldsOf(kind.read, kind.row.substr(0, kind.shortBelow)), testing::SizeIs(11)) << kind.title;
    }
}

TEST_F(ListCapture, AShortLineWithATitleGivesTheHandle) {
    for (const Kind& kind : kinds()) {
        lists.HistHandle.clear();
        EXPECT_FALSE(kind.read(lists, kind.title + "Anders:\r\n"));
        EXPECT_EQ(lists.HistHandle, "Anders");
    }
    EXPECT_THAT(titles, ElementsAre("History for ", "Journal for ", "Stored games for "));
}

TEST_F(ListCapture, AShortLineOfARowsMakeIsLookedAtForATitle) {
    for (const Kind& kind : kinds()) {
        lists.HistHandle.clear();
        std::string line = kind.title + "Anders:";
        line.resize(kind.shortBelow - 1, ' ');
        EXPECT_FALSE(kind.read(lists, line));
        EXPECT_EQ(lists.HistHandle, "Anders") << kind.title;
        line += ' ';
        lists.HistHandle.clear();
        EXPECT_FALSE(kind.read(lists, line));
        EXPECT_EQ(lists.HistHandle, "") << "a long line has none";
    }
}

TEST_F(ListCapture, EachListHasItsOwnTitle) {
    zHistoryLines(lists, "Journal for Anders:\r\n");
    zJournalLines(lists, "History for Anders:\r\n");
    zStoredLines(lists, "History for Anders:\r\n");
    EXPECT_EQ(lists.HistHandle, "");
    EXPECT_THAT(titles, IsEmpty());
}

TEST_F(ListCapture, OnlyALineThatIsThePromptEndsTheAnswer) {
    for (const Kind& kind : kinds()) {
        for (const char* other : {"fics% \r\n", "fics%", "\r\n", "fics% fics% ", " fics% "}) {
            EXPECT_FALSE(kind.read(lists, other)) << other;
        }
        EXPECT_FALSE(kind.read(lists, kind.row));
        EXPECT_TRUE(kind.read(lists, "fics% "));
    }
}

TEST_F(ListCapture, APromptOfARowsLengthNeverEndsTheAnswer) {
    for (const Kind& kind : kinds()) {
        modChess.gPrompt = std::string(kind.shortBelow - 1, '%');
        EXPECT_TRUE(kind.read(lists, modChess.gPrompt));
        modChess.gPrompt += '%';
        EXPECT_FALSE(kind.read(lists, modChess.gPrompt));
    }
}

TEST_F(ListCapture, TheFirstTenRowsAreKeptAndThePromptStillEndsTheAnswer) {
    for (const Kind& kind : kinds()) {
        lists.HistCount = 0;
        for (int number = 1; number <= 12; ++number) {
            const std::string row =
                kind.row[0] == '%' ? "%" + numbered(number, kind.row.substr(1)) : numbered(number, kind.row);
            EXPECT_FALSE(kind.read(lists, row));
        }
        EXPECT_EQ(lists.HistCount, 10);
        EXPECT_EQ(lists.HistRows[9][0], kind.row[0] == '%' ? "J" : "10");
        EXPECT_TRUE(kind.read(lists, "fics% "));
    }
}

TEST_F(ListCapture, FieldsThatAListDoesNotWriteKeepWhatTheyHeld) {
    zJournalLines(lists, SlotRow);
    lists.HistCount = 0;
    zHistoryLines(lists, GameRow);
    EXPECT_EQ(lists.HistRows[0][5], "tentacle     ");
    EXPECT_EQ(lists.HistRows[0][6], "cesarCR      ");
    lists.HistCount = 0;
    zJournalLines(lists, SlotRow);
    EXPECT_EQ(lists.HistRows[0][2], "W");
    EXPECT_EQ(lists.HistRows[0][10], "Thu Oct 24, 16:32 02");
}

TEST_F(ListCapture, AHandleStandsBetweenTheTitleAndTheFirstColonOfTheLine) {
    struct Case {
        const char* line;
        const char* handle; // null: nothing changes
    };
    const Case cases[] = {{"History for Anders:\r\n", "Anders"},
                          {"fics% History for Anders:", "Anders"},
                          {"History for A B: or C:", "A B"},
                          {"History for  Anders :", " Anders "},
                          {"12:30 History for Anders:", nullptr},
                          {": History for Anders:", nullptr},
                          {"History for Anders\r\n", nullptr},
                          {"History for :\r\n", nullptr},
                          {"History for ", nullptr},
                          {"history for Anders:\r\n", nullptr},
                          {"Anders has no history games.\r\n", nullptr},
                          {"", nullptr}};
    for (const Case& each : cases) {
        lists.HistHandle = "before";
        titles.clear();
        zCheckHistHandle(lists, "History for ", each.line);
        EXPECT_EQ(lists.HistHandle, each.handle ? each.handle : "before") << each.line;
        EXPECT_EQ(titles.size(), each.handle ? 1U : 0U) << each.line;
        if (each.handle) {
            EXPECT_EQ(toldHandle, each.handle) << "it is there before anybody is told";
        }
    }
}
