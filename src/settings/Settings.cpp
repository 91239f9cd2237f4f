// Reading and writing of the section Client.
#include "settings/Settings.h"

#include "common/modChess.h"
#include "settings/ClientKeys.h"

namespace {

void startColours() {
    modChess.ColorBackground = 0xC0FFFF;
    modChess.ColorBar = 0xC0FFFF;
    modChess.ColorMain = 0;
    modChess.ColorTell = 255;
    modChess.ColorCopy = 0xFF0000;
    modChess.ColorType = 0;
    modChess.ColorShout = 0x800080;
    modChess.ColorBlack = 0x2E83BC;
    modChess.ColorWhite = 0xCDEAF1;
    modChess.ColorMove = 255;
    modChess.ColorPreMove = 0x00FF00;
}

void startSounds() {
    modChess.SoundMove = 3;
    modChess.SoundArrive = 1;
    modChess.SoundStart = 3;
    modChess.SoundTell = 3;
    modChess.SoundOn = 1;
}

void startOptions() {
    modChess.ServerIP = DefaultServerIP;
    modChess.ServerPort = 5000;
    modChess.PreMoveOK = 0;
    modChess.AutoQueen = 0;
    modChess.ConfirmResign = 1;
    modChess.MouseSlip = 0;
    modChess.DragMode = 1;
    modChess.SeekOff = 1;
    modChess.SeekWhite = 0;
}

} // namespace

void zStartValues() {
    startColours();
    startSounds();
    startOptions();
}

void zGetReg(const SettingsStore& store, ClientSettings& client) {
    passOver([&] {
        for (const ClientKey& key : clientKeys()) {
            const std::string fallback = key.fallbackIsHeld ? heldText(key, client) : key.fallback;
            takeText(key, store.read(ClientSection, key.name, fallback), client);
        }
    });
}

void zSaveReg(const SettingsStore& store, const ClientSettings& client) {
    for (const ClientKey& key : clientKeys()) {
        const bool state = key.name == "Registry_OK";
        store.write(ClientSection, key.name, state ? "Yes" : heldText(key, client));
    }
    store.sync();
}

bool registryWritten() { return modChess.RegistryState == "Yes"; }
