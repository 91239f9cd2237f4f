// Recorded answers to "history", "journal" and "stored" of three servers, whose columns are not all alike.
#include "common/RecordedText.h"
#include "common/modChess.h"
#include "records/ListCapture.h"
#include "session/ServerLines.h"

#include <algorithm>

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

using Reader = bool (*)(HistoryLists& lists, const std::string& line);
using Rows = std::vector<std::string>;

// Fields 0 to 10 with bars between them.
std::string joined(const HistoryRow& row) {
    std::string text;
    for (const std::string& field : row) text += (text.empty() ? "" : "|") + field;
    return text;
}

struct Answer {
    std::string handle;
    Rows rows;
    bool ended = false;
};

Answer read(Reader reader, const std::string& text) {
    ServerLines lines;
    HistoryLists lists;
    Answer answer;
    const int count = lines.zParse(text);
    for (int i = 0; i < count && !answer.ended; ++i) answer.ended = reader(lists, lines[i]);
    answer.handle = lists.HistHandle;
    for (int i = 0; i < lists.HistCount; ++i) answer.rows.push_back(joined(lists.HistRows[i]));
    return answer;
}

struct RecordedLists : testing::Test {
    RecordedLists() {
        modChess = {};
        modChess.gPrompt = "fics% ";
    }
    ~RecordedLists() override { modChess = {}; }

    // The answers that hold `title`, from there up to the prompt.
    static std::vector<Answer> answers(const std::string& name, Reader reader, const std::string& title) {
        const std::string text = recordedText(name);
        std::vector<Answer> all;
        for (auto at = text.find(title); at != text.npos; at = text.find(title, at + 1)) {
            const auto prompt = text.find(modChess.gPrompt, at);
            all.push_back(read(reader, text.substr(at, prompt + modChess.gPrompt.size() - at)));
        }
        EXPECT_TRUE(std::ranges::all_of(all, &Answer::ended)) << name;
        return all;
    }
    // Of a published excerpt: an empty line stands where the prompt was.
    static std::vector<Answer> excerpts(const std::string& name, Reader reader, const std::string& title) {
        const std::string text = recordedText("text/" + name);
        std::vector<Answer> all;
        for (auto at = text.find(title); at != text.npos; at = text.find(title, at + 1)) {
            all.push_back(read(reader, text.substr(at, text.find("\n\n", at) - at)));
        }
        return all;
    }
};

} // namespace

TEST_F(RecordedLists, ThePublicServersHistories) {
    const std::vector<Answer> all = excerpts("history.txt", zHistoryLines, "History for ");
    ASSERT_THAT(all, SizeIs(2));
    EXPECT_EQ(all[0].handle, "CyberTick");
    EXPECT_THAT(all[0].rows, ElementsAre(" 5|+|W|1735|1059||cesarCR      |br  5  12|C53|Res|Thu Oct 24, 16:32 02",
                                         " 6|-|B|   0|   0||TibetianTick |uu  0   0|B00|Res|Sat Nov  2, 16:23 02"));
    EXPECT_EQ(all[1].handle, "TibetianTick");
    EXPECT_THAT(all[1].rows, ElementsAre("65|+|B|1677|1595||SacredVision |sr 30  30|B07|Res|Sat Aug 16, 19:15 03",
                                         "66|-|W|1124|1260||WilliamManaha|br  5   0|B07|Fla|Sat Aug 16, 22:08 03",
                                         "67|-|B|1119|1265||WilliamManaha|br  5   0|A48|Res|Sat Aug 16, 22:13 03",
                                         "68|-|W|1112|1153||PDU          |br  5   0|A82|Fla|Sun Aug 17, 12:25 03",
                                         "69|+|B|   0|   0||yara         |xu  5   0|---|Exp|Sun Aug 17, 14:27 03",
                                         "70|-|W|1101| 999||mindfreak    |br  5   0|B00|Fla|Wed Aug 20, 22:25 03",
                                         "71|+|B|1107| 993||mindfreak    |br  5   0|A01|Mat|Wed Aug 20, 22:33 03",
                                         "72|-|W|1101|1197||Englishteache|br  5   0|C34|Res|Wed Aug 20, 22:42 03",
                                         "73|-|B|1095|1203||Englishteache|br  5   0|B30|Fla|Wed Aug 20, 22:50 03",
                                         "74|=|W|1683|1821||kethury      |sr 30  30|B22|Agr|Wed Aug 20, 23:59 03"));
}

