// Bytes of the telnet protocol, and text as it goes over the wire.
#pragma once

#include <string>
#include <string_view>

namespace practice {

// The byte that begins each command; as text it is doubled.
inline constexpr unsigned char interpretAsCommand = 0xFF;

// What a terminal takes as "the server shows what you type" and so stops showing it, and as the end of that. Programs
// take a whole command out of the text; none is ever cut or left without its option.
inline constexpr std::string_view hideTyping = "\xFF\xFB\x01"; // IAC WILL ECHO
inline constexpr std::string_view showTyping = "\xFF\xFC\x01"; // IAC WON'T ECHO

// `text` with each LF written as LF CR, as lines end on the wire, and each byte 255 doubled.
std::string wireText(std::string_view text);

} // namespace practice
