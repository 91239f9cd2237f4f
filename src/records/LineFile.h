// A game file as lines.
#pragma once

#include "records/FileOne.h"

#include <array>
#include <cstddef>
#include <cstdio>
#include <memory>
#include <string>

// Read by pieces, so that it takes the room of its longest line. CR LF, LF and CR each end a line, and the end of the
// file ends the last one; all other bytes belong to their line, NUL too.
class LineFile {
public:
    // Opens `path`, in the file system's own bytes; faults (file) when there is no such file, it cannot be read, it
    // is a folder, a pipe or a device, or file number 1 is held.
    explicit LineFile(const std::string& path);

    // Whether there was one more line, which is in `line` then, without its end. Faults (file) when it cannot be read.
    bool next(std::string& line);
    // The next line; faults (file) behind the last one too.
    void take(std::string& line);

private:
    struct Close {
        void operator()(std::FILE* file) const { std::fclose(file); }
    };

    bool fill();
    bool appendToBreak(std::string& line);

    FileOne number_;
    std::string path_;
    std::unique_ptr<std::FILE, Close> file_;
    std::array<char, 65536> piece_;
    std::size_t at_ = 0; // in the piece
    std::size_t end_ = 0;
    bool behindReturn_ = false; // a LF that comes now belongs to the line before
};
