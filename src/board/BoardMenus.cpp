// The menus of a board window.
#include "board/BoardMenus.h"

#include "platform/HelpFile.h"
#include "platform/MenuEntry.h"

#include <QMenuBar>

namespace {

QMenu* addMenu(QMenuBar& bar, const char* name, const char* caption) {
    QMenu* menu = bar.addMenu(QString::fromLatin1(caption));
    menu->setObjectName(QString::fromLatin1(name));
    return menu;
}

} // namespace

void BoardMenus::build(QMenuBar& bar) {
    QMenu* file = addMenu(bar, "mnuFile", "&File");
    mnuNew = addEntry(file, "mnuNew", "&New Game");
    mnuPGN = addEntry(file, "mnuPGN", "&Read PGN");
    mnuSavePGN = addEntry(file, "mnuSavePGN", "Store &PGN");
    mnuSavePGN->setEnabled(false); // until the board has a record
    file->addSeparator();
    mnuExit = addEntry(file, "mnuExit", "&Exit");

    QMenu* board = addMenu(bar, "mnuBoard", "&Board");
    mnuInvert = addEntry(board, "mnuInvert", "&Flip");
    mnuClean = addEntry(board, "mnuClean", "C&lean");
    mnuColors = addEntry(board, "mnuColors", "&Colors");
    board->addSeparator();
    mnuBookup = addTick(board, "mnuBookup", "Bookup");
    mnuQuorl = addTick(board, "mnuQuorl", "Quorl");
    mnuGNU = addTick(board, "mnuGNU", "GNU");

    QMenu* actions = addMenu(bar, "mnuActions", "&Actions");
    mnuSeek = addEntry(actions, "mnuSeek", "&Seek");
    mnuMatch = addEntry(actions, "mnuMatch", "&Match");
    actions->addSeparator();
    mnuDraw = addEntry(actions, "mnuDraw", "&Draw");
    mnuRes = addEntry(actions, "mnuRes", "&Resign");
    mnuExamine = addEntry(actions, "mnuExamine", "&Eval Player");
    mnuSelfCheck = addEntry(actions, "mnuSelfCheck", "Self &Check");
    mnuSelfCheck->setVisible(false);

    QMenu* panels = addMenu(bar, "mnuIfc", "&Interface");
    mnuSeekGrf = addEntry(panels, "mnuSeekGrf", "&Seek Graph");
    mnuVars = addEntry(panels, "mnuVars", "&Variables");
    mnuNotes = addEntry(panels, "mnuNotes", "&Notes");
    mnuOptions = addEntry(panels, "mnuOptions", "&Options");

    QMenu* help = addMenu(bar, "mnuMHelp", "&Help");
    QAction* manual = addEntry(help, "mnuBRHelp", "&Brightrank Help");
    manual->setShortcut(QKeySequence(Qt::Key_F1));
    onChosen(manual, &bar, [&bar] { showHelpFile(bar.window()); });
    mnuHelp = addEntry(help, "mnuHelp", "&FICS Help Panel");
    help->addSeparator();
    mnuAbout = addEntry(help, "mnuAbout", "&About");
    mnuExit1 = addEntry(help, "mnuExit1", "&Exit");
}

void BoardMenus::zUnCheckPieces() {
    for (QAction* entry : {mnuBookup, mnuQuorl, mnuGNU}) entry->setChecked(false);
}

void BoardMenus::checkPieces(int set) {
    zUnCheckPieces();
    (set == 0 ? mnuBookup : set == 1 ? mnuQuorl : mnuGNU)->setChecked(true);
}
