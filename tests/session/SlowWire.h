// What a server sends in packets with pauses, through the socket's rule to a session without windows; no real time.
#pragma once

#include "SessionRig.h"
#include "session/Messages.h"

#include "platform/ArrivalCutter.h"
#include "platform/TelnetFilter.h"

#include <algorithm>
#include <map>
#include <string>
#include <string_view>
#include <vector>

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
