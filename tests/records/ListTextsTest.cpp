// The three looks of the list of games, and its words.
#include "records/ListTexts.h"

#include "records/HistoryLists.h"

#include <gmock/gmock.h>

using testing::ElementsAre;

namespace {

using enum ListAlignment;

struct Expected {
    std::string heading;
    int twips;
    ListAlignment alignment;
    int field;
};

void expectColumns(std::int16_t kind, const std::vector<Expected>& columns) {
    const ListLook& look = lookOf(kind);
    ASSERT_EQ(columns.size(), look.columns.size());
    for (std::size_t i = 0; i < columns.size(); ++i) {
        EXPECT_EQ(look.columns[i].heading, columns[i].heading) << i;
        EXPECT_EQ(look.columns[i].twips, columns[i].twips) << i;
        EXPECT_EQ(look.columns[i].alignment, columns[i].alignment) << i;
        EXPECT_EQ(look.columns[i].field, columns[i].field) << i;
    }
}

} // namespace

TEST(ListTexts, TheColumnsOfAHistory) {
    expectColumns(HistoryKindGames, {{"#", 330, Left, 0},
                                     {"R", 300, Centre, 1},
                                     {"Rat", 600, Centre, 3},
                                     {"C", 300, Centre, 2},
                                     {"vs", 600, Centre, 4},
                                     {"Opponent", 1590, Left, 6},
                                     {"Type", 1140, Left, 7},
                                     {"ECO", 510, Left, 8},
                                     {"End", 510, Left, 9},
                                     {"Date", 2280, Left, 10}});
}

TEST(ListTexts, TheColumnsOfAJournal) {
    expectColumns(HistoryKindJournal, {{"#", 330, Left, 0},
                                       {"White", 1590, Left, 5},
                                       {"Rat", 600, Centre, 3},
                                       {"Black", 1590, Left, 6},
                                       {"Rat", 600, Centre, 4},
                                       {"Type", 1140, Left, 7},
                                       {"ECO", 510, Left, 8},
                                       {"End", 510, Left, 9},
                                       {"Result", 1140, Centre, 1},
                                       {"", 150, Left, -1}});
}

TEST(ListTexts, TheColumnsOfStoredGames) {
    expectColumns(HistoryKindStored, {{"#", 330, Left, 0},
                                      {"C", 300, Centre, 2},
                                      {"Opponent", 1590, Left, 6},
                                      {"On", 510, Right, 4},
                                      {"Type", 1140, Left, 7},
                                      {"Str", 750, Centre, 1},
                                      {"M", 600, Left, 9},
                                      {"ECO", 510, Left, 8},
                                      {"Date", 2280, Left, 10},
                                      {"", 150, Left, -1}});
}

TEST(ListTexts, EachColumnHasAMeaningAndRoomForItsWidestText) {
    const auto textsOf = [](int kind, const char* ListColumn::*text) {
        std::vector<std::string> texts;
        for (const ListColumn& column : lookOf(static_cast<std::int16_t>(kind)).columns)
            texts.emplace_back(column.*text);
        return texts;
    };
    const std::string handle = "WilliamManaha";
    const std::string date = "Wed Aug 20, 22:42 03";
    EXPECT_THAT(textsOf(0, &ListColumn::meaning),
                ElementsAre("Number", "Result", "Rating", "Color", "Opponent's rating", "Opponent", "Type", "ECO",
                            "How it ended", "Date"));
    EXPECT_THAT(textsOf(0, &ListColumn::widest),
                ElementsAre("99", "+", "2000", "W", "2000", handle, "psu 99 99", "D99", "Mat", date));
    EXPECT_THAT(textsOf(1, &ListColumn::meaning),
                ElementsAre("Slot", "White", "White's rating", "Black", "Black's rating", "Type", "ECO", "How it ended",
                            "Result", ""));
    EXPECT_THAT(textsOf(1, &ListColumn::widest),
                ElementsAre("J", handle, "2000", handle, "2000", "psu 99 99", "D99", "Mat", "1/2-1/2", ""));
    EXPECT_THAT(textsOf(2, &ListColumn::meaning),
                ElementsAre("Number", "Color", "Opponent", "On line", "Type", "Strength", "Move", "ECO", "Date", ""));
    EXPECT_THAT(textsOf(2, &ListColumn::widest),
                ElementsAre("99", "W", handle, "  Y", "psu 99 99", "39-39", "W123", "D99", date, ""));
}

TEST(ListTexts, AnyOtherKindIsThatOfStoredGames) {
    for (const int kind : {2, 3, -1, 32767}) EXPECT_EQ(&lookOf(static_cast<std::int16_t>(kind)), &lookOf(2));
    EXPECT_NE(&lookOf(0), &lookOf(1));
    EXPECT_NE(&lookOf(1), &lookOf(2));
}

TEST(ListTexts, EachListHasItsCommandTitleAndWordsForNone) {
    std::vector<std::string> texts;
    for (const int kind : {0, 1, 2}) {
        const ListLook& look = lookOf(static_cast<std::int16_t>(kind));
        for (const char* text : {look.command, look.title, look.empty}) texts.emplace_back(text);
    }
    EXPECT_THAT(texts,
                ElementsAre("History", "History for ", " has played no games.", "Journal", "Journal for ",
                            " has no games in the journal.", "Stored", "Stored games for ", " has no stored games."));
}

TEST(ListTexts, AddShowsForAHistoryAndRemoveForAJournal) {
    EXPECT_TRUE(lookOf(0).addsToJournal && !lookOf(0).removes);
    EXPECT_TRUE(!lookOf(1).addsToJournal && lookOf(1).removes);
    EXPECT_TRUE(!lookOf(2).addsToJournal && !lookOf(2).removes);
}

TEST(ListTexts, SignsAreSpokenAsWordsInTheirOwnColumnsAlone) {
    struct Case {
        int kind;
        int column;
        const char* text;
        const char* spoken;
    };
    const Case cases[] = {{0, 0, " 5", "5"},
                          {0, 1, "+", "win"},
                          {0, 1, "-", "loss"},
                          {0, 1, "=", "draw"},
                          {0, 3, "W", "white"},
                          {0, 3, "B", "black"},
                          {0, 5, "W      ", "W"},
                          {0, 8, "  -", "-"},
                          {1, 8, "1-0\r\n", "1-0\r\n"},
                          {1, 1, "B", "B"},
                          {2, 1, "B", "black"},
                          {2, 3, "  Y", "on line"},
                          {2, 3, "  N", "not on line"},
                          {2, 6, "W3  ", "W3"}};
    for (const Case& each : cases) {
        EXPECT_EQ(spokenCell(lookOf(static_cast<std::int16_t>(each.kind)), each.column, each.text), each.spoken)
            << each.kind << " " << each.column;
    }
}
