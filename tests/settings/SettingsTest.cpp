// Start values, the failure rule, and the writing of the section Client.
#include "SettingsFixture.h"

namespace {

class Settings : public SettingsFixture {
protected:
    template <typename Field>
    struct StartValue {
        Field ModChess::*field;
        Field value;
    };

    // The program starts with the values of the rows, and whatever the fields held, start values give them these again.
    template <typename Field>
    static void expectStart(std::initializer_list<StartValue<Field>> rows) {
        constexpr Field Other = 99;
        for (const auto& row : rows) modChess.*row.field = Other;
        zStartValues();
        int number = 0;
        for (const auto& row : rows) {
            EXPECT_EQ(modChess.*row.field, row.value) << "row " << number;
            EXPECT_EQ(ModChess{}.*row.field, row.value) << "row " << number++;
        }
    }
};

} // namespace

TEST_F(Settings, StartValuesPutThePastelSetIntoTheConsoleColours) {
    expectStart<std::int32_t>({{&ModChess::ColorBackground, 0xC0FFFF},
                               {&ModChess::ColorBar, 0xC0FFFF},
                               {&ModChess::ColorMain, 0},
                               {&ModChess::ColorTell, 255},
                               {&ModChess::ColorCopy, 0xFF0000},
                               {&ModChess::ColorType, 0},
                               {&ModChess::ColorShout, 0x800080}});
}

TEST_F(Settings, StartValuesGiveTheBoardColoursAndSoundsTheirDefaults) {
    expectStart<std::int32_t>({{&ModChess::ColorBlack, 0x2E83BC},
                               {&ModChess::ColorWhite, 0xCDEAF1},
                               {&ModChess::ColorMove, 255},
                               {&ModChess::ColorPreMove, 0x00FF00}});
    expectStart<std::int16_t>({{&ModChess::SoundMove, 3},
                               {&ModChess::SoundArrive, 1},
                               {&ModChess::SoundStart, 3},
                               {&ModChess::SoundTell, 3},
                               {&ModChess::SoundOn, 1}});
}

TEST_F(Settings, StartValuesGiveTheOptionsTheirBuiltInValues) {
    expectStart<std::int16_t>({{&ModChess::PreMoveOK, 0},
                               {&ModChess::AutoQueen, 0},
                               {&ModChess::ConfirmResign, 1},
                               {&ModChess::MouseSlip, 0},
                               {&ModChess::DragMode, 1},
                               {&ModChess::SeekOff, 1},
                               {&ModChess::SeekWhite, 0}});
    expectStart<std::int32_t>({{&ModChess::ServerPort, 5000}});
    EXPECT_EQ(modChess.ServerIP, "167.114.65.195");
}

TEST_F(Settings, MainFontHasNoStartValueAndStaysEmptyWithoutTheKey) {
    zStartValues();
    zGetReg(store, client);
    EXPECT_EQ(modChess.MainFont, "");
}

TEST_F(Settings, AFreshInstallationHasTheWhiteGraphAndDragModeOn) {
    zStartValues();
    zGetReg(store, client);
    EXPECT_EQ(modChess.SeekWhite, -1);
    EXPECT_EQ(modChess.DragMode, 1);
}

TEST_F(Settings, DragModeZeroAndSeekColorOneGiveConsoleColoursWithDragModeOn) {
    stored("Drag_Mode", "0");
    stored("Seek_Color", "1");
    zGetReg(store, client);
    EXPECT_EQ(modChess.SeekWhite, 0);
    EXPECT_EQ(modChess.DragMode, 1);
}

TEST_F(Settings, TheCrossedPairIsWrittenCrossed) {
    modChess.SeekWhite = -1;
    modChess.DragMode = 0;
    zSaveReg(store, client);
    EXPECT_EQ(written("Drag_Mode"), "-1");
    EXPECT_EQ(written("Seek_Color"), "0");
}

TEST_F(Settings, RegistryOkIsWrittenFirstAndAlwaysYes) {
    modChess.RegistryState = "No";
    zSaveReg(store, client);
    EXPECT_EQ(values->keysWritten.front(), "Registry_OK");
    EXPECT_EQ(written("Registry_OK"), "Yes");
    EXPECT_EQ(values->syncs, 1);
}

