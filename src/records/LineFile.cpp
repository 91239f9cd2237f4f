// A game file as lines.
#include "records/LineFile.h"

#include "common/Text.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <utility>

namespace {

[[noreturn]] void fault(const std::string& path, const std::string& what) {
    throw Fault(FaultKind::File, path + ": " + what);
}

} // namespace

LineFile::LineFile(const std::string& path) : path_(path), file_(std::fopen(path.c_str(), "rbe")) {
    if (!file_) fault(path_, std::strerror(errno));
    fill(); // a folder can be opened, and only reading tells
}

// False at the end of the file.
bool LineFile::fill() {
    at_ = 0;
    end_ = std::fread(piece_.data(), 1, piece_.size(), file_.get());
    if (end_ == 0 && std::ferror(file_.get()) != 0) fault(path_, std::strerror(errno));
    return end_ > 0;
}

// False when the piece ends before the line does.
bool LineFile::appendToBreak(std::string& line) {
    const char* const from = piece_.data() + at_;
    const char* const end = piece_.data() + end_;
    const char* const stop = std::find_if(from, end, isBreak);
    line.append(from, stop);
    at_ = static_cast<std::size_t>(stop - piece_.data());
    if (stop == end) return false;
    behindReturn_ = *stop == '\r';
    ++at_;
    return true;
}

bool LineFile::next(std::string& line) {
    line.clear();
    if (at_ == end_ && !fill()) return false;
    if (std::exchange(behindReturn_, false) && piece_[at_] == '\n') {
        ++at_;
        if (at_ == end_ && !fill()) return false;
    }
    while (!appendToBreak(line)) {
        if (!fill()) return true;
    }
    return true;
}

void LineFile::take(std::string& line) {
    if (!next(line)) fault(path_, "the file ends within a game");
}
