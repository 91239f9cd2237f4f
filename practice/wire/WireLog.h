// The record of what clients send, for tests that look at the bytes.
#pragma once

#include <fstream>
#include <string>
#include <string_view>

namespace practice {

// Writes each line that a client sends to a file as "NAME", a tab, and the bytes up to the line feed as they came,
// blanks and carriage returns among them. NAME is "-" before the log-on. Whoever reads the file has each line before
// its client has the answer.
class WireLog {
public:
    // Opens the file and empties it; false if that fails. Without a file nothing is written.
    bool open(const std::string& path);

    // Takes bytes from a client; `partial` holds the line that has not ended yet, cut off at 64 KiB.
    void take(const std::string& name, std::string_view bytes, std::string& partial);

private:
    static constexpr std::size_t lineLimit = 65'536;

    std::ofstream out_;
};

} // namespace practice