TEST_F(RecordedLists, ThePublicServersJournalAndHistoryAndItsNarrowerStoredGames) {
    const char* name = "stored_history_journal.txt";
    const auto journal = excerpts(name, zJournalLines, "Journal for ");
    ASSERT_THAT(journal, SizeIs(1));
    EXPECT_EQ(journal[0].handle, "User");
    EXPECT_THAT(journal[0].rows, ElementsAre("A|1/2-1/2||2291|2050|tentacle     |larsa        |lr  1   2|D35|Rep|",
                                             "B|0-1\r\n||2045|2296|larsa        |tentacle     |lr  1   2|A46|Res|"));
    const auto history = excerpts(name, zHistoryLines, "History for ");
    ASSERT_THAT(history, SizeIs(1));
    EXPECT_THAT(history[0].rows, ElementsAre("66|-|B|1735|   0||GuestHKZX    |bu  3   0|B23|Res|Sun Dec  6, 15:50 15",
                                             "67|-|B|1703|   0||GuestQWML    |lu  1   0|B07|Fla|Sun Dec  6, 15:53 15"));
    const auto stored = excerpts(name, zStoredLines, "Stored games for ");
    ASSERT_THAT(stored, SizeIs(1));
    EXPECT_EQ(stored[0].handle, "User");
    EXPECT_THAT(stored[0].rows, IsEmpty()) << "their bracket stands two columns to the left";
}

TEST_F(RecordedLists, AServerThatWritesItsDatesInAnotherForm) {
    const auto history = answers("server-a/51_history_stored.raw", zHistoryLines, "History for ");
    ASSERT_THAT(history, SizeIs(2));
    EXPECT_EQ(history[0].handle, "Carla");
    EXPECT_THAT(history[0].rows, ElementsAre(" 0|+|B|----|----||Detlef       |nr  3   2|C90|Res|2026-11-22 00:50  ",
                                             " 1|=|B|----|----||Detlef       |nu 15   5|D53|Agr|2026-11-22 00:50  ",
                                             " 2|+|B|----|----||Detlef       |nr  1   0|A00|Mat|2026-11-22 00:50  ",
                                             " 3|-|B|1882|1558||Detlef       |nr  5   0|B01|Res|2026-11-22 00:50  ",
                                             " 4|-|B|----|----||Detlef       |zu  5   0|B01|Res|2026-11-22 00:50  "));
    EXPECT_EQ(history[1].handle, "Detlef");
    EXPECT_THAT(history[1].rows, ElementsAre(" 0|-|W|----|----||Carla        |nr  3   2|C90|Res|2026-11-22 00:50  ",
                                             " 1|=|W|----|----||Carla        |nu 15   5|D53|Agr|2026-11-22 00:50  ",
                                             " 2|-|W|----|----||Carla        |nr  1   0|A00|Mat|2026-11-22 00:50  ",
                                             " 3|+|W|1558|1882||Carla        |nr  5   0|B01|Res|2026-11-22 00:50  ",
                                             " 4|+|W|----|----||Carla        |zu  5   0|B01|Res|2026-11-22 00:50  "));
    const auto stored = answers("server-a/51_history_stored.raw", zStoredLines, "Stored games for ");
    ASSERT_THAT(stored, SizeIs(2));
    EXPECT_THAT(stored[0].rows, ElementsAre(" 1|38-38|B||  Y||Detlef       | u 20  20|B90|W6  |2026-11-22 00:51  "));
    EXPECT_THAT(stored[1].rows, ElementsAre(" 1|38-38|W||  Y||Carla        | u 20  20|B90|W6  |2026-11-22 00:51  ",
                                            " 2|38-39|W||  Y||admin        | u 10   0|C54|B6  |2026-11-22 00:51  "));
}

