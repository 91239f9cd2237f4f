// What a server sends in packets with pauses, through the socket's rule to a session without windows; no real time.
#pragma once

#include "SessionRig.h"

#include "platform/ArrivalCutter.h"
#include "platform/TelnetFilter.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <map>
#include <string>
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

inline std::string streamText(const std::string& file) {
    std::ifstream stream(file, std::ios::binary);
    EXPECT_TRUE(stream.good()) << file;
    return {std::istreambuf_iterator<char>(stream), {}};
}

// The session behind a wire whose time is simulated; its timers run in that time.
struct SlowWire : SessionRig {
    TelnetFilter telnet;
    ArrivalCutter cutter;
    std::int64_t now = 0;
    std::map<SessionTimer, std::int64_t> due;
    std::vector<std::string> batches;

    SlowWire() {
        auto& hooks = pipeline.hooks;
        hooks.startTimer = [this](SessionTimer timer, int milliseconds) { due[timer] = now + milliseconds; };
        hooks.stopTimer = [this](SessionTimer timer) { due.erase(timer); };
        hooks.dataParse = [this, real = hooks.dataParse](const std::string& batch) {
            batches.push_back(batch);
            real(batch);
        };
    }

    void packet(std::string_view bytes) {
        cutter.append(telnet.filter(bytes), now);
        deliver();
    }
    // Lets `ms` go by with all that is due in them.
    void pass(std::int64_t ms) {
        const std::int64_t end = now + ms;
        for (auto next = nextDue(); next <= end; next = nextDue()) {
            now = next;
            deliver();
            fireTimers();
        }
        now = end;
    }
    void message(std::string_view text, std::size_t size, std::int64_t pauseMs) {
        const auto packets = inPackets(text, size);
        for (std::size_t place = 0; place < packets.size(); ++place) {
            if (place > 0) pass(pauseMs);
            packet(packets[place]);
        }
    }
    // The server has nothing more to say.
    void silence() { pass(10000); }

private:
    std::int64_t nextDue() const {
        std::int64_t next = now + cutter.dueInMs(now).value_or(1'000'000);
        for (const auto& [timer, moment] : due) next = std::min(next, moment);
        return next;
    }
    void deliver() {
        for (auto text = cutter.take(modChess.gPrompt, now); !text.empty(); text = cutter.take(modChess.gPrompt, now)) {
            arrive(text);
        }
    }
    bool isDue(SessionTimer timer) const { return due.contains(timer) && due.at(timer) <= now; }
    void fireTimers() {
        if (isDue(SessionTimer::tmrArrival)) pipeline.tmrArrival();
        if (isDue(SessionTimer::tmrPrompt)) pipeline.tmrPrompt();
        if (isDue(SessionTimer::tmrState)) pipeline.tmrState();
    }
};
