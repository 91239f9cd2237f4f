// The menus of a board window.
#pragma once

class QAction;
class QMenuBar;

// Made once by `build`; every entry lives as long as the window.
struct BoardMenus {
    QAction* mnuNew = nullptr;
    QAction* mnuPGN = nullptr;
    QAction* mnuSavePGN = nullptr;
    QAction* mnuExit = nullptr;
    QAction* mnuInvert = nullptr;
    QAction* mnuClean = nullptr;
    QAction* mnuColors = nullptr;
    QAction* mnuBookup = nullptr;
    QAction* mnuQuorl = nullptr;
    QAction* mnuGNU = nullptr;
    QAction* mnuSeek = nullptr;
    QAction* mnuMatch = nullptr;
    QAction* mnuSeekGrf = nullptr;
    QAction* mnuDraw = nullptr;
    QAction* mnuRes = nullptr;
    QAction* mnuExamine = nullptr;
    QAction* mnuSelfCheck = nullptr; // not shown but with a command line that holds "est"
    QAction* mnuVars = nullptr;
    QAction* mnuNotes = nullptr;
    QAction* mnuOptions = nullptr;
    QAction* mnuHelp = nullptr;
    QAction* mnuAbout = nullptr;
    QAction* mnuExit1 = nullptr;

    // Fills `bar`.
    void build(QMenuBar& bar);
    // Check marks of the piece sets: 0 Bookup, 1 Quorl, any other GNU.
    void checkPieces(int set);
    void zUnCheckPieces();
};