TEST_F(Settings, OnlyTheExactWordYesCountsAsWritten) {
    for (const char* text : {"No", "yes", "YES", "Yes ", ""}) {
        modChess.RegistryState = text;
        EXPECT_FALSE(registryWritten()) << text;
    }
    modChess.RegistryState = "Yes";
    EXPECT_TRUE(registryWritten());
}

TEST_F(Settings, TheFirstFailureStopsTheReadingAndTheRestKeepsItsValue) {
    zStartValues();
    stored("Handle", "fred");
    stored("Color_Background", "black");
    stored("Color_Bar_Backgnd", "5");
    stored("Warn_Time", "99");
    zGetReg(store, client);
    EXPECT_EQ(client.Handle, "fred");
    EXPECT_EQ(modChess.ColorMain, 33023);
    EXPECT_EQ(modChess.ColorBackground, 0xC0FFFF);
    EXPECT_EQ(modChess.ColorBar, 0xC0FFFF);
    EXPECT_EQ(modChess.WarnTime, 10);
    EXPECT_EQ(values->keysRead.back(), "Color_Background");
}

TEST_F(Settings, AnEmptyTextReadAsANumberStopsTheReading) {
    stored("Sound_On", "");
    stored("Warn_Time", "99");
    zGetReg(store, client);
    EXPECT_EQ(values->keysRead.back(), "Sound_On");
    EXPECT_EQ(modChess.WarnTime, 10);
}

TEST_F(Settings, ATickThatIsNeitherWordNorNumberStopsTheReading) {
    stored("Seek_Graph", "-1");
    stored("Auto_Connect", "perhaps");
    zGetReg(store, client);
    EXPECT_TRUE(client.mnuSeekGrf);
    EXPECT_EQ(values->keysRead.back(), "Auto_Connect");
}

TEST_F(Settings, ACoordinateBeyond32767StopsTheReading) {
    stored("Registry_OK", "Yes");
    stored("Left", "99999");
    stored("Top", "150");
    stored("Handle", "fred");
    zGetReg(store, client);
    EXPECT_EQ(modChess.RegistryState, "Yes");
    EXPECT_EQ(client.Left, 0);
    EXPECT_EQ(client.Top, 0);
    EXPECT_EQ(client.Handle, "");
    EXPECT_EQ(values->keysRead.back(), "Left");
}

TEST_F(Settings, ACoordinateThatIsNoNumberStopsTheReading) {
    stored("Left", "150");
    stored("Top", "abc");
    zGetReg(store, client);
    EXPECT_EQ(client.Left, 150);
    EXPECT_EQ(values->keysRead.back(), "Top");
}

TEST_F(Settings, ANumberBeyondItsFieldStopsTheReading) {
    stored("Sound_Move", "40000");
    stored("Warn_Time", "99");
    zGetReg(store, client);
    EXPECT_EQ(modChess.SoundMove, 3);
    EXPECT_EQ(modChess.WarnTime, 10);
}

TEST_F(Settings, CoordinatesAreRoundedHalfToEven) {
    stored("Left", "12.5");
    stored("Top", "13.5");
    zGetReg(store, client);
    EXPECT_EQ(client.Left, 12);
    EXPECT_EQ(client.Top, 14);
}

TEST_F(Settings, CoordinatesAreWrittenAsTextOfASinglePrecisionNumber) {
    client.Left = 12.5F;
    client.Top = -30;
    client.Width = 38400;
    zSaveReg(store, client);
    EXPECT_EQ(written("Left"), "12.5");
    EXPECT_EQ(written("Top"), "-30");
    EXPECT_EQ(written("Width"), "38400");
}

TEST_F(Settings, AnAbsentSizeIsTheDesignedSize) {
    stored("Width", "7000");
    zGetReg(store, client);
    EXPECT_EQ(client.Width, 7000);
    EXPECT_EQ(client.Height, 6000);
}

TEST_F(Settings, AnEmptyButWrittenTextIsNotAbsent) {
    modChess.ServerIP = "1.2.3.4";
    stored("IP", "");
    zGetReg(store, client);
    EXPECT_EQ(modChess.ServerIP, "");
}
