// Seek ads: the list of open ads and their texts.
#include "practice/games/Seeks.h"

#include "practice/text/Text.h"

namespace practice {

namespace {

// Clients read the name from 18 columns, the last of which is the gap behind shorter ones, and look for what follows
// one column further on when all are taken.
constexpr std::size_t nameColumns = 17;

std::string nameCell(const Seek& seek) {
    const std::string marked = seek.owner + seek.title;
    return padRight(marked.size() > nameColumns + 1 ? seek.owner : marked, nameColumns);
}

// A guest is known by his rating here.
std::string announcedName(const Seek& seek) { return seek.owner + (seek.title == "(U)" ? "" : seek.title); }

} // namespace

int SeekTable::post(const Seek& seek) {
    if (open.size() >= limit) return 0;
    do {
        lastNumber = lastNumber % highestNumber + 1;
    } while (open.contains(lastNumber));
    open.emplace(lastNumber, seek);
    return lastNumber;
}

int SeekTable::removeOwner(const std::string& owner) {
    return static_cast<int>(std::erase_if(open, [&](const auto& entry) { return entry.second.owner == owner; }));
}

std::vector<int> SeekTable::numbersOf(const std::string& owner) const {
    std::vector<int> numbers;
    for (const auto& [number, seek] : open) {
        if (seek.owner == owner) numbers.push_back(number);
    }
    return numbers;
}

std::string announcement(int number, const Seek& seek) {
    const Terms& terms = seek.terms;
    std::string text = announcedName(seek) + " (" + seek.rating + ") seeking " + std::to_string(terms.minutes) + " " +
                       std::to_string(terms.increment) + " " + ratedText(terms) + " " + kindText(terms);
    if (terms.colour != WantedColour::Any) text += " " + colourText(terms);
    if (terms.manual) text += " m";
    if (terms.formula) text += " f";
    return text + " (\"play " + std::to_string(number) + "\" to respond)";
}

// "  2 1711 Willow(C)          15  10 unrated standard               0-9999 "; clients read this by columns.
std::string soughtRow(int number, const Seek& seek) {
    const Terms& terms = seek.terms;
    return padLeft(number, 3) + " " + seek.rating + " " + nameCell(seek) + " " + padLeft(terms.minutes, 3) + " " +
           padLeft(terms.increment, 3) + " " + padRight(ratedText(terms), 7) + " " + padRight(kindText(terms), 10) +
           " " + padRight(colourText(terms), 7) + " " + padLeft(terms.lowest, 5) + "-" +
           padRight(std::to_string(terms.highest), 4) + " " + (terms.manual ? "m" : "") + (terms.formula ? "f" : "");
}

// Clients find the end of the list by the words of its last line.
std::string soughtTable(const SeekTable& table) {
    std::string text;
    for (const auto& [number, seek] : table.open) text += soughtRow(number, seek) + "\n";
    return text + counted(static_cast<int>(table.open.size()), "ad") + " displayed.";
}

} // namespace practice
