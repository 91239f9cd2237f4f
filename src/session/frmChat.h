// A chat box: a small window for the talk with one buddy or on one channel.
#pragma once

#include "common/Needed.h"
#include "platform/Console.h"
#include "platform/TypingLine.h"
#include "session/ChatBox.h"
#include "settings/SettingsStore.h"
#include "settings/WindowPlacer.h"

#include <QTimer>
#include <QWidget>

// What a box needs of the rest of the program; outlives it. Every member must be given.
struct ChatRoads {
    SettingsStore store; // section "Chat"
    // F1 was pressed.
    Needed<void()> showHelp;
};

// In openWindows from its construction until it closes; deletes itself after closing, which may happen whenever the
// message loop is pumped.
class frmChat : public QWidget {
    Q_OBJECT
public:
    // `road` and `roads` must outlive the window.
    frmChat(ServerRoad& road, const ChatRoads& roads);
    ~frmChat() override;

    // Places and shows the window; a moment later it asks whom it is for.
    void load();
    // Takes the colours of the options and the font of the console's command line.
    void takeColors();
    // Where it stands, in twips; of one that is not loaded see `startPlace`.
    WindowPlace place() const { return placer_.place(); }
    // The start values of a box's place: 0, 0 and the designed size, in twips.
    static WindowPlace startPlace();

    ChatBox box;

protected:
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    ChatHooks hooks();
    void connectKeys();
    void loadPlace();
    void askForBuddy();

    const ChatRoads& roads_;
    WindowPlacer placer_{this};
    Console* txtChat = nullptr;
    TypingLine* txtTell = nullptr;
    QTimer tmrStart_{this}; // to be found by its name
};
