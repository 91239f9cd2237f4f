// Server text in messages and packets.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

inline constexpr std::size_t OneLine = 0; // a size of packets: each ends behind a line end, or with the text

// The packets of `text` in order; together they are the text.
inline std::vector<std::string_view> inPackets(std::string_view text, std::size_t size) {
    std::vector<std::string_view> packets;
    while (!text.empty()) {
        const auto feed = text.find("\n\r");
        const std::size_t line = feed == text.npos ? text.size() : feed + 2;
        packets.push_back(text.substr(0, size == OneLine ? line : size));
        text.remove_prefix(packets.back().size());
    }
    return packets;
}

// The messages of a stream: each goes up to its prompt; what follows the last prompt is one too.
inline std::vector<std::string_view> messagesOf(std::string_view stream, std::string_view prompt = "fics% ") {
    std::vector<std::string_view> messages;
    while (!stream.empty()) {
        const auto place = stream.find(prompt);
        messages.push_back(stream.substr(0, place == stream.npos ? place : place + prompt.size()));
        stream.remove_prefix(messages.back().size());
    }
    return messages;
}