TEST_F(RecordedLists, AServerWhoseYearIsCut) {
    const auto history = answers("server-b/51_history_examine.raw", zHistoryLines, "History for ");
    ASSERT_THAT(history, SizeIs(3));
    EXPECT_THAT(history[0].rows,
                ElementsAre(" 0|+|B|   0|   0||Detlef       |bu  5   3|C69|Res|Sun Nov 22 00:03: \r\n",
                            " 1|-|W|   0|   0||Detlef       |bu  5   3|C90|Res|Sun Nov 22 00:17: \r\n",
                            " 2|+|B|1882|1558||Detlef       |br  3   2|C90|Res|Sun Nov 22 00:25: \r\n",
                            " 3|=|B|   0|   0||Detlef       |su 15   5|D53|Agr|Sun Nov 22 00:25: \r\n",
                            " 4|+|B|1882|1558||Detlef       |lr  1   0|D31|Mat|Sun Nov 22 00:25: \r\n",
                            " 5|-|B|1653|1787||Detlef       |br  5   0|B01|Res|Sun Nov 22 00:26: \r\n",
                            " 6|+|B|   0|   0||Detlef       |su 20  20|B90|Res|Sun Nov 22 00:26: \r\n"));
    EXPECT_THAT(history[1].rows,
                ElementsAre(" 0|-|W|   0|   0||Carla        |bu  5   3|C69|Res|Sun Nov 22 00:03: \r\n",
                            " 1|+|B|   0|   0||Carla        |bu  5   3|C90|Res|Sun Nov 22 00:17: \r\n",
                            " 2|-|W|1558|1882||Carla        |br  3   2|C90|Res|Sun Nov 22 00:25: \r\n",
                            " 3|=|W|   0|   0||Carla        |su 15   5|D53|Agr|Sun Nov 22 00:25: \r\n",
                            " 4|-|W|1558|1882||Carla        |lr  1   0|D31|Mat|Sun Nov 22 00:25: \r\n",
                            " 5|+|W|1787|1653||Carla        |br  5   0|B01|Res|Sun Nov 22 00:26: \r\n",
                            " 6|-|W|   0|   0||Carla        |su 20  20|B90|Res|Sun Nov 22 00:26: \r\n"));
    EXPECT_EQ(history[2].handle, "Anders");
    EXPECT_THAT(history[2].rows,
                ElementsAre(" 0|-|W|   0|   0||Berta        |nu 20   3|B01|Res|Sun Nov 22 00:16: \r\n",
                            " 1|+|B|1882|1558||Berta        |br  2  12|A00|Mat|Sun Nov 22 00:20: \r\n",
                            " 2|-|W|   0|   0||Berta        |wu  5   5|---|Res|Sun Nov 22 00:22: \r\n"));
}

TEST_F(RecordedLists, AServerWithOtherJournalsAndStoredGamesHasNoRows) {
    for (const char* name : {"server-b/51_history_examine.raw", "server-b/52_journal_stored.raw"}) {
        const auto journals = answers(name, zJournalLines, "Journal for ");
        EXPECT_FALSE(journals.empty()) << name;
        const auto stored = answers(name, zStoredLines, "Stored games for ");
        EXPECT_FALSE(stored.empty()) << name;
        for (const Answer& each : journals) EXPECT_THAT(each.rows, IsEmpty()) << "its slots are letters";
        for (const Answer& each : stored) EXPECT_THAT(each.rows, IsEmpty()) << "its lines are short";
    }
}
