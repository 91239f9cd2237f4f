// What assistive tools read of a widget, and when they are told of a change.
#include "platform/Described.h"

#include "platform/Spoken.h"

#include <QWidget>

#include <gtest/gtest.h>

TEST(Described, TheDescriptionIsAskedForAnewEachTime) {
    QWidget widget;
    QString text = QStringLiteral("1:00");
    describe(&widget, QAccessible::StaticText, QStringLiteral("Clock"), [&text] { return text; });
    EXPECT_EQ(spokenText(widget, QAccessible::Description), QStringLiteral("1:00"));
    text = QStringLiteral("0:59");
    EXPECT_EQ(spokenText(widget, QAccessible::Description), QStringLiteral("0:59"));
    EXPECT_EQ(spokenText(widget, QAccessible::Name), QStringLiteral("Clock"));
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&widget)->role(), QAccessible::StaticText);
}

TEST(Described, ATextThatChangesIsKeptNowhereThatWouldSayIt) {
    QWidget widget;
    describe(&widget, QAccessible::StaticText, QString(), [] { return QStringLiteral("0:59"); });
    EXPECT_EQ(widget.accessibleDescription(), QString()) << "setting it announces it";
}

TEST(Described, AWindowIsFoundAsOneByItsTitle) {
    QWidget window;
    window.setWindowTitle(QStringLiteral("Seeks"));
    describeWindow(&window);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&window)->role(), QAccessible::Window);
    EXPECT_EQ(spokenText(window, QAccessible::Name), QStringLiteral("Seeks"));
}
