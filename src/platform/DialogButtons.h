// The row of buttons at the foot of a dialog.
#pragma once

#include "platform/NamedControl.h"

#include <QBoxLayout>
#include <QPushButton>
#include <QWidget>

#include <utility>

// Adds a button of `dialog` to the row.
template <typename Answer>
QPushButton* addButton(QBoxLayout& row, QWidget* dialog, const char* name, const QString& caption, Answer answer) {
    auto* button = named(new QPushButton(caption, dialog), name);
    QObject::connect(button, &QPushButton::clicked, dialog, std::move(answer));
    row.addWidget(button);
    return button;
}

// To the right: `cmdOK`, which Enter presses, and `cmdCancel`, which closes the dialog.
template <typename Answer>
QBoxLayout* okAndCancel(QWidget* dialog, Answer ok) {
    auto* row = new QHBoxLayout;
    row->addStretch();
    addButton(*row, dialog, "cmdOK", QWidget::tr("OK"), std::move(ok))->setDefault(true);
    addButton(*row, dialog, "cmdCancel", QWidget::tr("Cancel"), [dialog] { dialog->close(); });
    return row;
}
