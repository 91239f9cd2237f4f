// A whole console window with its options dialog, which test sounds only note.
#pragma once

#include "session/ClientRig.h"
#include "settings/OptionsHand.h"
#include "settings/Sounds.h"

class OptionsRig : public ClientRig {
protected:
    OptionsRig() {
        sounds.wave = [](const QString&) {};
        sounds.beep = [] {};
        roads.doors.showOptions = [this] { frmOptions::showIt(*options); };
    }
    ~OptionsRig() override {
        delete loadedWindow<frmOptions>();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    void begin() {
        start();
        options.emplace(client->optionsRoads(sounds));
    }
    void openOptions() { chooseEntry(entry("mnuOptions")); }
    // The orderly exit, which writes the store.
    void end() {
        client->queryUnload();
        client.reset();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        modChess = {};
        openWindows.windows.clear();
    }

    OptionsHand hand;
    Sounds sounds;
    std::optional<OptionsRoads> options; // of `client`
};
