// Tool tips of texts without an end, or without a blank.
#include "platform/TipText.h"

#include "platform/CellTips.h"
#include "platform/ElidedLabel.h"
#include "platform/ShownTip.h"
#include "platform/WaitUntil.h"

#include <QCoreApplication>
#include <QScreen>
#include <QTableWidget>

#include <gtest/gtest.h>

namespace {

const QString Endless(10000, u'W');

// The tool tip on the screen, in large letters, is one that can be read whole.
void expectOnScreen(const QLabel* tip) {
    ASSERT_NE(tip, nullptr);
    const QRect screen = tip->screen()->availableGeometry();
    EXPECT_TRUE(screen.contains(tip->geometry())) << tip->width() << " x " << tip->height();
    EXPECT_GE(tip->text().count(u'W'), 400) << "enough of it is shown";
}

struct TipText : testing::Test {
    const QFont before = QToolTip::font();
    QWidget window;

    TipText() {
        QFont large = before;
        large.setPointSize(20);
        QToolTip::setFont(large);
        window.resize(100, 100);
        window.show();
    }
    ~TipText() override {
        QToolTip::hideText();
        EXPECT_TRUE(waitUntil([] { return shownTip() == nullptr; }));
        QToolTip::setFont(before);
    }
};

void askForTip(QWidget& widget, QPoint at) {
    QHelpEvent ask(QEvent::ToolTip, at, widget.mapToGlobal(at));
    QCoreApplication::sendEvent(&widget, &ask);
}

} // namespace

TEST_F(TipText, ThatFitsIntoALineIsThatText) {
    const QString words = QStringLiteral("Berta (1540) seeks blitz 15 0 rated    0-9999");
    EXPECT_EQ(tipText(words), words);
    EXPECT_EQ(tipText(QString()), QString());
}

TEST_F(TipText, IsBrokenBehindABlankAndWithinAWordOnlyWhereThereIsNone) {
    const QString words = QStringLiteral("word after ").repeated(30);
    const QStringList lines = tipText(words).split(u'\n');
    EXPECT_GT(lines.size(), 2);
    EXPECT_EQ(lines.join(QString()), words);
    for (const QString& line : lines) EXPECT_TRUE(line.endsWith(u' ')) << line.toStdString();
    EXPECT_EQ(tipText(QString(400, u'W')).remove(u'\n'), QString(400, u'W'));
    EXPECT_GT(tipText(QString(400, u'W')).count(u'\n'), 2);
}

TEST_F(TipText, OfATextWithoutAnEndIsItsFront) { EXPECT_EQ(tipText(Endless).count(u'W'), 500); }

TEST_F(TipText, OfACutLabelStaysOnTheScreen) {
    ElidedLabel label(&window);
    label.resize(60, 20);
    label.setText(Endless);
    label.show();
    askForTip(label, {1, 1});
    expectOnScreen(shownTip());
}

TEST_F(TipText, OfACutCellStaysOnTheScreen) {
    QTableWidget table(1, 1, &window);
    table.setItemDelegate(new CellTips(&table));
    table.setItem(0, 0, new QTableWidgetItem(Endless));
    table.show();
    askForTip(*table.viewport(), table.visualItemRect(table.item(0, 0)).center());
    expectOnScreen(shownTip());
}
