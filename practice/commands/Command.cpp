// What a command is: its arguments, its routine and its answer.
#include "practice/commands/Command.h"

#include "practice/text/Text.h"

namespace practice {

Answer noSuchPlayer(const std::string& word) { return {"There is no player matching the name " + word + "."}; }

Answer notOnline(const std::string& word) { return {"No player named \"" + word + "\" is online."}; }

std::string Arguments::restBehindFirst() const {
    return words.empty() ? std::string() : trim(rest.substr(words[0].size()));
}

} // namespace practice
