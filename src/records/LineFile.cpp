// A game file as lines.
#include "records/LineFile.h"

#include "common/Text.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

// Names of files and the system's words are UTF-8.
[[noreturn]] void fault(const std::string& path, const std::string& what) {
    throw Fault(FaultKind::File, fromUtf8(path + ": " + what));
}

// A pipe would keep the window waiting for somebody who writes, and a device may have no end.
std::FILE* openRegular(const std::string& path) {
    const int file = ::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (file < 0) fault(path, std::strerror(errno));
    struct stat status {};
    if (::fstat(file, &status) == 0 && S_ISREG(status.st_mode)) return ::fdopen(file, "rb");
    ::close(file);
    fault(path, S_ISDIR(status.st_mode) ? std::strerror(EISDIR) : "this is no plain file");
}

} // namespace

LineFile::LineFile(const std::string& path) : path_(path), file_(openRegular(path)) {
    if (!file_) fault(path_, std::strerror(errno));
    fill();
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
