// Every key of the section Client: order, default, field, and the form of its text.
#include "settings/ClientKeys.h"

#include "SettingsFixture.h"

#include <functional>
#include <vector>

namespace {

struct Row {
    const char* key;
    const char* absent;                   // text of the default
    const char* stored;                   // a text other than the default
    std::function<std::string()> heldNow; // of the field that must carry it
};

class ClientKeys : public SettingsFixture {
protected:
    template <typename Number>
    static std::function<std::string()> number(const Number& field) {
        return [&field] { return std::to_string(static_cast<long>(field)); };
    }
    static std::function<std::string()> text(const std::string& field) {
        return [&field] { return field; };
    }
    static std::function<std::string()> tick(const bool& field) {
        return [&field] { return std::string(field ? "True" : "False"); };
    }

    std::vector<Row> rows() {
        return {
            {"Registry_OK", "No", "Yes", text(modChess.RegistryState)},
            {"Left", "0", "150", number(client.Left)},
            {"Top", "0", "-30", number(client.Top)},
            {"Width", "9000", "8000", number(client.Width)},
            {"Height", "6000", "5000", number(client.Height)},
            {"Handle", "", "fred", text(client.Handle)},
            {"Password", "", "s3cret, \"x\"", text(client.Password)},
            {"Tell_0", "", "t0", text(client.Tell[0])},
            {"Tell_1", "", "t1", text(client.Tell[1])},
            {"Tell_2", "", "t2", text(client.Tell[2])},
            {"Tell_3", "", "t3", text(client.Tell[3])},
            {"Tell_4", "", "t4", text(client.Tell[4])},
            {"Tell_5", "", "t5", text(client.Tell[5])},
            {"Tell_6", "", "t6", text(client.Tell[6])},
            {"Tell_7", "", "t7", text(client.Tell[7])},
            {"Tell_8", "", "t8", text(client.Tell[8])},
            {"Tell_9", "", "t9", text(client.Tell[9])},
            {"Seek_Graph", "False", "True", tick(client.mnuSeekGrf)},
            {"Auto_Connect", "False", "True", tick(client.mnuAutoCon)},
            {"Auto_Logon", "False", "True", tick(client.mnuAutoLogon)},
            {"Use_Timeseal", "True", "False", tick(client.mnuUseTS)},
            {"Last_Server", "0", "3", number(client.LastServer)},
            {"Color_Main", "33023", "1", number(modChess.ColorMain)},
            {"Color_Background", "0", "2", number(modChess.ColorBackground)},
            {"Color_Bar_Backgnd", "16777215", "3", number(modChess.ColorBar)},
            {"Color_Tell", "255", "4", number(modChess.ColorTell)},
            {"Color_Copy", "14862761", "5", number(modChess.ColorCopy)},
            {"Color_Type", "0", "6", number(modChess.ColorType)},
            {"Color_Shout", "16777215", "7", number(modChess.ColorShout)},
            {"Color_White", "13495025", "8", number(modChess.ColorWhite)},
            {"Color_Black", "3048380", "9", number(modChess.ColorBlack)},
            {"Color_Move", "255", "10", number(modChess.ColorMove)},
            {"Color_PreMove", "65280", "11", number(modChess.ColorPreMove)},
            {"Main_Font", "", "Courier", text(modChess.MainFont)},
            {"Sound_On", "1", "0", number(modChess.SoundOn)},
            {"Sound_Move", "3", "2", number(modChess.SoundMove)},
            {"Sound_Arrive", "1", "0", number(modChess.SoundArrive)},
            {"Sound_Start", "3", "1", number(modChess.SoundStart)},
            {"Sound_Tell", "3", "0", number(modChess.SoundTell)},
            {"IP", "167.114.65.195", "127.0.0.1", text(modChess.ServerIP)},
            {"Port", "5000", "70000", number(modChess.ServerPort)},
            {"PreMove_OK", "0", "1", number(modChess.PreMoveOK)},
            {"AutoQueen", "0", "1", number(modChess.AutoQueen)},
            {"Confirm_Resign", "1", "0", number(modChess.ConfirmResign)},
            {"Chess_Set", "0", "2", number(modChess.ChessSet)},
            {"Mouse_Slip", "0", "5", number(modChess.MouseSlip)},
            {"Drag_Mode", "-1", "7", number(modChess.SeekWhite)},
            {"Seek_Color", "1", "8", number(modChess.DragMode)},
            {"Seek_Off", "1", "0", number(modChess.SeekOff)},
            {"PGN_Path", "", "/games/pgn", text(modChess.PGNPath)},
            {"Game_Path", "", "/games", text(modChess.GamePath)},
            {"Warn_Time", "10", "20", number(modChess.WarnTime)},
            {"XP_Style", "False", "True", tick(client.mnuXP)},
        };
    }

    std::vector<std::string> names() {
        std::vector<std::string> result;
        for (const Row& row : rows()) result.emplace_back(row.key);
        return result;
    }
};

} // namespace

TEST_F(ClientKeys, AWindowThatHasReadNothingTicksTimeSealAlone) {
    const ClientSettings fresh;
    for (const float twips : {fresh.Left, fresh.Top, fresh.Width, fresh.Height}) EXPECT_EQ(twips, 0);
    for (const bool tick : {fresh.mnuSeekGrf, fresh.mnuAutoCon, fresh.mnuAutoLogon, fresh.mnuXP}) EXPECT_FALSE(tick);
    EXPECT_TRUE(fresh.mnuUseTS);
    EXPECT_EQ(fresh.LastServer, 0);
    EXPECT_EQ(TellIndex{}.index, 0);
}

TEST_F(ClientKeys, AreReadInTheOrderOfTheTable) {
    zGetReg(store, client);
    EXPECT_EQ(values->keysRead, names());
}

TEST_F(ClientKeys, AreWrittenInTheOrderOfTheTable) {
    zSaveReg(store, client);
    EXPECT_EQ(values->keysWritten, names());
}

TEST_F(ClientKeys, EachAbsentKeyGivesItsDefault) {
    zStartValues();
    zGetReg(store, client);
    for (const Row& row : rows()) EXPECT_EQ(row.heldNow(), row.absent) << row.key;
}

TEST_F(ClientKeys, TheDefaultsOverwriteWhatWasHeldBefore) {
    modChess.ColorMain = 77;
    modChess.WarnTime = 99;
    client.Handle = "old";
    client.mnuUseTS = false;
    client.mnuXP = true;
    zGetReg(store, client);
    for (const Row& row : rows()) EXPECT_EQ(row.heldNow(), row.absent) << row.key;
}

TEST_F(ClientKeys, EachStoredKeyGoesToItsOwnField) {
    for (const Row& one : rows()) {
        modChess = {};
        client = {};
        client.Width = 9000;
        client.Height = 6000;
        values->texts = {{{"Client", one.key}, one.stored}};
        zGetReg(store, client);
        for (const Row& row : rows()) {
            EXPECT_EQ(row.heldNow(), row.key == one.key ? row.stored : row.absent) << one.key << " in " << row.key;
        }
    }
}

TEST_F(ClientKeys, WhatIsSavedIsTheTextOfTheField) {
    for (const Row& row : rows()) stored(row.key, row.stored);
    zGetReg(store, client);
    values->texts.clear();
    zSaveReg(store, client);
    for (const Row& row : rows()) EXPECT_EQ(written(row.key), row.stored) << row.key;
}
