// A whole console window that starts in a folder where a relay may lie.
#pragma once

#include "session/ClientRig.h"
#include "session/RelayFolder.h"

#include <QTemporaryDir>

class BridgeRig : public ClientRig {
protected:
    BridgeRig() { QDir::setCurrent(folder.path()); }
    ~BridgeRig() override {
        client.reset();
        QDir::setCurrent(startFolder);
    }

    // The window's own server is `loopback`, TimeSeal is ticked, and the waits of a start end as soon as a relay has
    // opened its port.
    void startWithBridge() {
        set("Use_Timeseal", "True");
        start();
        client->session.connection.bridge.hooks.wait = [this](double) {
            waitUntil([this] { return relay.hasNoted("ready"); }, 200);
        };
    }
    bool connectedThroughRelay() {
        relay.put();
        startWithBridge();
        client->session.connection.mnuConnectClick(0);
        return waitUntil([this] { return loopback.hasClient() && socketState() == 7; });
    }

private:
    QString startFolder = QDir::currentPath();
    QTemporaryDir folder;

protected:
    RelayFolder relay{folder.path()};
};
