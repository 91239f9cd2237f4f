// Writes a game to a PGN file.
#include "records/PgnWriter.h"

#include "common/Fault.h"
#include "common/Text.h"
#include "common/WriteAll.h"
#include "records/FileOne.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <string_view>

namespace {

constexpr std::string_view LineEnd = "\r\n";

// "      {White resigns} 1-0", CR LF and all, gives "1-0".
std::string resultOf(const std::string& resultLine) {
    std::string_view result = trim(resultLine);
    if (result.size() > LineEnd.size()) result.remove_suffix(LineEnd.size());
    const auto brace = result.find('}');
    return std::string(brace == result.npos ? result : trim(result.substr(brace + 1)));
}

void zWriteTag(std::string& text, std::string_view name, std::string_view value) {
    text.append("[").append(name).append(" \"").append(value).append("\"]").append(LineEnd);
}

void writeTags(std::string& text, const GameRecord& record, const std::string& result) {
    zWriteTag(text, "Event", record.Event);
    zWriteTag(text, "Site", record.Site);
    zWriteTag(text, "Date", record.Date);
    zWriteTag(text, "Time", record.Time);
    zWriteTag(text, "White", record.White);
    zWriteTag(text, "Black", record.Black);
    zWriteTag(text, "WhiteElo", std::to_string(record.WhiteElo));
    zWriteTag(text, "BlackElo", std::to_string(record.BlackElo));
    zWriteTag(text, "TimeControl", record.TimeControl);
    zWriteTag(text, "Result", result);
}

// `column` is where the line stands.
void zWriteToken(std::string& text, std::string_view token, std::int32_t& column) {
    constexpr std::int32_t FullLine = 77;
    const auto length = static_cast<std::int32_t>(token.size());
    const bool fits = length + column < FullLine;
    text.append(fits ? " " : LineEnd).append(token);
    column = fits ? length + column + 1 : length;
}

// The first token begins a line of its own, so that the line behind the tags is empty.
void writeMoves(std::string& text, const GameRecord& record) {
    std::int32_t column = 80;
    for (int number = 1; static_cast<float>(number) <= record.LastMove + 0.6F; ++number) {
        zWriteToken(text, std::to_string(number) + ". " + record.WhiteMoves[number], column);
        if (static_cast<float>(number) <= record.LastMove) zWriteToken(text, record.BlackMoves[number], column);
    }
    text.append(LineEnd);
}

// All at once, so that a program that is killed meanwhile leaves the games before as they are. A pipe that nobody reads
// fails instead of waiting.
void append(const std::string& fileName, std::string_view text) {
    const int file = ::open(fileName.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_NONBLOCK | O_CLOEXEC, 0666);
    if (file < 0) throw Fault(FaultKind::File, "\"" + fileName + "\" cannot be opened");
    struct stat before {};
    const bool known = ::fstat(file, &before) == 0;
    const bool written = known && writeAll(file, text);
    if (known && !written) {
        [[maybe_unused]] const int undone = ::ftruncate(file, before.st_size);
    }
    if (::close(file) != 0 || !written) throw Fault(FaultKind::File, "\"" + fileName + "\" cannot be written");
}

} // namespace

std::string pgnText(const GameRecord& record) {
    std::string text;
    if (record.LastMove == 0) return text;
    const std::string result = resultOf(record.ResultLine);
    writeTags(text, record, result);
    writeMoves(text, record);
    return text.append(result).append(LineEnd).append(LineEnd);
}

void zWriteGame(const std::string& fileName, const GameRecord& record, const PgnWriterHooks& hooks) {
    const bool saved = passOver([&] {
        if (record.LastMove == 0) return;
        const FileOne number;
        append(fileName, pgnText(record));
    });
    if (saved) {
        hooks.print("\nGame was saved to " + fromUtf8(fileName) + "\n");
    } else {
        FileOne::close();
        hooks.tell("Game could not be saved.");
    }
}
