// Text of the stream on the screen, and typed text as bytes of the stream.
#pragma once

#include <QString>

#include <algorithm>
#include <string>
#include <string_view>

// `bytes`, one character a byte, as Latin-1 shows them; every byte counts, NUL too.
inline QString shownText(std::string_view bytes) {
    return QString::fromLatin1(bytes.data(), static_cast<qsizetype>(bytes.size()));
}

// The same of a text that may be of any length, for one line of a label, a cell or a title: no more of it than any
// screen could show.
inline QString shownStart(std::string_view bytes) {
    constexpr std::size_t Longest = 500; // characters
    return shownText(bytes.substr(0, Longest));
}

// The inverse; what Latin-1 does not hold becomes "?".
inline std::string bytesOf(const QString& text) { return text.toLatin1().toStdString(); }

// The same of a box of one line: a line break that was pasted into it is the blank as which the box shows it.
inline std::string lineOf(const QString& text) {
    std::string line = bytesOf(text);
    std::ranges::replace_if(
        line, [](char c) { return c == '\r' || c == '\n'; }, ' ');
    return line;
}
