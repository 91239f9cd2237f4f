// The archive in a folder, so that it outlives the server.
#include "practice/games/ArchiveFolder.h"

#include "practice/games/KeptGameText.h"
#include "practice/text/Text.h"

#include <algorithm>
#include <fstream>
#include <sstream>
#include <system_error>

namespace practice {

namespace fs = std::filesystem;

namespace {

const std::string filePrefix = "game-";

std::string fileOf(int number) { return filePrefix + std::to_string(number); }

// The number of a game's file; 0 for any other name.
int numberOf(const std::string& file) {
    return file.starts_with(filePrefix) ? number(file.substr(filePrefix.size())).value_or(0) : 0;
}

bool writeWhole(const fs::path& path, const std::string& text) {
    const fs::path draft = path.string() + ".new";
    {
        std::ofstream out(draft, std::ios::binary | std::ios::trunc);
        out << text;
        if (!out.flush()) return false;
    }
    std::error_code failed;
    fs::rename(draft, path, failed);
    return !failed;
}

// All games that somebody has.
std::set<KeptGamePtr> gamesIn(const Archive& archive) {
    std::set<KeptGamePtr> games(archive.adjourned.begin(), archive.adjourned.end());
    for (const auto& [name, shelf] : archive.shelves) {
        for (const auto& entry : shelf.games) games.insert(entry.second);
    }
    for (const auto& [name, journal] : archive.journals) games.insert(journal.begin(), journal.end());
    games.erase(nullptr);
    return games;
}

} // namespace

std::string ArchiveFolder::open(const fs::path& folder, Archive& archive) {
    folder_ = folder;
    std::error_code failed;
    fs::create_directories(folder_, failed);
    if (failed) return "cannot make " + folder_.string();
    for (const auto& entry : fs::directory_iterator(folder_, failed)) {
        last_ = std::max(last_, numberOf(entry.path().filename().string()));
    }
    const std::string complaint = fs::exists(folder_ / "index") ? readIndex(archive) : std::string();
    read_.clear();
    return complaint.empty() ? save(archive) : complaint;
}

KeptGamePtr ArchiveFolder::gameIn(const std::string& file) {
    if (const auto known = read_.find(file); known != read_.end()) return known->second;
    std::ostringstream text;
    text << std::ifstream(folder_ / file, std::ios::binary).rdbuf();
    auto kept = numberOf(file) > 0 ? readKeptGame(text.str()) : std::nullopt;
    if (!kept) return nullptr;
    const KeptGamePtr game = std::make_shared<KeptGame>(std::move(*kept));
    read_[file] = game;
    numbers_[game] = numberOf(file);
    return game;
}

// One line of the index; false for one of another form.
bool ArchiveFolder::readLine(const std::vector<std::string>& line, Archive& archive) {
    if (line.size() == 2 && line[0] == "adjourned") {
        archive.adjourned.push_back(gameIn(line[1]));
        return archive.adjourned.back() != nullptr;
    }
    if (line.size() < 3) return false;
    const auto index = number(line[2]);
    if (!index || *index > Archive::numbers) return false;
    if (line[0] == "next") {
        archive.shelves[line[1]].next = *index;
        return true;
    }
    const KeptGamePtr game = line.size() == 4 ? gameIn(line[3]) : nullptr;
    if (line[0] == "history") {
        archive.shelves[line[1]].games.emplace_back(*index, game);
    } else if (line[0] == "journal" && *index >= 1 && *index <= Archive::slots) {
        archive.journals[line[1]].at(static_cast<std::size_t>(*index - 1)) = game;
    } else {
        return false;
    }
    return game != nullptr;
}

std::string ArchiveFolder::readIndex(Archive& archive) {
    std::ifstream in(folder_ / "index");
    for (std::string line; std::getline(in, line);) {
        if (!readLine(words(line), archive)) return "cannot read \"" + line + "\" in " + (folder_ / "index").string();
    }
    return {};
}

// The index goes last but for what it does not name any more: a folder left in the middle is whole.
std::string ArchiveFolder::save(const Archive& archive) {
    const auto games = gamesIn(archive);
    std::vector<fs::path> gone;
    for (const auto& [game, number] : numbers_) {
        if (games.count(game) == 0) gone.push_back(folder_ / fileOf(number));
    }
    std::erase_if(numbers_, [&](const auto& entry) { return games.count(entry.first) == 0; });
    if (!writeGames(games) || !writeIndex(archive)) return "cannot write to " + folder_.string();
    std::error_code failed;
    for (const fs::path& path : gone) fs::remove(path, failed);
    return {};
}

bool ArchiveFolder::writeGames(const std::set<KeptGamePtr>& games) {
    return std::all_of(games.begin(), games.end(), [this](const KeptGamePtr& game) {
        if (numbers_.count(game) > 0) return true;
        if (!writeWhole(folder_ / fileOf(last_ + 1), keptGameText(*game))) return false;
        numbers_[game] = ++last_;
        return true;
    });
}

bool ArchiveFolder::writeIndex(const Archive& archive) const {
    const auto file = [this](const KeptGamePtr& game) { return fileOf(numbers_.at(game)); };
    std::ostringstream out;
    for (const auto& [name, shelf] : archive.shelves) {
        out << "next " << name << ' ' << shelf.next << '\n';
        for (const auto& [index, game] : shelf.games) {
            out << "history " << name << ' ' << index << ' ' << file(game) << '\n';
        }
    }
    for (const auto& [name, journal] : archive.journals) {
        for (std::size_t slot = 0; slot < journal.size(); ++slot) {
            if (journal.at(slot)) out << "journal " << name << ' ' << slot + 1 << ' ' << file(journal.at(slot)) << '\n';
        }
    }
    for (const KeptGamePtr& game : archive.adjourned) out << "adjourned " << file(game) << '\n';
    return writeWhole(folder_ / "index", out.str());
}

} // namespace practice
