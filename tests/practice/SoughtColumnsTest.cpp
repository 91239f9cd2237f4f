// Tests of the rows of "sought" by the columns in which clients read them, and beside recorded rows.
#include "common/RecordedText.h"
#include "practice/games/Seeks.h"
#include "practice/text/Text.h"

#include <gtest/gtest.h>

#include <optional>

namespace practice {
namespace {

// The columns that a client reads, restated here; positions count from 1 and lines end with CR LF.
struct Columns {
    std::string line;

    std::string text(std::size_t from, std::size_t length) const { return line.substr(from - 1, length); }
    bool blank(std::size_t at) const { return text(at, 1) == " "; }
    // The digits behind blanks at the front; 0 without any.
    int figure(std::size_t from, std::size_t length) const {
        const std::string cut = text(from, length);
        const auto begin = std::min(cut.find_first_not_of(' '), cut.size());
        int value = 0;
        for (std::size_t at = begin; at < cut.size() && cut[at] >= '0' && cut[at] <= '9'; ++at)
            value = value * 10 + (cut[at] - '0');
        return value;
    }
};

struct ReadAd {
    int number = 0;
    int rating = 0;
    std::string name;
    int time = 0;
    int increment = 0;
    std::string rated;
    std::string type;
    std::string range;
};

std::optional<ReadAd> readAd(const std::string& row) {
    const Columns columns{row + "\r\n"};
    if (columns.line.size() < 71 || columns.line.size() >= 80) return std::nullopt;
    std::size_t d = columns.blank(10) ? 1 : 0;
    ReadAd ad;
    ad.number = columns.figure(1, 3);
    const std::string rating = columns.text(5, 4);
    ad.rating = rating == "++++" || rating == "----" ? -1 : columns.figure(5, 4);
    ad.name = trim(columns.text(10 + d, 18));
    if (ad.name.size() > 17) d = ad.name.size() + d - 17;
    ad.time = columns.figure(28 + d, 3);
    ad.increment = columns.figure(32 + d, 3);
    ad.rated = trim(columns.text(36 + d, 8));
    ad.type = trim(columns.text(44 + d, 20));
    if (lower(ad.type) == "untimed") ad.time = 240;
    const std::string range = columns.line.substr(64 + d - 1);
    ad.range = range.substr(0, range.size() - 2);
    const std::string number = std::to_string(ad.number);
    const bool good = number >= "0" && number <= "999" && ad.rating != 0 && (ad.time != 0 || ad.increment != 0) &&
                      columns.blank(31 + d) && columns.blank(35 + d);
    return good ? std::optional<ReadAd>(ad) : std::nullopt;
}

// The shorter test, by which such lines are kept off a screen; it has no step for long names.
bool looksLikeAd(const std::string& row) {
    const Columns columns{row + "\r\n"};
    if (columns.line.size() < 71 || columns.line.size() >= 80) return false;
    const std::size_t d = columns.blank(10) ? 1 : 0;
    const std::string rating = columns.text(5, 4);
    const bool rated = rating == "++++" || rating == "----" || columns.figure(5, 4) != 0;
    return rated && (columns.figure(28 + d, 3) != 0 || columns.figure(32 + d, 3) != 0) && columns.blank(31 + d) &&
           columns.blank(35 + d);
}

Seek seekOf(const std::string& owner, const std::string& title, const std::string& words) {
    const TermsReading reading = readTerms(practice::words(words), {});
    EXPECT_EQ(reading.error, "") << words;
    return {owner, title, "1711", reading.terms};
}

// What an ad's name is to a client: marks go where 18 columns do not hold them.
std::string nameExpected(const Seek& seek) {
    return seek.owner.size() + seek.title.size() > 18 ? seek.owner : seek.owner + seek.title;
}

const std::vector<std::string> kinds{
    "1 0 rated",          "0 1 unrated",       "5 5 unrated white",     "15 10 rated black 800-1300 m f",
    "546 999 rated",      "0 0 unrated",       "3 0 crazyhouse rated",  "2 12 wild fr unrated formula",
    "1 2 rated 9999-0 f", "10 0 wild 2 black", "45 45 rated 2000-9999",
};

void expectRead(const Seek& seek, int number) {
    const std::string row = soughtRow(number, seek);
    const auto read = readAd(row);
    ASSERT_TRUE(read) << row;
    const Terms& terms = seek.terms;
    const bool untimed = terms.minutes == 0 && terms.increment == 0;
    EXPECT_EQ(read->number, number) << row;
    EXPECT_EQ(read->name, nameExpected(seek)) << row;
    EXPECT_EQ(read->time, untimed ? 240 : terms.minutes) << row;
    EXPECT_EQ(read->increment, terms.increment) << row;
    EXPECT_EQ(read->rated, ratedText(terms)) << row;
    EXPECT_TRUE(read->type.starts_with(kindText(terms))) << row;
    EXPECT_NE(read->type.find(colourText(terms)), std::string::npos) << row;
    EXPECT_NE(read->range.find(std::to_string(terms.lowest) + "-" + std::to_string(terms.highest)), std::string::npos)
        << row << "|" << read->range;
}

TEST(SoughtColumns, AdsOfAllKindsAndOfHandlesOfAnyLengthAreRead) {
    for (const std::string& words : kinds) {
        for (std::size_t length = 3; length <= 17; ++length) {
            for (const char* title : {"", "(C)", "(U)"}) {
                for (const int number : {1, 42, 999})
                    expectRead(seekOf(std::string(length, 'a'), title, words), number);
            }
        }
    }
}

TEST(SoughtColumns, AllRatingsButZeroAreRead) {
    Seek seek = seekOf("Ada", "", "5 0 unrated");
    for (const auto& [rating, value] : std::vector<std::pair<std::string, int>>{
             {"1711", 1711}, {" 886", 886}, {"   1", 1}, {"9999", 9999}, {"++++", -1}, {"----", -1}}) {
        seek.rating = rating;
        const auto read = readAd(soughtRow(7, seek));
        ASSERT_TRUE(read) << rating;
        EXPECT_EQ(read->rating, value);
    }
}

TEST(SoughtColumns, AnUntimedAdWithAColourIsNotRead) {
    // The type is "untimed   [white]" then, which is no untimed game to clients: time 0 and increment 0 rule it out.
    EXPECT_FALSE(readAd(soughtRow(1, seekOf("Ada", "", "0 0 unrated white"))));
    EXPECT_FALSE(readAd(soughtRow(1, seekOf("Ada", "", "0 0 crazyhouse unrated")))) << "nor does it say untimed";
}

TEST(SoughtColumns, EighteenColumnsOfNameMoveTheRestByOne) {
    const Seek shorter = seekOf("Thunderclapper", "(C)", "5 0 rated");
    const Seek longer = seekOf("Counterbalancer", "(C)", "5 0 rated");
    EXPECT_EQ(soughtRow(9, shorter), "  9 1711 Thunderclapper(C)   5   0 rated   blitz                  0-9999 ");
    EXPECT_EQ(soughtRow(9, longer), "  9 1711 Counterbalancer(C)   5   0 rated   blitz                  0-9999 ");
    EXPECT_TRUE(readAd(soughtRow(9, longer)));
}

TEST(SoughtColumns, AHandleThatHasNoRoomForItsMarkStandsWithoutIt) {
    EXPECT_TRUE(
        soughtRow(9, seekOf("Weatherforecaster", "(U)", "5 0 unrated")).starts_with("  9 1711 Weatherforecaster   5 "));
}

TEST(SoughtColumns, TheShorterTestKnowsAllButNamesOfEighteenColumns) {
    for (const char* words : {"5 0 rated", "15 10 unrated white", "3 0 suicide", "0 1 unrated"}) {
        for (std::size_t length = 3; length <= 17; ++length) {
            const Seek seek = seekOf(std::string(length, 'a'), "(C)", words);
            EXPECT_EQ(looksLikeAd(soughtRow(5, seek)), length != 15) << soughtRow(5, seek);
        }
    }
    EXPECT_FALSE(looksLikeAd(soughtRow(5, seekOf("Ada", "", "0 0 unrated")))) << "it does not ask for untimed games";
}

TEST(SoughtColumns, AnnouncementsAreNoRows) {
    for (const char* words : {"5 0 rated", "15 10 unrated white 800-1300 m f", "3 0 wild fr"}) {
        const Seek seek = seekOf("Counterbalancer", "(C)", words);
        EXPECT_FALSE(readAd(announcement(127, seek))) << announcement(127, seek);
    }
}

// " 42 1165 whogivesafork      15  10 rated   standard             800-1300 " taken to pieces.
struct Recorded {
    int number = 0;
    Seek seek;
};

Recorded recordedRow(const std::string& line) {
    const auto parts = words(line);
    Recorded result{number(parts[0]).value_or(0), {parts[2], "", padLeft(parts[1], 4), {}}};
    if (const auto mark = parts[2].find('('); mark != std::string::npos) {
        result.seek.owner = parts[2].substr(0, mark);
        result.seek.title = parts[2].substr(mark);
    }
    Terms& terms = result.seek.terms;
    terms.minutes = number(parts[3]).value_or(-1);
    terms.increment = number(parts[4]).value_or(-1);
    terms.rated = parts[5] == "rated";
    if (gameKind(terms.minutes, terms.increment) != parts[6]) terms.variant = parts[6];
    const auto dash = parts[7].find('-');
    terms.lowest = number(parts[7].substr(0, dash)).value_or(-1);
    terms.highest = number(parts[7].substr(dash + 1)).value_or(-1);
    const std::string marks = parts.size() > 8 ? parts[8] : "";
    terms.manual = marks.find('m') != std::string::npos;
    terms.formula = marks.find('f') != std::string::npos;
    return result;
}

TEST(SoughtColumns, TheRowsAreTheRecordedOnes) {
    SeekTable table;
    int compared = 0;
    std::string end;
    for (const std::string& line : recordedLines("text/sought.txt")) {
        if (line.find('-') == std::string::npos) {
            end = line;
            continue;
        }
        const Recorded recorded = recordedRow(line);
        EXPECT_EQ(soughtRow(recorded.number, recorded.seek), line);
        table.open[recorded.number] = recorded.seek;
        ++compared;
    }
    EXPECT_EQ(compared, 41);
    EXPECT_EQ(soughtTable(table).substr(soughtTable(table).rfind('\n') + 1), end);
}

// mrbishop (1701) seeking 30 15 rated standard [white] m f ("play 10" to respond)
Recorded recordedAnnouncement(const std::string& line) {
    const auto open = line.find(" (");
    const auto close = line.find(") seeking ");
    const auto tail = line.find(" (\"play ");
    const auto quote = line.find('"', tail + 3);
    Recorded result{number(line.substr(tail + 8, quote - tail - 8)).value_or(0), {}};
    const std::string name = line.substr(0, open);
    const auto mark = std::min(name.find('('), name.size());
    result.seek = {name.substr(0, mark), name.substr(mark), line.substr(open + 2, close - open - 2), {}};
    std::string text = line.substr(close + 10, tail - close - 10);
    for (const char* colour : {"[white]", "[black]"}) {
        if (const auto at = text.find(colour); at != std::string::npos) text = text.erase(at, 1).erase(at + 5, 1);
    }
    result.seek.terms = readTerms(words(text), {}).terms;
    return result;
}

TEST(SoughtColumns, TheAnnouncementsAreTheRecordedOnes) {
    int compared = 0;
    for (const std::string& line : recordedLines("text/seek_announcements.txt")) {
        if (line.find(" seeking ") == std::string::npos) continue;
        const Recorded recorded = recordedAnnouncement(line);
        EXPECT_EQ(announcement(recorded.number, recorded.seek), line);
        ++compared;
    }
    EXPECT_EQ(compared, 11);
}

} // namespace
} // namespace practice
