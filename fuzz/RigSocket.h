// The socket of a run: its state, and the way of received bytes to the text of arrivals.
#pragma once

#include "platform/ArrivalCutter.h"
#include "platform/TelnetFilter.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <string_view>

// Works as tcpClient does. Places in the text count from its first byte on the first connection.
class RigSocket {
public:
    static constexpr std::int16_t Closed = 0;
    static constexpr std::int16_t Connected = 7;
    static constexpr std::int16_t PeerClosing = 8;
    static constexpr std::int16_t Error = 9;

    std::int16_t state() const { return state_; }
    bool connected() const { return state_ == Connected; }

    void connect(std::int64_t now);
    void close();
    void receive(std::string_view bytes) { unread_ += bytes; }
    // The peer sends no more; what it sent still comes.
    void endReceiving(std::int16_t state, std::int64_t now);

    // The next arrival becomes what `GetData` gives; false if there is none yet.
    bool deliver(std::string_view prompt, std::int64_t now);
    std::string GetData();
    // When to deliver again if no byte comes.
    std::optional<std::int64_t> due(std::int64_t now) const;

    // All the text that came, without the telnet commands; what a closed connection had left in it is taken away.
    const std::string& text() const { return text_; }
    // How much of it has been given in arrivals, and how much has been taken of these.
    std::size_t given() const { return given_; }
    std::size_t taken() const { return given_ - arrival_.size(); }
    bool waits() const { return cutter_.waiting() > 0; }
    // Whether the line was quiet for 30 ms, or new, before the byte at this place came.
    bool quietBefore(std::size_t place) const { return quiet_.contains(place); }
    const std::string& lastArrival() const { return lastArrival_; }

private:
    void pull(std::int64_t now);
    void append(const std::string& text, std::int64_t now);
    void checkText(bool finished) const;

    std::int16_t state_ = Connected;
    std::string unread_; // in the system's buffer
    std::string bytes_;  // all that was read on this connection
    TelnetFilter telnet_;
    ArrivalCutter cutter_;
    std::string arrival_; // told and not taken
    std::string lastArrival_;

    std::string text_;
    std::size_t begin_ = 0; // of this connection in `text_`
    std::size_t given_ = 0;
    std::int64_t lastByte_ = 0;
    std::set<std::size_t> quiet_{0};
};
