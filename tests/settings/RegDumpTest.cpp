// The text and the file of the diagnostic dump.
#include "settings/RegDump.h"

#include "SettingsFixture.h"
#include "TemporaryFolder.h"
#include "common/InChild.h"

#include <sys/stat.h>

namespace {

class RegDump : public SettingsFixture {
protected:
    std::string dump() { return zDumpReg(store, client, windows); }

    // The value behind the first line of `section` that is labelled `label`.
    std::string valueOf(const std::string& section, const std::string& label) {
        const std::string text = "\n" + dump();
        const auto start = text.find("\n" + label + ":  ", text.find("\n" + section + "\n"));
        if (start == text.npos) return "no such line";
        const auto value = start + label.size() + 4;
        return text.substr(value, text.find('\n', value) - value);
    }

    // One value by its section and label.
    struct Value {
        const char* section;
        const char* label;
        const char* value;
    };
    void expectValues(std::initializer_list<Value> rows) {
        for (const auto& [section, label, value] : rows) {
            EXPECT_EQ(valueOf(section, label), value) << section << " " << label;
        }
    }

    RunningWindows windows{
        .place =
            [](const WindowSection&) {
                return WindowPlace{11, 12, 13, 14};
            },
        .match = [] { return MatchSettings{1, 2, 3, 4, 5, 6, 7, 8}; },
    };
};

constexpr const char* SectionsAndKeys =
    "Client\n"
    "Registry_OK\nLeft\nTop\nWidth\nHeight\nHandle\nPassword\nTell_0\nTell_0\nTell_0\nTell_0\nTell_0\n"
    "Tell_0\nTell_0\nTell_0\nTell_0\nTell_0\nSeek_Graph\nAuto_Connect\nAuto_Logon\nUse_Timeseal\n"
    "Last_Server\nColor_Main\nColor_Background\nColor_Bar_Backgnd\nColor_Tell\nColor_Copy\nColor_Type\n"
    "Color_Shout\nColor_White\nColor_Black\nColor_Move\nColor_PreMove\nMain_Font\nSound_On\n"
    "Sound_Move\nSound_Arrive\nSound_Start\nSound_Tell\nIP\nPort\nPreMove_OK\nAutoQueen\n"
    "Confirm_Resign\nChess_Set\nMouse_Slip\nDrag_Mode\nSeek_Color\nSeek_Off\nPGN_Path\nGame_Path\n"
    "Warn_Time\n"
    "Options\nLeft\nTop\n"
    "Seek\nLeft\nTop\nWidth\nHeight\n"
    "ICS_Vars\nLeft\nTop\n"
    "Help\nLeft\nTop\nWidth\nHeight\n"
    "Notes\nLeft\nTop\n"
    "Match\nLeft\nTop\nTime\nIncrement\nRated\nServer_Settings\nMinimum\nMaximum\nColor\nType\n"
    "Chat\nLeft\nTop\nWidth\nHeight\n";

} // namespace

TEST_F(RegDump, TheSectionsAndKeysStandInTheirOrder) {
    std::string labels;
    std::istringstream lines(dump());
    for (std::string line; std::getline(lines, line);) labels += line.substr(0, line.find(':')) + "\n";
    EXPECT_EQ(labels, SectionsAndKeys);
}

TEST_F(RegDump, ALineIsTheKeyAColonTwoBlanksAndTheStoredValue) {
    stored("Handle", "fred");
    EXPECT_NE(dump().find("\nHandle:  fred\n"), std::string::npos);
}

TEST_F(RegDump, TheTenButtonCommandsAreAllLabelledTell0) {
    for (int i = 0; i <= 9; ++i) stored("Tell_" + std::to_string(i), "command " + std::to_string(i));
    std::string expected;
    for (int i = 0; i <= 9; ++i) expected += "Tell_0:  command " + std::to_string(i) + "\n";
    EXPECT_NE(dump().find(expected), std::string::npos);
}

