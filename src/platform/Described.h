// What assistive tools are told of widgets that show a text or a picture of their own.
#pragma once

#include <QAccessible>
#include <QString>

#include <functional>

class QWidget;

// From now on assistive tools find `widget` in this role and by this name, and `text` as its description, asked for
// anew each time: a text that changes is there to be read and says nothing by itself. Once, before they have heard of
// it.
void describe(QWidget* widget, QAccessible::Role role, const QString& name, std::function<QString()> text);

// From now on assistive tools find `window`, which is neither main window nor dialog, as a window and not as a part of
// one; by its title. Once, before they have heard of it.
void describeWindow(QWidget* window);

// Tells assistive tools that the description of a widget has changed: that is worth hearing. A test puts its own in.
extern std::function<void(QWidget* widget)> announceDescription;
