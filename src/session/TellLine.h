// Recognises tells of every kind and who sent them.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

// The results of zTellLine; a channel tell on channel n gives ChannelTell + n.
inline constexpr std::int16_t NoTell = 0;
inline constexpr std::int16_t PersonalTell = 1; // "Bob tells you:"
inline constexpr std::int16_t WouldLikeTo = 2;  // "Bob would like to"
inline constexpr std::int16_t Says = 3;         // "Bob says:"
inline constexpr std::int16_t DrawOffer = 4;    // "Bob offers you a draw"
inline constexpr std::int16_t Shout = 5;        // "Bob shouts:"
inline constexpr std::int16_t ChannelTell = 1000;

// What a line tells, and from whom.
struct Tell {
    std::int16_t type = NoTell;
    std::optional<std::string_view> channelSender; // of a channel tell; a part of the line
};

// The kind of tell that `line` is. Prompts in front of the tell are skipped. Faults (overflow) on a channel number past
// 16 bits, "(9e9):".
Tell tellOf(std::string_view line);

// The type of tellOf(line). The sender of a channel tell, "Bob(50):", becomes modChess.ChannelSender; all else leaves
// it.
std::int16_t zTellLine(std::string_view line);

// Who sent the personal tell `line`, titles such as "(TM)" left off. Strips blanks and control characters from the
// front of `line`. Starts from modChess.TellTarget, which it does not change.
std::string zGetTell(std::string& line);

// True when the text of `line` at `position`, counted from 1, is `needle`. Case matters.
bool zNextChars(std::string_view line, long position, std::string_view needle);
