// Which text the help shows, and that there is one window of it.
#include "platform/HelpFile.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTextBrowser>

#include <gtest/gtest.h>

namespace {

struct HelpFileTest : testing::Test {
    QTemporaryDir folder;
    QString before = QDir::currentPath();
    QWidget window;

    HelpFileTest() { EXPECT_TRUE(QDir::setCurrent(folder.path())); }
    ~HelpFileTest() override { QDir::setCurrent(before); }

    QList<QTextBrowser*> shown() const { return window.findChildren<QTextBrowser*>(); }
};

} // namespace

TEST_F(HelpFileTest, TheFileInTheCurrentDirectoryIsShown) {
    QFile file(folder.filePath(QStringLiteral("Brightrank.hlp")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("# Of our own\n\nRead *this*.\n");
    file.close();
    showHelpFile(&window);
    ASSERT_EQ(shown().size(), 1);
    EXPECT_TRUE(shown().front()->isVisible());
    EXPECT_EQ(shown().front()->toPlainText(), QStringLiteral("Of our own\nRead this."));
}

TEST_F(HelpFileTest, WithoutOneTheProgramsManualIsShown) {
    showHelpFile(&window);
    ASSERT_EQ(shown().size(), 1);
    EXPECT_TRUE(shown().front()->toPlainText().startsWith(QStringLiteral("Manual")));
}

TEST_F(HelpFileTest, AskedForAgainItIsTheSameWindow) {
    showHelpFile(&window);
    showHelpFile(&window);
    EXPECT_EQ(shown().size(), 1);
}
