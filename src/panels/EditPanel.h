// What the panels of variables and of notes have in common: their place, their question, and their three buttons.
#pragma once

#include "panels/ChangeRoad.h"
#include "panels/PanelRequest.h"
#include "panels/PanelRoads.h"
#include "platform/InFront.h"
#include "platform/LoadedWindow.h"
#include "settings/WindowPlacer.h"
#include "settings/WindowSettings.h"

#include <QDialog>
#include <QTimer>

#include <functional>

class QLayout;

// How one panel differs from the other.
struct EditPanelKind {
    const WindowSection& section;
    void (*ask)(const PanelRequestHooks& hooks);
};

// A part of one window, which is in openWindows under its object name from `load` until `unload`. The question waits
// for its turn in the message loop, never where it is asked for.
class EditPanel {
public:
    EditPanel(QDialog* window, const PanelRoads& roads, const EditPanelKind& kind);
    ~EditPanel();
    EditPanel(const EditPanel&) = delete;
    EditPanel& operator=(const EditPanel&) = delete;

    // "OK", which is the default, "Current" and "Cancel". `changes` gives what sends the changes as they stand.
    using Sender = std::function<void(const ChangeRoad& road)>;
    QLayout* buttons(std::function<Sender()> changes, const std::function<void()>& current);

    // Puts the window in its place, and asks.
    void load();
    void ask() { askTimer_.start(0); }
    // Of the window's close; writes its place. A second time it does nothing.
    void unload();

    WindowPlace place() const { return placer_.place(); }

private:
    void request();
    void sendAndClose(const Sender& sender);

    QDialog* window_;
    const PanelRoads& roads_;
    const EditPanelKind& kind_;
    WindowPlacer placer_;
    QTimer askTimer_;
    int requests_ = 0;
    bool closed_ = false;
};

// The loaded panel of the class; a new one, not shown, if none is. It asks once it is loaded.
template <typename Panel>
Panel& loadedPanel(const PanelRoads& roads) {
    if (auto* panel = loadedWindow<Panel>()) return *panel;
    auto* panel = new Panel(roads); // deletes itself after closing
    panel->load();
    return *panel;
}

// Opens the panel, which asks, or brings the one that is open to the front. One that was loaded by an answer and never
// shown asks anew.
template <typename Panel>
Panel& showPanel(const PanelRoads& roads) {
    Panel& panel = loadedPanel<Panel>(roads);
    if (panel.isHidden()) panel.ask();
    bringInFront(panel);
    return panel;
}
