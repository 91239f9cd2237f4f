// Lines of the server's table of seeks, in its columns.
#pragma once

#include <string>

// One ad; the start values are those of a line that is accepted.
struct SoughtLine {
    std::string number = "12";
    std::string rating = "1711";
    std::string name = "GUILTYKING";
    std::string time = "2";
    std::string inc = "0";
    std::string rated = "rated";
    std::string type = "blitz";
    std::string range = "   0-9999 ";

    static std::string right(const std::string& text, std::size_t width) {
        return text.size() < width ? std::string(width - text.size(), ' ') + text : text;
    }
    static std::string left(const std::string& text, std::size_t width) {
        return text.size() < width ? text + std::string(width - text.size(), ' ') : text;
    }

    //  12 1711 GUILTYKING          2   0 rated   crazyhouse             0-9999
    std::string bare() const {
        return right(number, 3) + " " + left(rating, 4) + " " + left(name, 18) + right(time, 3) + " " + right(inc, 3) +
               " " + left(rated, 8) + left(type, 20) + range;
    }
    // As the classifier gets it, and as it comes over the wire.
    std::string text() const { return bare() + "\r\n"; }
    std::string wire() const { return bare() + "\n\r"; }
};
