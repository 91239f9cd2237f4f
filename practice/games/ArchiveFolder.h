// The archive in a folder, so that it outlives the server.
#pragma once

#include "practice/games/Archive.h"

#include <filesystem>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace practice {

// Each game is a file of its own, "game-12", written once; the file "index" says who has which, and is replaced as a
// whole, so that the folder always holds one state or the next:
//
//     next rookery 1
//     history rookery 0 game-1
//     journal rookery 1 game-1
//     adjourned game-4
//
// "next" has the number that a player's next game will have, "history" and "journal" the number or slot of one. A file
// whose game nobody has any more goes; others in the folder are left alone.
class ArchiveFolder {
public:
    // Reads the folder, which is made if it is not there, into an empty archive. Gives the complaint of what cannot be
    // read or written, empty if all went well; what could be read is in the archive then.
    std::string open(const std::filesystem::path& folder, Archive& archive);

    // Writes what has changed; gives a complaint as `open` does.
    std::string save(const Archive& archive);

private:
    KeptGamePtr gameIn(const std::string& file);
    std::string readIndex(Archive& archive);
    bool readLine(const std::vector<std::string>& line, Archive& archive);
    bool writeGames(const std::set<KeptGamePtr>& games);
    bool writeIndex(const Archive& archive) const;

    std::filesystem::path folder_;
    std::map<std::string, KeptGamePtr> read_; // by file, while an index is read
    std::map<KeptGamePtr, int> numbers_;      // of the files
    int last_ = 0;                            // the highest number that was ever used
};

} // namespace practice
