// What the window of listed games says of each kind of list.
#include "records/ListTexts.h"

#include "common/Text.h"
#include "records/HistoryLists.h"

namespace {

using enum ListAlignment;

constexpr const char* LongHandle = "WilliamManaha";
constexpr const char* LongDate = "Wed Aug 20, 22:42 03";

constexpr ListLook Games{"History",
                         "History for ",
                         " has played no games.",
                         {{
                             {"#", 330, Left, 0, "Number", "99"},
                             {"R", 300, Centre, 1, "Result", "+"},
                             {"Rat", 600, Centre, 3, "Rating", "2000"},
                             {"C", 300, Centre, 2, "Color", "W"},
                             {"vs", 600, Centre, 4, "Opponent's rating", "2000"},
                             {"Opponent", 1590, Left, 6, "Opponent", LongHandle},
                             {"Type", 1140, Left, 7, "Type", "psu 99 99"},
                             {"ECO", 510, Left, 8, "ECO", "D99"},
                             {"End", 510, Left, 9, "How it ended", "Mat"},
                             {"Date", 2280, Left, 10, "Date", LongDate},
                         }},
                         true,
                         false};

constexpr ListLook Journal{"Journal",
                           "Journal for ",
                           " has no games in the journal.",
                           {{
                               {"#", 330, Left, 0, "Slot", "J"},
                               {"White", 1590, Left, 5, "White", LongHandle},
                               {"Rat", 600, Centre, 3, "White's rating", "2000"},
                               {"Black", 1590, Left, 6, "Black", LongHandle},
                               {"Rat", 600, Centre, 4, "Black's rating", "2000"},
                               {"Type", 1140, Left, 7, "Type", "psu 99 99"},
                               {"ECO", 510, Left, 8, "ECO", "D99"},
                               {"End", 510, Left, 9, "How it ended", "Mat"},
                               {"Result", 1140, Centre, 1, "Result", "1/2-1/2"},
                               {"", 150, Left, -1, "", ""},
                           }},
                           false,
                           true};

constexpr ListLook Stored{"Stored",
                          "Stored games for ",
                          " has no stored games.",
                          {{
                              {"#", 330, Left, 0, "Number", "99"},
                              {"C", 300, Centre, 2, "Color", "W"},
                              {"Opponent", 1590, Left, 6, "Opponent", LongHandle},
                              {"On", 510, Right, 4, "On line", "  Y"},
                              {"Type", 1140, Left, 7, "Type", "psu 99 99"},
                              {"Str", 750, Centre, 1, "Strength", "39-39"},
                              {"M", 600, Left, 9, "Move", "W123"},
                              {"ECO", 510, Left, 8, "ECO", "D99"},
                              {"Date", 2280, Left, 10, "Date", LongDate},
                              {"", 150, Left, -1, "", ""},
                          }},
                          false,
                          false};

struct Word {
    const ListLook* look; // null for any
    std::string_view meaning;
    std::string_view sign;
    const char* word;
};

constexpr std::array<Word, 7> Words{{
    {&Games, "Result", "+", "win"},
    {&Games, "Result", "-", "loss"},
    {&Games, "Result", "=", "draw"},
    {nullptr, "Color", "W", "white"},
    {nullptr, "Color", "B", "black"},
    {&Stored, "On line", "Y", "on line"},
    {&Stored, "On line", "N", "not on line"},
}};

} // namespace

const ListLook& lookOf(std::int16_t historyKind) {
    if (historyKind == HistoryKindGames) return Games;
    if (historyKind == HistoryKindJournal) return Journal;
    return Stored;
}

std::string spokenCell(const ListLook& look, int column, std::string_view text) {
    const std::string_view sign = trim(text);
    const std::string_view meaning = look.columns.at(static_cast<std::size_t>(column)).meaning;
    for (const Word& word : Words) {
        const bool here = word.look == nullptr || word.look == &look;
        if (here && word.meaning == meaning && word.sign == sign) return word.word;
    }
    return std::string(sign);
}
