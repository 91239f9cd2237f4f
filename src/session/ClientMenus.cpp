// The menus of the console window.
#include "session/ClientMenus.h"

#include "platform/HelpFile.h"
#include "platform/MenuEntry.h"

#include <QMenuBar>

namespace {

void buildConnect(ClientMenus& menus, QMenu* menu) {
    static constexpr std::array<const char*, 5> Captions{"&BCC", "&FICS", "Other", "TimeSeal", "ICC"};
    for (std::size_t index = 0; index < Captions.size(); ++index) {
        menus.mnuConnect[index] = addEntry(menu, "mnuConnect", Captions[index]);
        menus.mnuConnect[index]->setData(static_cast<int>(index));
    }
    menus.mnuConnect[0]->setVisible(false);
    menus.mnuConnect[3]->setEnabled(false);
    menus.mnuConnect[4]->setEnabled(false);
    menu->addSeparator();
    menus.mnuUseTS = addTick(menu, "mnuUseTS", "Use TimeSeal");
    menus.mnuUseTS->setChecked(true);
    menus.mnuAutoCon = addTick(menu, "mnuAutoCon", "Auto-&Connect");
    menus.mnuAutoLogon = addTick(menu, "mnuAutoLogon", "Auto-&Logon");
    menu->addSeparator();
    menus.mnuClose = addEntry(menu, "mnuClose", "Close Co&nnection");
    menus.mnuExit = addEntry(menu, "mnuExit", "E&xit");
    menus.mnuExit->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q));
}

void buildConsole(ClientMenus& menus, QMenu* menu) {
    menus.mnuBlocked = addTick(menu, "mnuBlocked", "Block Mode");
    menus.mnuBlocked->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_B));
    menus.mnuStupid = addTick(menu, "mnuStupid", "Verbose &Mode");
    menus.mnuClear = addEntry(menu, "mnuClear", "&Clear Screen");
    menu->addSeparator();
    menus.mnuXP = addTick(menu, "mnuXP", "&Tall Title Bars");
}

void buildWindows(ClientMenus& menus, QMenu* menu) {
    menus.mnuBoard = addEntry(menu, "mnuBoard", "&Board");
    menus.mnuSeekGrf = addTick(menu, "mnuSeekGrf", "&Seek Graph");
    menus.mnuMatch = addEntry(menu, "mnuMatch", "&Match");
    menus.mnuChat = addEntry(menu, "mnuChat", "C&hat");
    menus.mnuHistory = addEntry(menu, "mnuHistory", "H&istory");
    menus.mnuHistory->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_H));
    menu->addSeparator();
    menus.mnuVars = addEntry(menu, "mnuVars", "&Variables");
    menus.mnuNotes = addEntry(menu, "mnuNotes", "&Notes");
    menus.mnuOptions = addEntry(menu, "mnuOptions", "&Options");
}

void buildHelp(ClientMenus& menus, QMenu* menu) {
    QAction* help = addEntry(menu, "mnuBRHelp", "&Brightrank Help");
    help->setShortcut(QKeySequence(Qt::Key_F1));
    onChosen(help, menu, [menu] { showHelpFile(menu->parentWidget()->window()); });
    menus.mnuHelp = addEntry(menu, "mnuHelp", "&FICS Help Panel");
    menu->addSeparator();
    menus.mnuTest = addEntry(menu, "mnuTest", "Resgistry Dump");
    menus.mnuAbout = addEntry(menu, "mnuAbout", "&About");
}

} // namespace

void ClientMenus::build(QMenuBar& bar) {
    buildConnect(*this, bar.addMenu(QStringLiteral("&Connect")));
    buildConsole(*this, bar.addMenu(QStringLiteral("C&onsole")));
    buildWindows(*this, bar.addMenu(QStringLiteral("&Windows")));
    buildHelp(*this, bar.addMenu(QStringLiteral("&Help")));
}
