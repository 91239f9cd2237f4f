// Recorded answers of two servers to "variables" and "finger", read field by field.
#include "common/RecordedText.h"
#include "common/modChess.h"
#include "panels/FingerNotes.h"
#include "panels/ServerVars.h"
#include "session/ServerLines.h"

#include <gmock/gmock.h>

using testing::ElementsAre;

namespace {

// "0=2 1=12 ..." of what is not 0.
template <typename Values>
std::string notZero(const Values& values) {
    std::string text;
    int index = 0;
    for (const std::int16_t value : values) {
        if (value != 0) text += (text.empty() ? "" : " ") + std::to_string(index) + "=" + std::to_string(value);
        ++index;
    }
    return text;
}

struct RecordedPanels : testing::Test {
    RecordedPanels() {
        modChess = {};
        modChess.gPrompt = "fics% ";
    }
    ~RecordedPanels() override { modChess = {}; }

    // Whether the lines have an end for `reader`.
    static bool read(const std::string& text, bool (*reader)(std::string_view line)) {
        static ServerLines lines;
        const int count = lines.zParse(text);
        for (int i = 0; i < count; ++i) {
            if (reader(lines[i])) return true;
        }
        return false;
    }
    // Numbers, flags and prompt of each answer; one that does not end is "no end".
    static std::vector<std::string> variables(const std::string& name) {
        const std::string text = recordedText(name);
        std::vector<std::string> all;
        for (auto at = text.find("Variable settings"); at != text.npos; at = text.find("Variable settings", at + 1)) {
            ServerVars said;
            const bool ended = read(text.substr(at, 2000), zVarsLines);
            if (ended) said.zParseVars(modChess.VarsBlock);
            all.push_back(ended ? notZero(said.VarNumber) + " | " + notZero(said.VarFlag) + " | " + said.VarPrompt
                                : "no end");
        }
        return all;
    }
    static std::vector<std::string> notes(const std::string& name, const std::string& title) {
        const std::string text = recordedText(name);
        std::vector<std::string> all;
        for (auto at = text.find(title); at != text.npos; at = text.find(title, at + 1)) {
            modChess.NotesText.fill({});
            const auto prompt = text.find(modChess.gPrompt, at); // the next answer stands in its line
            const bool ended = read(text.substr(at, prompt + modChess.gPrompt.size() - at), zNotesLines);
            std::string joined = ended ? "" : "no end";
            for (const std::string& note : modChess.NotesText) joined += note + "|";
            all.push_back(joined);
        }
        return all;
    }
};

} // namespace

TEST_F(RecordedPanels, VariablesOfTheFirstServerWhereUnknownOnesAreQuestionMarks) {
    const std::string usual = "0=2 1=12 5=79 6=24 | 1=1 3=1 14=1 15=1 16=1 17=1 18=1 19=1 | fics% ";
    EXPECT_THAT(variables("server-a/53_variables_notes_help.raw"),
                ElementsAre(usual, usual, usual, "0=5 1=3 5=79 6=24 | 3=1 14=1 15=1 16=1 17=1 18=1 19=1 | fics% "));
    EXPECT_THAT(variables("server-a/01_anders_registered.raw"), ElementsAre(usual, usual));
    EXPECT_THAT(variables("server-a/20_bughouse_GuestABCD.raw"),
                ElementsAre("0=2 1=12 5=79 6=24 | 1=1 3=1 14=1 15=1 16=1 17=1 18=1 19=1 24=1 25=1 | fics% "));
}

TEST_F(RecordedPanels, VariablesOfTheSecondServerWhereOpenIsThatOfROpen) {
    const std::string usual = "0=2 1=12 5=79 6=24 | 0=1 1=1 2=1 15=1 16=1 17=1 | fics% ";
    EXPECT_THAT(variables("server-b/53_variables_notes_help.raw"),
                ElementsAre(usual, usual, usual, "0=5 1=3 5=79 6=24 | 0=1 5=5 12=1 15=1 16=1 17=1 18=1 | fics% "));
    EXPECT_THAT(variables("server-b/01_anders_registered.raw"), ElementsAre(usual, usual));
}

TEST_F(RecordedPanels, VariablesOfAPublicServerAndOnesThatNeverEndForWantOfAPrompt) {
    EXPECT_THAT(variables("text/variables_registered.txt"),
                ElementsAre("0=5 3=1 4=1 5=240 6=24 | 0=1 1=1 11=1 14=1 15=1 16=1 18=1 19=1 24=1 | aics% "));
    EXPECT_THAT(variables("text/variables_guest.txt"), ElementsAre("no end"));
}

TEST_F(RecordedPanels, NotesLoseWhatTheServerWrapsAndThoseOfFewLetters) {
    const std::string wrapped =
        "|A second note, which is long enough to be wrapped by the server since it |note three|||";
    const std::string first = "First note of Berta" + wrapped;
    EXPECT_THAT(
        notes("server-a/53_variables_notes_help.raw", "Finger of "),
        ElementsAre(first + "|seven|eight|||", first + "|seven|eight|||", "||||||||||", first + "|seven|eight|||"));
    const std::string other = "First note of Detlef" + wrapped;
    EXPECT_THAT(
        notes("server-b/53_variables_notes_help.raw", "Statistics for "),
        ElementsAre(other + "|seven|eight|||", other + "|seven|eight|||", "||||||||||", other + "|seven|eight|||"));
}

TEST_F(RecordedPanels, AnswersWithOneNoteAndWithNone) {
    EXPECT_THAT(notes("server-a/01_anders_registered.raw", "Finger of "),
                ElementsAre("||||||||||", "||||||||||", "my note one||||||||||", "my note one||||||||||",
                            "my note one||||||||||"));
    EXPECT_THAT(notes("server-b/01_anders_registered.raw", "Statistics for "),
                ElementsAre("my note one||||||||||", "||||||||||", "my note one||||||||||", "my note one||||||||||",
                            "my note one||||||||||"));
}
