// The panels of variables and notes in the program, with a server at a real socket: what they ask, what becomes of the
// answers, and what else arrives among them.
#include "board/BoardRig.h"
#include "common/RecordedText.h"
#include "panels/frmICSVars.h"
#include "panels/frmNotes.h"
#include "platform/StreamText.h"
#include "session/ClientRig.h"

#include <gmock/gmock.h>

using testing::HasSubstr;
using testing::Not;

namespace {

constexpr const char* Prompt = "fics% ";

class PanelsThroughSocket : public ClientRig {
protected:
    PanelsThroughSocket() {
        set("Seek_Off", "0");
        roads.doors.showVars = [this] { showPanel<frmICSVars>(*panelRoads); };
        roads.doors.showNotes = [this] { showPanel<frmNotes>(*panelRoads); };
        roads.zParseVars = [this] { loadedPanel<frmICSVars>(*panelRoads).zParseVars(); };
        roads.zParseNotes = [this] { loadedPanel<frmNotes>(*panelRoads).zParseNotes(); };
    }
    ~PanelsThroughSocket() override {
        delete vars();
        delete notes();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    // Connected with the prompt learnt.
    void begin() {
        connected();
        panelRoads.emplace(client->panelRoads());
        modChess.gPrompt = Prompt;
    }
    // Chosen in the menu, and the server has the question.
    void openVars() { openBy("mnuVars", "Vars\n"); }
    void openNotes() { openBy("mnuNotes", "Fi\n"); }
    void openBy(const char* name, const char* question) {
        if (!client) begin();
        chooseEntry(entry(name));
        ASSERT_TRUE(serverGot(question));
        loopback.received.clear();
    }
    // The same while the other panel's answer is waited for.
    void openNotesThatWaits() {
        QTimer::singleShot(0, client.get(), [this] { chooseEntry(entry("mnuNotes")); });
        ASSERT_TRUE(waitUntil([] { return notes() != nullptr; }));
    }
    // A whole answer for a panel that is asked anew, though it is open.
    void ask(std::int16_t state) {
        modChess.NotesText.fill({});
        client->session.pipeline.zSetstate(state);
    }

    static frmICSVars* vars() { return loadedWindow<frmICSVars>(); }
    static frmNotes* notes() { return loadedWindow<frmNotes>(); }
    static std::string field(const QWidget* window, const std::string& name) {
        return bytesOf(window->findChild<QLineEdit*>(QString::fromStdString(name))->text());
    }
    static bool ticked(int index) {
        return vars()->findChild<QCheckBox*>(QStringLiteral("chkVar(%1)").arg(index))->isChecked();
    }
    static void type(QWidget* window, const char* name, const char* text) {
        auto* box = window->findChild<QLineEdit*>(QString::fromLatin1(name));
        box->clear();
        QTest::keyClicks(box, QString::fromLatin1(text));
    }
    static void press(QWidget* window, const char* button) {
        window->findChild<QPushButton*>(QString::fromLatin1(button))->click();
    }
    // "2 12 0 ..." and the numbers of the boxes that are ticked.
    static std::string values() {
        std::string text;
        for (int index = 0; index < 7; ++index) text += field(vars(), "txtVar(" + std::to_string(index) + ")") + " ";
        for (int index = 0; index < 26; ++index) text += ticked(index) ? "[" + std::to_string(index) + "]" : "";
        return text + field(vars(), "txtPrompt") + "|";
    }
    static std::string lines() {
        std::string text;
        for (int index = 0; index < 10; ++index) text += field(notes(), "txtNote(" + std::to_string(index) + ")") + "|";
        return text;
    }

    static bool ended(bool ModChess::*flag) {
        return waitUntil([flag] { return !(modChess.*flag); });
    }
    // What comes now is printed, and of the answer nothing was before but what stands behind its end.
    std::string printed() {
        loopback.send("\n\rsettled\n\rfics% ");
        EXPECT_TRUE(consoleHas("settled"));
        const std::string text = console();
        const auto begin = text.find_first_not_of('\n');
        return text.substr(begin, text.find("settled") - begin);
    }
    void expectStillCaptured(bool ModChess::*flag) {
        runFor(60);
        EXPECT_TRUE(modChess.*flag);
    }
    // Game 12 is on a board with its moves.
    void joinGame() {
        loopback.send(record() + Prompt);
        ASSERT_TRUE(serverGot("moves 12\n"));
        loopback.send("\n\rMovelist for game 12:\n\r\n\r"
                      "Foo (1500) vs. Bar (1600) --- Thu Oct 14, 20:36 PDT 2010\n\r"
                      "Rated blitz match, initial time: 5 minutes, increment: 2 seconds.\n\r\n\r"
                      "      {Still in progress} *\n\r\n\rfics% " +
                      record() + Prompt);
        ASSERT_TRUE(waitUntil([] { return !modChess.MovesCapture && !modChess.NewGameFlag; }));
        loopback.received.clear();
    }
    static std::string record() { return "\n\r" + LineOf{.game = 12, .relation = 0}.text(" 0 0\n\r"); }

    std::optional<PanelRoads> panelRoads; // of `client`
};

// The recorded answer with this title, up to its prompt, its lines one by one.
std::vector<std::string> answerOf(const std::string& name, const std::string& title) {
    const std::string text = recordedText(name);
    const auto from = text.find(title);
    auto to = text.find("\n\rfics% ", from);
    std::vector<std::string> all;
    for (auto at = from; at < to + 2;) {
        const auto end = text.find("\n\r", at) + 2;
        all.push_back(text.substr(at, end - at));
        at = end;
    }
    all.emplace_back(Prompt);
    return all;
}

std::string whole(const std::vector<std::string>& lines, std::size_t count = 1000) {
    std::string text;
    for (std::size_t index = 0; index < std::min(count, lines.size()); ++index) text += lines[index];
    return text;
}

// `text` in pieces of `size`, of which none ends right behind `whole`.
std::vector<std::string> piecesOf(const std::string& text, std::size_t size, const std::string& whole) {
    const std::size_t never = whole.empty() ? std::string::npos : text.find(whole) + whole.size();
    std::vector<std::string> pieces;
    for (std::size_t at = 0; at < text.size(); at += pieces.back().size()) {
        pieces.push_back(text.substr(at, at + size == never ? size + 1 : size));
    }
    return pieces;
}

const std::string VarsShown = "2 12 0 0 0 79 24 [1][3][14][15][16][17][18][19]fics% |";
const std::string NotesShown =
    "First note of Berta|A second note, which is long enough to be wrapped by the server since "
    "it |note three||||seven|eight|||";

bool allShort(const std::vector<std::string>& lines) {
    return std::ranges::all_of(lines, [](const std::string& line) { return line.size() <= 15; });
}

std::vector<std::string> varsAnswer() {
    return answerOf("server-a/53_variables_notes_help.raw", "Variable settings of Berta");
}
std::vector<std::string> notesAnswer() { return answerOf("server-a/53_variables_notes_help.raw", "Finger of Berta"); }

} // namespace

// Answers

TEST_F(PanelsThroughSocket, RecordedVariablesFillThePanelAndStayOffTheConsole) {
    openVars();
    EXPECT_TRUE(modChess.gVarsCapture);
    loopback.send(whole(varsAnswer()));
    ASSERT_TRUE(ended(&ModChess::gVarsCapture));
    EXPECT_EQ(values(), VarsShown);
    EXPECT_THAT(printed(), Not(HasSubstr("=")));
}

TEST_F(PanelsThroughSocket, RecordedNotesFillThePanelAndStayOffTheConsole) {
    openNotes();
    loopback.send(whole(notesAnswer()));
    ASSERT_TRUE(ended(&ModChess::gNotesCapture));
    EXPECT_EQ(lines(), NotesShown);
    EXPECT_EQ(printed(), "");
}

TEST_F(PanelsThroughSocket, RecordedAnswersOfBothServersOneBehindTheOther) {
    openVars();
    const std::pair<const char*, const char*> cases[] = {
        {"server-a/53_variables_notes_help.raw", "2 12 0 0 0 79 24 [1][3][14][15][16][17][18][19]fics% |"},
        {"server-a/20_bughouse_GuestABCD.raw", "2 12 0 0 0 79 24 [1][3][14][15][16][17][18][19][24][25]fics% |"},
        {"server-b/53_variables_notes_help.raw",
         "2 12 0 0 0 79 24 [0][1][2][3][14][15][16][17][19][25]fics% |"}}; // what it leaves out stays
    for (const auto& [file, shown] : cases) {
        ask(3);
        loopback.send(whole(answerOf(file, "Variable settings")));
        ASSERT_TRUE(ended(&ModChess::gVarsCapture)) << file;
        EXPECT_EQ(values(), shown) << file;
    }
}

TEST_F(PanelsThroughSocket, AnswersInAnyPiecesAreTheSame) {
    openVars();
    const std::string text = whole(varsAnswer());
    for (const std::size_t piece : {std::size_t{1}, std::size_t{7}, std::size_t{80}, text.size() - 3}) {
        ask(3);
        for (const std::string& each : piecesOf(text, piece, "Prompt: fics% ")) {
            loopback.send(each);
            QCoreApplication::processEvents();
        }
        ASSERT_TRUE(ended(&ModChess::gVarsCapture)) << piece;
        EXPECT_EQ(values(), VarsShown) << piece;
    }
    openNotes();
    const std::string finger = whole(notesAnswer());
    for (const std::size_t piece : {std::size_t{1}, std::size_t{7}, std::size_t{80}, finger.size() - 3}) {
        ask(7);
        for (const std::string& each : piecesOf(finger, piece, "")) {
            loopback.send(each);
            QCoreApplication::processEvents();
        }
        ASSERT_TRUE(ended(&ModChess::gNotesCapture)) << piece;
        EXPECT_EQ(lines(), NotesShown) << piece;
    }
}

// The line has no end yet, and its last two characters count as one.
TEST_F(PanelsThroughSocket, APromptLineThatArrivesWithoutItsEndLosesTwoCharacters) {
    openVars();
    const std::string text = whole(varsAnswer());
    const std::string line = "Prompt: fics% ";
    const auto cut = text.find(line) + line.size();
    ask(3);
    loopback.send(text.substr(0, cut));
    ASSERT_TRUE(ended(&ModChess::gVarsCapture));
    loopback.send(text.substr(cut));
    EXPECT_EQ(values(), "2 12 0 0 0 79 24 [1][3][14][15][16][17][18][19]fic|");
}

TEST_F(PanelsThroughSocket, VariablesCutBehindAnyLineButThePromptsAreGivenUpByTheTimeOut) {
    openVars();
    const std::vector<std::string> block = varsAnswer();
    for (std::size_t length = 0; length <= block.size(); ++length) {
        ask(3);
        loopback.send(whole(block, length) + "fics% ");
        const bool holdsEnd = whole(block, length).find("Prompt:") != std::string::npos;
        if (!holdsEnd) {
            expectStillCaptured(&ModChess::gVarsCapture);
            client->session.timerFired(SessionTimer::tmrState);
        }
        ASSERT_TRUE(ended(&ModChess::gVarsCapture)) << length;
        EXPECT_EQ(values(), holdsEnd ? VarsShown : "       |") << length << " as designed until the first whole answer";
        if (length == block.size()) break;
        press(vars(), "cmdCancel");
        openVars();
        client->session.timerFired(SessionTimer::tmrState);
    }
}

TEST_F(PanelsThroughSocket, NotesCutBehindAnyLineShowThoseThatCame) {
    openNotes();
    const std::vector<std::string> block = notesAnswer();
    std::string before;
    for (std::size_t length = 0; length < block.size(); ++length) {
        ask(7);
        loopback.send(whole(block, length) + Prompt);
        ASSERT_TRUE(ended(&ModChess::gNotesCapture)) << length;
        EXPECT_GE(lines().size(), before.size()) << length;
        before = lines();
    }
    EXPECT_EQ(before, NotesShown);
}

TEST_F(PanelsThroughSocket, AnAnswerThatNeverEndsIsGivenUpAfterFiveSeconds) {
    openVars();
    loopback.send(whole(answerOf("server-b/53_variables_notes_help.raw", "There is no player matching")));
    loopback.send("time=5 inc=3\n\rfics% ");
    expectStillCaptured(&ModChess::gVarsCapture);
    client->session.timerFired(SessionTimer::tmrState);
    EXPECT_FALSE(modChess.gVarsCapture);
    EXPECT_EQ(values(), "       |");
    EXPECT_TRUE(vars()->isVisible());
    EXPECT_TRUE(messages.empty());
    loopback.send("inc=4\n\rfics% ");
    EXPECT_TRUE(consoleHas("inc=4")) << "the rest is printed";
}

// With the real five seconds.
TEST_F(PanelsThroughSocket, ThePanelThatWaitsForALostAnswerGivesUpFirst) {
    openVars();
    openNotesThatWaits();
    ASSERT_TRUE(waitUntil([] { return !modChess.gVarsCapture; }));
    runFor(100);
    EXPECT_EQ(loopback.received, "");
    EXPECT_TRUE(notes()->isVisible());
}

TEST_F(PanelsThroughSocket, TellsShoutsAndBoardUpdatesAmongTheLinesChangeNothing) {
    openVars();
    loopback.send(whole(varsAnswer()));
    ASSERT_TRUE(ended(&ModChess::gVarsCapture));
    openNotes();
    loopback.send(whole(notesAnswer()));
    ASSERT_TRUE(ended(&ModChess::gNotesCapture));
    joinGame();
    const std::string among[] = {"Berta tells you: hi\n\r", "Berta shouts: hi all\n\r", "\n\r", record()};
    const std::vector<std::string> block = varsAnswer();
    const std::vector<std::string> finger = notesAnswer();
    for (const std::string& foreign : among) {
        for (std::size_t at = 0; at < block.size(); ++at) {
            ask(3);
            std::vector<std::string> all = block;
            all.insert(all.begin() + static_cast<long>(at), foreign);
            loopback.send(whole(all));
            ASSERT_TRUE(ended(&ModChess::gVarsCapture)) << foreign << at;
            EXPECT_EQ(values(), VarsShown) << foreign << at;
        }
        for (std::size_t at = 0; at < finger.size(); ++at) {
            if (foreign == record() && allShort({finger.begin() + static_cast<long>(at), finger.end()})) break;
            ask(7);
            std::vector<std::string> all = finger;
            all.insert(all.begin() + static_cast<long>(at), foreign);
            loopback.send(whole(all));
            ASSERT_TRUE(ended(&ModChess::gNotesCapture)) << foreign << at;
            EXPECT_EQ(lines(), NotesShown) << foreign << at;
        }
    }
}

// Lines of up to 15 characters behind a board update go with it, and with them short notes and the prompt.
TEST_F(PanelsThroughSocket, ABoardUpdateBehindWhichOnlyShortNotesComeTakesThemAndThePrompt) {
    openNotes();
    loopback.send(Prompt);
    ASSERT_TRUE(ended(&ModChess::gNotesCapture));
    joinGame();
    ask(7);
    const std::vector<std::string> finger = notesAnswer();
    const auto seven = std::ranges::find(finger, " 7: seven\n\r");
    ASSERT_TRUE(allShort({seven, finger.end()}));
    loopback.send(whole({finger.begin(), seven}) + record() + whole({seven, finger.end()}));
    expectStillCaptured(&ModChess::gNotesCapture);
    loopback.send("\n\rfics% ");
    ASSERT_TRUE(ended(&ModChess::gNotesCapture));
    EXPECT_EQ(lines(), NotesShown.substr(0, NotesShown.find("seven")) + "||||");
}

TEST_F(PanelsThroughSocket, InVerboseModeTheAnswersAreReadAndPrinted) {
    openVars();
    entry("mnuStupid").trigger();
    loopback.send(whole(varsAnswer()));
    ASSERT_TRUE(ended(&ModChess::gVarsCapture));
    EXPECT_EQ(values(), VarsShown);
    EXPECT_TRUE(consoleHas("Variable settings of Berta:\n"));
    EXPECT_TRUE(consoleHas("Prompt: fics% \n"));
    openNotes();
    loopback.send(whole(notesAnswer()));
    ASSERT_TRUE(ended(&ModChess::gNotesCapture));
    EXPECT_EQ(lines(), NotesShown);
    EXPECT_TRUE(consoleHas(" 1: First note of Berta\n")) << "the line itself is not cut";
}

// Two at once, closed, connected anew

TEST_F(PanelsThroughSocket, OpenedAtOnceTheSecondAsksBehindTheAnswerOfTheFirst) {
    openVars();
    openNotesThatWaits();
    QTimer::singleShot(50, client.get(), [this] {
        EXPECT_EQ(loopback.received, "");
        loopback.send(whole(varsAnswer()));
    });
    ASSERT_TRUE(serverGot("Fi\n"));
    EXPECT_EQ(values(), VarsShown);
    loopback.send(whole(notesAnswer()));
    ASSERT_TRUE(ended(&ModChess::gNotesCapture));
    EXPECT_EQ(lines(), NotesShown);
}

TEST_F(PanelsThroughSocket, ClosedInTheMiddleOfAnAnswerThePanelIsLoadedUnseenAsksOnceMoreAndNoMore) {
    openVars();
    const std::vector<std::string> block = varsAnswer();
    loopback.send(whole(block, 5));
    press(vars(), "cmdCancel");
    EXPECT_EQ(vars(), nullptr);
    const std::string all = whole(block);
    loopback.send(all.substr(whole(block, 5).size()));
    ASSERT_TRUE(serverGot("Vars\n"));
    ASSERT_NE(vars(), nullptr);
    EXPECT_FALSE(vars()->isVisible());
    EXPECT_EQ(values(), VarsShown);
    loopback.send(all);
    ASSERT_TRUE(ended(&ModChess::gVarsCapture));
    runFor(60);
    EXPECT_EQ(loopback.received, "Vars\n");
    EXPECT_FALSE(vars()->isVisible());
    loopback.received.clear();
    openVars();
    EXPECT_TRUE(vars()->isVisible()) << "the menu shows it, and it asks anew";
    loopback.send(all);
    ASSERT_TRUE(ended(&ModChess::gVarsCapture));
    EXPECT_THAT(printed(), Not(HasSubstr("=")));
}

TEST_F(PanelsThroughSocket, NotesClosedInTheMiddleOfTheirAnswerLikewise) {
    openNotes();
    press(notes(), "cmdCancel");
    loopback.send(whole(notesAnswer()));
    ASSERT_TRUE(serverGot("Fi\n"));
    ASSERT_NE(notes(), nullptr);
    EXPECT_FALSE(notes()->isVisible());
    loopback.send(whole(notesAnswer()));
    ASSERT_TRUE(ended(&ModChess::gNotesCapture));
    runFor(60);
    EXPECT_EQ(loopback.received, "Fi\n");
    EXPECT_EQ(lines(), NotesShown);
}

TEST_F(PanelsThroughSocket, NothingButTheTimeOutClearsACaptureWhenTheConnectionIsMadeAnew) {
    openNotes();
    loopback.hangUp();
    ASSERT_TRUE(waitUntil([this] { return socketState() == 0; }));
    EXPECT_TRUE(modChess.gNotesCapture);
    chooseEntry(*client->menus.mnuConnect[1]);
    ASSERT_TRUE(waitUntil([this] { return loopback.hasClient() && socketState() == 7; }));
    loopback.send("Welcome, whoever you may be!\n\rlogin: ");
    expectStillCaptured(&ModChess::gNotesCapture);
    EXPECT_THAT(console(), Not(HasSubstr("Welcome")));
    client->session.timerFired(SessionTimer::tmrState);
    loopback.send("\n\rlogin: ");
    EXPECT_TRUE(consoleHas("login: "));
    EXPECT_EQ(client->session.pipeline.login, 1);
}

TEST_F(PanelsThroughSocket, OpenedWithoutAConnectionNothingIsAskedOfTheServerAndTheTimeOutEndsIt) {
    start();
    panelRoads.emplace(client->panelRoads());
    chooseEntry(entry("mnuVars"));
    ASSERT_TRUE(waitUntil([] { return modChess.gVarsCapture; }));
    EXPECT_TRUE(vars()->isVisible());
    client->session.timerFired(SessionTimer::tmrState);
    EXPECT_FALSE(modChess.gVarsCapture);
}

TEST_F(PanelsThroughSocket, TheProgramEndsWithPanelsOpenWaitingAndUnseen) {
    openVars();
    press(vars(), "cmdCancel");
    loopback.send(whole(varsAnswer()));
    ASSERT_TRUE(serverGot("Vars\n"));
    openNotesThatWaits();
    client->close();
    EXPECT_EQ(vars(), nullptr);
    EXPECT_EQ(notes(), nullptr);
    EXPECT_EQ(stored("ICS_Vars", "Left"), "0");
    EXPECT_EQ(stored("Notes", "Left"), "0");
    runFor(50);
    EXPECT_EQ(vars(), nullptr) << "what is left of the answer opens nothing";
}

// Changes

TEST_F(PanelsThroughSocket, ChangesGoOutSilentlyByteForByte) {
    openVars();
    loopback.send(whole(varsAnswer()));
    ASSERT_TRUE(ended(&ModChess::gVarsCapture));
    type(vars(), "txtVar(0)", "5");
    vars()->findChild<QCheckBox*>(QStringLiteral("chkVar(16)"))->click();
    type(vars(), "txtPrompt", "go>");
    press(vars(), "cmdOK");
    EXPECT_TRUE(serverGot("Set Time 5\nSet Shout\nSet Prompt go>\n"));
    EXPECT_EQ(loopback.received, "Set Time 5\nSet Shout\nSet Prompt go>\n");
    EXPECT_EQ(vars(), nullptr);
    EXPECT_THAT(console(), Not(HasSubstr("Set")));
}

TEST_F(PanelsThroughSocket, ANewPromptIsTheOneThatTheStreamIsHeldFor) {
    openVars();
    loopback.send(whole(varsAnswer()));
    ASSERT_TRUE(ended(&ModChess::gVarsCapture));
    type(vars(), "txtPrompt", "go>");
    press(vars(), "cmdOK");
    loopback.send("prompt set to \"go> \".\n\rgo> ");
    EXPECT_TRUE(consoleHas("prompt set to"));
    loopback.send("fics% alone is held\n\r");
    runFor(100);
    EXPECT_THAT(console(), Not(HasSubstr("alone is held")));
    loopback.send("go> ");
    EXPECT_TRUE(consoleHas("alone is held"));
    client->session.timerFired(SessionTimer::tmrPrompt);
    EXPECT_EQ(lblPrompt().text(), QStringLiteral("go> ")) << "the first lone tail shows it";
}

TEST_F(PanelsThroughSocket, WhatTheServerSaysToTheChangesIsPrinted) {
    openNotes();
    loopback.send(whole(notesAnswer()));
    ASSERT_TRUE(ended(&ModChess::gNotesCapture));
    type(notes(), "txtNote(2)", "");
    press(notes(), "cmdOK");
    EXPECT_TRUE(serverGot("Set 3 \n"));
    loopback.send("Note 3 cleared.\n\rfics% ");
    EXPECT_TRUE(consoleHas("Note 3 cleared."));
}
