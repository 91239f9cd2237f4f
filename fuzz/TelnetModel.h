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

// The length of the command that `bytes` begin with, whose first is FF; 0 if that FF stands for itself, nothing while
// more has to come.
inline std::optional<std::size_t> telnetLength(std::string_view bytes) {
    if (bytes.size() < 2) return std::nullopt;
    const auto code = static_cast<unsigned char>(bytes[1]);
    if (code == 0xFA) return subnegotiationLength(bytes);
    if (code < 0xFB || code == 0xFF) return 0;
    return bytes.size() < 3 ? std::nullopt : std::optional<std::size_t>(3);
}

// The text in the bytes of one connection. A command that is cut off is text when no more bytes come.
inline std::string textWithoutTelnet(std::string_view bytes, bool finished) {
    std::string text;
    for (;;) {
        const auto plain = bytes.substr(0, bytes.find('\xFF'));
        text += plain;
        bytes.remove_prefix(plain.size());
        if (bytes.empty()) return text;
        const auto command = telnetLength(bytes);
        if (!command) return finished ? text.append(bytes) : text;
        if (command == 0) text += bytes.front();
        const bool doubled = command == 0 && bytes[1] == '\xFF';
        bytes.remove_prefix(*command > 0 ? *command : doubled ? 2 : 1);
    }
}
