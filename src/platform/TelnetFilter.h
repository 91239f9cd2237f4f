// Takes telnet commands out of received bytes: they are transport, not text.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

// Removes IAC WILL, WONT, DO or DONT with its option (FF FB to FE, one byte) and subnegotiations (FF FA ... FF F0),
// turns the escaped FF FF into one FF, and leaves FF in front of any other byte. A command may be cut anywhere; its
// front is kept until the rest comes. What begins like a subnegotiation and has no end after `LongestCommand` bytes was
// text.
class TelnetFilter {
public:
    static constexpr std::size_t LongestCommand = 1024; // bytes

    // The text in `bytes` and in what was kept of earlier ones.
    std::string filter(std::string_view bytes);

    // The peer sends no more: gives what is kept, as it is no command.
    std::string finish();

private:
    std::string kept_; // a command's front, from its FF on
};
