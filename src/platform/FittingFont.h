// Fonts for words that change often: no larger than the room that they have, and quick to lay out.
#pragma once

#include <QFont>
#include <QSize>
#include <QString>

// `font` without kerning and ligatures, whose lines take a fraction of the time to lay out.
QFont unshaped(QFont font);

// `font` unshaped, or the largest smaller size in which a line of `text` takes no more than `room` (pixels). Never
// below 5 pixels.
QFont fittingFont(QFont font, const QString& text, QSize room);

// The same for lines of any length.
QFont fittingFont(QFont font, int height);
