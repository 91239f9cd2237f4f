// The lines that a console shows, and those that the rules show or not by what else is in their batch.
#pragma once

#include "common/Text.h"
#include "session/Messages.h"
#include "session/ServerLines.h"
#include "session/TellLine.h"

#include <algorithm>
#include <iterator>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

// The lines that the console shows, in any order; where a prompt stood decides nothing.
inline std::multiset<std::string> shownLines(std::string text) {
    std::multiset<std::string> lines;
    for (auto at = text.find("fics% "); at != text.npos; at = text.find("fics% ")) text.replace(at, 6, "\r\n");
    std::replace(text.begin(), text.end(), '\r', '\n');
    std::istringstream rest(text);
    for (std::string line; std::getline(rest, line);) {
        if (!line.empty()) lines.insert(line);
    }
    return lines;
}

// The lines that the rules show or not by what else is in their batch. Behind a tell, and behind "backs up" or "goes
// forward", one line is taken for the prompt; if the prompt has gone already, with a record, that is the next line that
// is left. Short lines are taken for prompts where holdings come. And a line that begins with a control character is
// dropped, but with a prompt in front of it it does not begin with it. Behind the result of a list of moves two lines
// go.
class LinesByBatch {
public:
    explicit LinesByBatch(const std::string& stream) : holdings_(contains(stream, "<b1>")) {
        int taking = 0; // messages in which a line may be taken
        for (const std::string_view message : messagesOf(stream)) {
            const bool takes = takesLine(message);
            const bool lostInFront = takes && beginsWithControl(message); // but with a prompt it takes a line
            if (taking-- > 0 || lostInFront) byBatch_.merge(shownLines(std::string(message)));
            if (takes) taking = 2;
        }
    }
    bool contain(const std::string& line) const {
        const bool isShort = holdings_ && line.size() <= 6;
        return isShort || byBatch_.contains(line) || beginsWithControl(line);
    }

private:
    static bool beginsWithControl(std::string_view text) { return static_cast<unsigned char>(text[0]) < ' '; }
    static bool takesLine(std::string_view message) {
        ServerLines lines;
        const int count = lines.zParse("fics% " + std::string(message)); // as behind a prompt in its batch
        for (int i = 0; i < count; ++i) {
            const std::int16_t type = zTellLine(lines[i]);
            if (type == PersonalTell || type >= ChannelTell) return true;
        }
        return contains(message, "\r      {") || contains(message, "backs up") || contains(message, "goes forward");
    }

    std::multiset<std::string> byBatch_;
    bool holdings_;
};

inline std::vector<std::string> missingIn(const std::multiset<std::string>& some,
                                          const std::multiset<std::string>& from) {
    std::vector<std::string> missing;
    std::ranges::set_difference(from, some, std::back_inserter(missing));
    return missing;
}