TEST_F(RegDump, LeavesOutXpStyleBoardAndHistory) {
    stored("XP_Style", "True");
    for (const char* absent : {"XP_Style", "Board", "History"}) {
        EXPECT_EQ(dump().find(absent), std::string::npos) << absent;
    }
}

TEST_F(RegDump, AbsentNumbersAndTicksGiveTheRunningValue) {
    client.Left = 150;
    client.mnuAutoCon = true;
    client.LastServer = 4;
    modChess.ColorMain = 7;
    modChess.WarnTime = 33;
    expectValues({{"Client", "Left", "150"},
                  {"Client", "Width", "9000"},
                  {"Client", "Auto_Connect", "True"},
                  {"Client", "Last_Server", "4"},
                  {"Client", "Color_Main", "7"},
                  {"Client", "Warn_Time", "33"},
                  {"Seek", "Height", "14"},
                  {"Match", "Maximum", "6"}});
}

TEST_F(RegDump, AbsentTextsGiveTheirDefault) {
    modChess.RegistryState = "Yes";
    modChess.MainFont = "Courier";
    modChess.ServerIP = "1.2.3.4";
    client.Handle = "fred";
    client.Tell[0] = "tell";
    expectValues({{"Client", "Registry_OK", "No"},
                  {"Client", "Main_Font", ""},
                  {"Client", "IP", "167.114.65.195"},
                  {"Client", "Handle", ""},
                  {"Client", "Tell_0", ""}});
}

TEST_F(RegDump, StoredValuesStandAsTheyAreEvenWhenTheyAreNoNumbers) {
    stored("Left", "abc");
    values->texts[{"Match", "Time"}] = "";
    expectValues({{"Client", "Left", "abc"}, {"Match", "Time", ""}});
}

TEST_F(RegDump, TheFileReplacesAnOlderOneAndIsForItsOwnerAlone) {
    const TemporaryFolder folder;
    folder.write("regdump.txt", std::string(1000, 'x'));
    ASSERT_EQ(::chmod("regdump.txt", 0644), 0);
    EXPECT_TRUE(writeRegDump("Client\n"));
    EXPECT_EQ(folder.read("regdump.txt"), "Client\n");
    struct stat status {};
    ASSERT_EQ(::stat("regdump.txt", &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0600U);
}

TEST_F(RegDump, AFileThatCannotBeWrittenIsToldAndALinkIsNotFollowed) {
    const TemporaryFolder folder;
    folder.write("other", "kept");
    std::filesystem::create_symlink("other", "regdump.txt");
    EXPECT_FALSE(writeRegDump("secret"));
    EXPECT_EQ(folder.read("other"), "kept");
    EXPECT_FALSE(writeRegDump("secret", "no/such/folder.txt"));
}

TEST_F(RegDump, AFileThatDoesNotFitOnTheDiskIsTold) {
    const TemporaryFolder folder;
    EXPECT_TRUE(writeRegDump(std::string(101, 'x')));
    EXPECT_TRUE(inChild([] {
        limitFiles(100);
        if (!writeRegDump(std::string(100, 'x'))) ::_exit(1);
        if (writeRegDump(std::string(101, 'x'))) ::_exit(2);
    }));
}

TEST_F(RegDump, AFileIsWrittenWithoutAStandardInputToo) {
    const TemporaryFolder folder;
    EXPECT_TRUE(writeRegDump("older"));
    EXPECT_TRUE(inChild([] {
        ::close(STDIN_FILENO); // whose number the file then gets
        if (!writeRegDump("Client\n")) ::_exit(1);
    }));
    EXPECT_EQ(folder.read("regdump.txt"), "Client\n");
}

TEST_F(RegDump, APipeThatNobodyReadsIsNotWaitedFor) {
    const TemporaryFolder folder;
    ASSERT_EQ(::mkfifo("regdump.txt", 0600), 0);
    EXPECT_FALSE(writeRegDump("secret"));
}
