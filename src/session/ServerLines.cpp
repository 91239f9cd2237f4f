// Cuts one batch of server text into lines.
#include "session/ServerLines.h"

#include <algorithm>

namespace {

constexpr auto None = std::string_view::npos;

// Where the next line ends, as offsets from 0, `None` for an ending that is not there.
struct Ending {
    std::size_t feed;
    std::size_t carriageReturn;

    std::size_t cut() const { return std::min(feed, carriageReturn); }
    bool found() const { return cut() != None; }
    bool paired() const {
        return feed != None && carriageReturn != None && std::max(feed, carriageReturn) - cut() == 1;
    }
};

// `feed` is the place of the next LF, known from the line before. A CR further than one behind it changes nothing, so
// the search for the CR stops there and no byte is looked at more than twice.
Ending nextEnding(std::string_view text, std::size_t position, std::size_t feed) {
    const std::size_t reach = feed == None ? None : feed + 2 - position;
    const std::size_t place = text.substr(position, reach).find('\r');
    return {feed, place == None ? None : position + place};
}

bool beginsWithControl(std::string_view piece) {
    return !piece.empty() && static_cast<unsigned char>(piece.front()) < 32;
}

} // namespace

int ServerLines::zParse(std::string_view text) {
    std::size_t position = 0;
    std::size_t feed = text.find('\n');
    int count = 0;
    do {
        if (feed != None && feed < position) feed = text.find('\n', position);
        const Ending ending = nextEnding(text, position, feed);
        std::string_view piece = text.substr(position, ending.found() ? ending.cut() - position : None);
        if (beginsWithControl(piece)) piece = {};
        std::string& line = lines[count];
        line.assign(piece);
        ++count;
        if (!ending.found()) {
            PartialLine.assign(piece);
            tailSeen();
            return count;
        }
        line.append("\r\n", 2);
        position = ending.cut() + (ending.paired() ? 2 : 1);
    } while (position < text.size());
    return count;
}

void ServerLines::zClearLines(long index) {
    if (verbose || index < 0 || index > Last) return;
    lines[index].clear();
}
