// Entries of menus.
#include "platform/MenuEntry.h"

#include <QCoreApplication>
#include <QObject>

#include <gtest/gtest.h>

#include <memory>

TEST(MenuEntry, AnEntryThatOpensABoxIsAnsweredBehindItsMenu) {
    QMenu menu;
    QObject window;
    int answers = 0;
    QAction* entry = addEntry(&menu, "mnuAbout", "&About");
    onChosen(entry, &window, [&answers] { ++answers; });
    entry->trigger();
    EXPECT_EQ(answers, 0) << "on the menu's own stack";
    QCoreApplication::processEvents();
    EXPECT_EQ(answers, 1);
}

TEST(MenuEntry, AWindowThatIsGoneAnswersNothing) {
    QMenu menu;
    auto window = std::make_unique<QObject>();
    int answers = 0;
    QAction* entry = addEntry(&menu, "mnuAbout", "&About");
    onChosen(entry, window.get(), [&answers] { ++answers; });
    entry->trigger();
    window.reset();
    QCoreApplication::processEvents();
    EXPECT_EQ(answers, 0);
}
