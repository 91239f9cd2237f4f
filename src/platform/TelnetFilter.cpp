// Takes telnet commands out of received bytes: they are transport, not text.
#include "platform/TelnetFilter.h"

#include <utility>

namespace {

constexpr char Iac = '\xFF';
constexpr char SubnegotiationEnd = '\xF0';
constexpr char SubnegotiationBegin = '\xFA';
constexpr char Will = '\xFB'; // the first of WILL, WONT, DO, DONT
constexpr char Dont = '\xFE';

// What stands at the front of a text that is empty or begins with FF.
struct Command {
    std::size_t length; // bytes to take; 0 while it is not known yet
    std::string_view text;
};

Command subnegotiation(std::string_view bytes) {
    for (std::size_t at = 2; at + 1 < bytes.size() && at < TelnetFilter::LongestCommand; ++at) {
        if (bytes[at] != Iac) continue;
        if (bytes[at + 1] == SubnegotiationEnd) return {at + 2, {}};
        ++at; // an escaped FF within
    }
    return bytes.size() <= TelnetFilter::LongestCommand ? Command{0, {}} : Command{2, bytes.substr(0, 2)};
}

Command commandAt(std::string_view bytes) {
    if (bytes.size() < 2) return {0, {}};
    const char code = bytes[1];
    if (code == Iac) return {2, bytes.substr(0, 1)};
    if (code == SubnegotiationBegin) return subnegotiation(bytes);
    const bool option = static_cast<unsigned char>(code) >= static_cast<unsigned char>(Will) &&
                        static_cast<unsigned char>(code) <= static_cast<unsigned char>(Dont);
    if (option) return {bytes.size() < 3 ? std::size_t{0} : std::size_t{3}, {}};
    return {2, bytes.substr(0, 2)};
}

} // namespace

std::string TelnetFilter::filter(std::string_view bytes) {
    const std::string joined = std::exchange(kept_, {}) + std::string(bytes);
    std::string_view rest = joined;
    std::string text;
    while (!rest.empty()) {
        const auto front = rest.substr(0, rest.find(Iac));
        text += front;
        rest.remove_prefix(front.size());
        const Command command = commandAt(rest);
        if (command.length == 0) {
            kept_ = rest;
            break;
        }
        text += command.text;
        rest.remove_prefix(command.length);
    }
    return text;
}

std::string TelnetFilter::finish() { return std::exchange(kept_, {}); }
