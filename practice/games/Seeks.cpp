// Seek ads: the list of open ads and their texts.
#include "practice/games/Seeks.h"

#include "practice/text/Text.h"

namespace practice {

int SeekTable::post(const Seek& seek) {
    if (open.size() >= limit) return 0;
    return open.emplace(lowestFree(open), seek).first->first;
}

int SeekTable::removeOwner(const std::string& owner) {
    return static_cast<int>(std::erase_if(open, [&](const auto& entry) { return entry.second.owner == owner; }));
}

int SeekTable::countOf(const std::string& owner) const {
    int count = 0;
    for (const auto& [index, seek] : open) count += seek.owner == owner ? 1 : 0;
    return count;
}

std::string announcement(int number, const Seek& seek) {
    const Terms& terms = seek.terms;
    std::string text = seek.owner + seek.title + " (" + seek.rating + ") seeking " + std::to_string(terms.minutes) +
                       " " + std::to_string(terms.increment) + " " + ratedText(terms) + " " + kindText(terms);
    if (terms.colour != WantedColour::Any) text += " " + colourText(terms);
    if (terms.manual) text += " m";
    if (terms.formula) text += " f";
    return text + " (\"play " + std::to_string(number) + "\" to respond)";
}

// "  2 1711 Willow(C)          15  10 unrated standard               0-9999 "; clients read this by columns.
std::string soughtRow(int number, const Seek& seek) {
    const Terms& terms = seek.terms;
    return padLeft(number, 3) + " " + seek.rating + " " + padRight(seek.owner + seek.title, 17) + " " +
           padLeft(terms.minutes, 3) + " " + padLeft(terms.increment, 3) + " " + padRight(ratedText(terms), 7) + " " +
           padRight(kindText(terms), 10) + " " + padRight(colourText(terms), 7) + " " + padLeft(terms.lowest, 5) + "-" +
           padRight(std::to_string(terms.highest), 4) + " " + (terms.manual ? "m" : "") + (terms.formula ? "f" : "");
}

// Clients find the end of the list by the words of its last line.
std::string soughtTable(const SeekTable& table) {
    std::string text;
    for (const auto& [number, seek] : table.open) text += soughtRow(number, seek) + "\n";
    return text + counted(static_cast<int>(table.open.size()), "ad") + " displayed.";
}

} // namespace practice
