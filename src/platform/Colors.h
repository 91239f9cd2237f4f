// Colours as the program keeps them, turned into the window system's at the moment of painting.
#pragma once

#include <QColor>
#include <QObject>
#include <QString>

#include <cstdint>

// The colour of a 0xBBGGRR value; bits above the 24 are ignored.
inline QColor colorOf(std::int32_t value) { return {value & 0xFF, (value >> 8) & 0xFF, (value >> 16) & 0xFF}; }

// The 0xBBGGRR value of a colour.
inline std::int32_t colorValue(const QColor& color) { return color.red() | color.green() << 8 | color.blue() << 16; }

// The same to be read aloud.
inline QString colorInWords(std::int32_t value) {
    const QColor parts = colorOf(value);
    return QObject::tr("red %1, green %2, blue %3").arg(parts.red()).arg(parts.green()).arg(parts.blue());
}
