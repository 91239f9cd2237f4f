// What is left of received bytes when the telnet commands are taken out, worked out on the whole of them at once.
#pragma once

#include <optional>
#include <string>
#include <string_view>

// The length of the subnegotiation that `bytes` begin with: FF FA, anything with its FF doubled, FF F0, in 1025 bytes
// at most. 0 if it has no end, nothing while one may still come.
inline std::optional<std::size_t> subnegotiationLength(std::string_view bytes) {
    constexpr std::size_t LastPlace = 1023; // of the FF that begins the end
    for (auto at = bytes.find('\xFF', 2); at <= LastPlace && at + 1 < bytes.size(); at = bytes.find('\xFF', at + 2)) {
        if (bytes[at + 1] == '\xF0') return at + 2;
    }
    if (bytes.size() <= LastPlace + 1) return std::nullopt;
    return 0;
}

// The text in the bytes of one connection. A command that is cut off is text when no more bytes come.
inline std::string textWithoutTelnet(std::string_view bytes, bool finished) {
    std::string text;
    while (!bytes.empty()) {
        const auto code = bytes.size() > 1 ? static_cast<unsigned char>(bytes[1]) : 0;
        std::optional<std::size_t> command = 0; // its length; 0 when the FF stands for itself, as any other byte
        if (bytes.front() == '\xFF') {
            if (bytes.size() == 1 || (code >= 0xFB && code <= 0xFE && bytes.size() == 2))
                command = std::nullopt;
            else if (code >= 0xFB && code <= 0xFE)
                command = 3;
            else if (code == 0xFA)
                command = subnegotiationLength(bytes);
        }
        if (!command) return finished ? text.append(bytes) : text;
        if (command == 0) text += bytes.front();
        const bool doubled = bytes.front() == '\xFF' && code == 0xFF;
        bytes.remove_prefix(doubled ? 2 : command == 0 ? 1 : *command);
    }
    return text;
}
