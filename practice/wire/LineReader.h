// Cuts a client's bytes into typed lines.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace practice {

// Holds the part of a line that has no end yet. Lines end with LF; CR, NUL and telnet commands are left out, 255 255 is
// one byte of text, and 255 before a byte that is no command is text as well. What goes past `limit` bytes of one line
// is dropped, so the memory stays bounded whatever comes.
struct LineReader {
    static constexpr std::size_t limit = 1024;

    // Takes `bytes` and gives the lines that ended in them, without line ends.
    std::vector<std::string> take(std::string_view bytes);

private:
    enum class Telnet { None, Command, Option, Negotiation, NegotiationCommand };

    // Follows telnet's commands; true if the byte is part of one.
    bool swallow(unsigned char byte);
    // The byte behind 255: what it makes of the two.
    bool beginCommand(unsigned char byte);
    // Puts a byte of text behind what is there.
    void keep(char c);

    std::string pending_;
    Telnet telnet_ = Telnet::None;
};

} // namespace practice
