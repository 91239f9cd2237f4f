// A label whose text must not widen its window.
#include "platform/ElidedLabel.h"

#include <QCoreApplication>
#include <QHelpEvent>
#include <QImage>

#include <gtest/gtest.h>

namespace {

struct ElidedLabelTest : testing::Test {
    QWidget window;
    ElidedLabel label{&window};

    ElidedLabelTest() { label.resize(60, 20); }

    // The tool tip that the label has when it is asked for one.
    QString tipOf(const QString& text) {
        label.setText(text);
        QHelpEvent ask(QEvent::ToolTip, QPoint(1, 1), QPoint(1, 1));
        QCoreApplication::sendEvent(&label, &ask);
        return label.toolTip();
    }
    QImage shown(const QString& text) {
        label.setText(text);
        return label.grab().toImage();
    }
};

} // namespace

TEST_F(ElidedLabelTest, ALongTextAsksForNoMoreRoomThanAShortOne) {
    label.setText(QString(500, u'x'));
    EXPECT_EQ(label.minimumSizeHint().width(), 0);
    EXPECT_EQ(label.sizePolicy().horizontalPolicy(), QSizePolicy::Ignored);
}

TEST_F(ElidedLabelTest, WhatIsCutOffIsNotPaintedAndStandsInTheToolTip) {
    const QString cut = QStringLiteral("White to move and ");
    EXPECT_EQ(shown(cut + QStringLiteral("win")), shown(cut + QStringLiteral("draw, of all things")));
    EXPECT_NE(shown(QStringLiteral("a")), shown(QStringLiteral("b")));
    EXPECT_EQ(tipOf(cut), cut);
}

TEST_F(ElidedLabelTest, ATextThatFitsHasNoToolTip) {
    tipOf(QString(500, u'x'));
    EXPECT_EQ(tipOf(QStringLiteral("ok")), QString());
}

TEST_F(ElidedLabelTest, ServerTextIsNeverMarkup) {
    for (const char* text : {"<b>a text that is too long</b>", "Anders & Berta &amp; &lt;b&gt; and more of it"}) {
        EXPECT_EQ(tipOf(QString::fromLatin1(text)), QString::fromLatin1(text));
    }
}
