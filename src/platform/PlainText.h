// Texts of others are shown as they are: what looks like markup in them is text.
#pragma once

#include <QEvent>
#include <QLabel>

// Called for each event before its receiver has it. A label would take any text for markup that looks like it; from
// before it is first shown, each label of the process takes it as it is: those of the toolkit's boxes and its tool tip
// too.
inline void keepPlain(QObject& receiver, const QEvent& event) {
    if (event.type() != QEvent::Polish) return;
    if (auto* label = qobject_cast<QLabel*>(&receiver)) label->setTextFormat(Qt::PlainText);
}
