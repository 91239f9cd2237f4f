// Text of the stream on the screen, and typed text as bytes of the stream.
#pragma once

#include <QString>

#include <string>
#include <string_view>

// `bytes`, one character a byte, as Latin-1 shows them; every byte counts, NUL too.
inline QString shownText(std::string_view bytes) {
    return QString::fromLatin1(bytes.data(), static_cast<qsizetype>(bytes.size()));
}

// The inverse; what Latin-1 does not hold becomes "?".
inline std::string bytesOf(const QString& text) { return text.toLatin1().toStdString(); }
