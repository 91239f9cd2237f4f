// Controls by their prescribed names.
#pragma once

#include <QLabel>
#include <QString>
#include <QWidget>

// Gives `control` its object name, by which tests find it, and gives it back.
template <typename Control>
Control* named(Control* control, const char* name) {
    control->setObjectName(QString::fromLatin1(name));
    return control;
}

// A label with the key that leads to `field`, which is called by its caption.
inline QLabel* labelOf(QWidget* parent, const char* name, const QString& caption, QWidget* field) {
    auto* label = named(new QLabel(caption, parent), name);
    label->setBuddy(field);
    field->setAccessibleName(label->text().remove(u'&'));
    return label;
}
