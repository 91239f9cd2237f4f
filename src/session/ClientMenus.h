// The menus of the console window.
#pragma once

#include <array>

class QAction;
class QMenuBar;

// Made once by `build`; every entry is owned by the menu bar and lives as long as the window.
struct ClientMenus {
    // The server profiles: 0 "&BCC" (not shown), 1 "&FICS", 2 "Other", 3 "TimeSeal", 4 "ICC" (both unavailable).
    std::array<QAction*, 5> mnuConnect{};
    QAction* mnuUseTS = nullptr;
    QAction* mnuAutoCon = nullptr;
    QAction* mnuAutoLogon = nullptr;
    QAction* mnuClose = nullptr;
    QAction* mnuExit = nullptr;

    QAction* mnuBlocked = nullptr;
    QAction* mnuStupid = nullptr; // Verbose Mode: lines that were read by a board or a panel stay on the console
    QAction* mnuClear = nullptr;
    QAction* mnuXP = nullptr;

    QAction* mnuBoard = nullptr; // unavailable as long as a board is open
    QAction* mnuSeekGrf = nullptr;
    QAction* mnuMatch = nullptr;
    QAction* mnuChat = nullptr;
    QAction* mnuHistory = nullptr;
    QAction* mnuVars = nullptr;
    QAction* mnuNotes = nullptr;
    QAction* mnuOptions = nullptr;
    QAction* mnuHelp = nullptr;
    QAction* mnuTest = nullptr;
    QAction* mnuAbout = nullptr;

    // Fills `bar`.
    void build(QMenuBar& bar);
};
