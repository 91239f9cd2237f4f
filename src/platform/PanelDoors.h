// The ways to the panels that every window's menu leads to.
#pragma once

#include "common/Needed.h"

class QWidget;

// Given to the console and to the boards by whoever knows the windows; each shows its window, or brings the one that is
// open to the front. Every member must be given.
struct PanelDoors {
    Needed<void()> showVars;                          // frmICSVars
    Needed<void()> showNotes;                         // frmNotes
    Needed<void()> showOptions;                       // frmOptions
    Needed<void()> showHelp;                          // frmChessHelp
    Needed<void()> startHelp;                         // the same, and it takes modChess.gHelpTopic
    Needed<void(const QWidget* board)> showSelfCheck; // frmSelfCheck, a new one beside `board`
};
