// Cuts a client's bytes into typed lines.
#include "practice/wire/LineReader.h"

namespace practice {

namespace {

constexpr unsigned char interpretAsCommand = 0xFF;
constexpr unsigned char negotiationBegin = 0xFA;
constexpr unsigned char negotiationEnd = 0xF0;

bool isOptionCommand(unsigned char byte) { return byte >= 0xFB && byte <= 0xFE; }

} // namespace

// True if the byte belongs to a telnet command and not to the line.
bool LineReader::swallow(unsigned char byte) {
    switch (telnet_) {
    case Telnet::None:
        if (byte != interpretAsCommand) return false;
        telnet_ = Telnet::Command;
        return true;
    case Telnet::Command:
        telnet_ = isOptionCommand(byte) ? Telnet::Option : Telnet::None;
        if (byte == negotiationBegin) telnet_ = Telnet::Negotiation;
        // A line end is never part of a two-byte command: a stray FF must not glue two lines together.
        return byte != '\n';
    case Telnet::Option:
        telnet_ = Telnet::None;
        return byte != '\n';
    case Telnet::Negotiation:
        if (byte == interpretAsCommand) telnet_ = Telnet::NegotiationCommand;
        if (byte == '\n') telnet_ = Telnet::None;
        return byte != '\n';
    case Telnet::NegotiationCommand:
        telnet_ = byte == negotiationEnd || byte == '\n' ? Telnet::None : Telnet::Negotiation;
        return byte != '\n';
    }
    return false;
}

std::vector<std::string> LineReader::take(std::string_view bytes) {
    std::vector<std::string> lines;
    for (const char c : bytes) {
        if (swallow(static_cast<unsigned char>(c))) continue;
        if (c == '\n') {
            lines.push_back(std::move(pending_));
            pending_.clear();
        } else if (c != '\r' && c != '\0' && pending_.size() < limit) {
            pending_ += c;
        }
    }
    return lines;
}

} // namespace practice
