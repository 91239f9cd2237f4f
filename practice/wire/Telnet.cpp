// Bytes of the telnet protocol, and text as it goes over the wire.
#include "practice/wire/Telnet.h"

namespace practice {

std::string wireText(std::string_view text) {
    std::string result;
    result.reserve(text.size() + 16);
    for (const char c : text) {
        result += c;
        if (c == '\n') result += '\r';
        if (static_cast<unsigned char>(c) == interpretAsCommand) result += c;
    }
    return result;
}

} // namespace practice
