// Reading and writing of the section Client.
#include "settings/Settings.h"

#include "common/modChess.h"
#include "settings/ClientKeys.h"

void zStartValues() {
    takeStartValues();
    modChess.ServerIP = DefaultServerIP;
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
