// Cuts a client's bytes into typed lines.
#include "practice/wire/LineReader.h"

#include "practice/wire/Telnet.h"

namespace practice {

namespace {

constexpr unsigned char lowestCommand = 0xF0;
constexpr unsigned char negotiationEnd = 0xF0;
constexpr unsigned char negotiationBegin = 0xFA;

bool isOptionCommand(unsigned char byte) { return byte >= 0xFB && byte <= 0xFE; }

} // namespace

// A line end is never part of a command: a stray 255 must not glue two lines together.
bool LineReader::beginCommand(unsigned char byte) {
    telnet_ = Telnet::None;
    if (byte < lowestCommand || byte == interpretAsCommand) {
        keep(static_cast<char>(interpretAsCommand));
        return byte == interpretAsCommand;
    }
    if (isOptionCommand(byte)) telnet_ = Telnet::Option;
    if (byte == negotiationBegin) telnet_ = Telnet::Negotiation;
    return true;
}

bool LineReader::swallow(unsigned char byte) {
    switch (telnet_) {
    case Telnet::None:
        if (byte == interpretAsCommand) telnet_ = Telnet::Command;
        return byte == interpretAsCommand;
    case Telnet::Command:
        return beginCommand(byte);
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

void LineReader::keep(char c) {
    if (pending_.size() < limit) pending_ += c;
}

std::vector<std::string> LineReader::take(std::string_view bytes) {
    std::vector<std::string> lines;
    for (const char c : bytes) {
        if (swallow(static_cast<unsigned char>(c))) continue;
        if (c == '\n') {
            lines.push_back(std::move(pending_));
            pending_.clear();
        } else if (c != '\r' && c != '\0') {
            keep(c);
        }
    }
    return lines;
}

} // namespace practice
