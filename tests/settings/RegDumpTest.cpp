// The text and the file of the diagnostic dump.
#include "settings/RegDump.h"

#include "SettingsFixture.h"
#include "TemporaryFolder.h"

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

    RunningWindows windows{[](const WindowSection&) {
                               return WindowPlace{11, 12, 13, 14};
                           },
                           [] { return MatchSettings{1, 2, 3, 4, 5, 6, 7, 8}; }};
};

const char* const ClientLabels[] = {"Registry_OK",
                                    "Left",
                                    "Top",
                                    "Width",
                                    "Height",
                                    "Handle",
                                    "Password",
                                    "Tell_0",
                                    "Tell_0",
                                    "Tell_0",
                                    "Tell_0",
                                    "Tell_0",
                                    "Tell_0",
                                    "Tell_0",
                                    "Tell_0",
                                    "Tell_0",
                                    "Tell_0",
                                    "Seek_Graph",
                                    "Auto_Connect",
                                    "Auto_Logon",
                                    "Use_Timeseal",
                                    "Last_Server",
                                    "Color_Main",
                                    "Color_Background",
                                    "Color_Bar_Backgnd",
                                    "Color_Tell",
                                    "Color_Copy",
                                    "Color_Type",
                                    "Color_Shout",
                                    "Color_White",
                                    "Color_Black",
                                    "Color_Move",
                                    "Color_PreMove",
                                    "Main_Font",
                                    "Sound_On",
                                    "Sound_Move",
                                    "Sound_Arrive",
                                    "Sound_Start",
                                    "Sound_Tell",
                                    "IP",
                                    "Port",
                                    "PreMove_OK",
                                    "AutoQueen",
                                    "Confirm_Resign",
                                    "Chess_Set",
                                    "Mouse_Slip",
                                    "Drag_Mode",
                                    "Seek_Color",
                                    "Seek_Off",
                                    "PGN_Path",
                                    "Game_Path",
                                    "Warn_Time"};

} // namespace

TEST_F(RegDump, TheSectionsAndKeysStandInTheirOrder) {
    std::string expected = "Client\n";
    for (const char* label : ClientLabels) expected += std::string(label) + "\n";
    expected += "Options\nLeft\nTop\n"
                "Seek\nLeft\nTop\nWidth\nHeight\n"
                "ICS_Vars\nLeft\nTop\n"
                "Help\nLeft\nTop\nWidth\nHeight\n"
                "Notes\nLeft\nTop\n"
                "Match\nLeft\nTop\nTime\nIncrement\nRated\nServer_Settings\nMinimum\nMaximum\nColor\nType\n"
                "Chat\nLeft\nTop\nWidth\nHeight\n";
    std::string labels;
    std::istringstream lines(dump());
    for (std::string line; std::getline(lines, line);) labels += line.substr(0, line.find(':')) + "\n";
    EXPECT_EQ(labels, expected);
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
    EXPECT_EQ(valueOf("Client", "Left"), "150");
    EXPECT_EQ(valueOf("Client", "Width"), "9000");
    EXPECT_EQ(valueOf("Client", "Auto_Connect"), "True");
    EXPECT_EQ(valueOf("Client", "Last_Server"), "4");
    EXPECT_EQ(valueOf("Client", "Color_Main"), "7");
    EXPECT_EQ(valueOf("Client", "Warn_Time"), "33");
    EXPECT_EQ(valueOf("Seek", "Height"), "14");
    EXPECT_EQ(valueOf("Match", "Maximum"), "6");
}

TEST_F(RegDump, AbsentTextsGiveTheirDefault) {
    modChess.RegistryState = "Yes";
    modChess.MainFont = "Courier";
    modChess.ServerIP = "1.2.3.4";
    client.Handle = "fred";
    client.Tell[0] = "tell";
    EXPECT_EQ(valueOf("Client", "Registry_OK"), "No");
    EXPECT_EQ(valueOf("Client", "Main_Font"), "");
    EXPECT_EQ(valueOf("Client", "IP"), "167.114.65.195");
    EXPECT_EQ(valueOf("Client", "Handle"), "");
    EXPECT_EQ(valueOf("Client", "Tell_0"), "");
}

TEST_F(RegDump, StoredValuesStandAsTheyAreEvenWhenTheyAreNoNumbers) {
    stored("Left", "abc");
    values->texts[{"Match", "Time"}] = "";
    EXPECT_EQ(valueOf("Client", "Left"), "abc");
    EXPECT_EQ(valueOf("Match", "Time"), "");
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
