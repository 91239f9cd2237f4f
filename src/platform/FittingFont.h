// A font no larger than the room that a text has.
#pragma once

#include <QFont>
#include <QSize>
#include <QString>

// `font`, or the largest smaller size in which a line of `text` takes no more than `room` (pixels). Never below 5
// pixels.
QFont fittingFont(QFont font, const QString& text, QSize room);

// The same for lines of any length.
QFont fittingFont(QFont font, int height);
