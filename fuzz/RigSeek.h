// A seek graph without its window: the dots, the poll, and its timer.
#pragma once

#include "RigClock.h"
#include "seek/SeekGraph.h"
#include "seek/SeekPoll.h"
#include "session/Session.h"

#include <cstdint>
#include <optional>
#include <string>

struct RigSeek {
    Session& session;
    RigClock& clock;
    SeekGraph graph;
    SeekPoll poll;
    std::string caption;
    std::optional<std::int64_t> due; // tmrSeek, which repeats
    bool enabled = false;            // cmdSeek

    RigSeek(Session& whole, RigClock& time)
        : session(whole), clock(time), graph(whole.seekAds, graphHooks()), poll(pollHooks()) {
        graph.geometry.zSize({7800, 6900}, false);
    }

    void fire() {
        due = *due + poll.interval;
        poll.tmrSeek();
    }

private:
    SeekGraphHooks graphHooks() {
        return {
            .setCaption = [this](const std::string& text) { caption = text; },
            .answered = [this] { poll.again(); },
        };
    }
    SeekPollHooks pollHooks() {
        return {
            .startTimer = [this](int milliseconds) { due = clock.now + milliseconds; },
            .stopTimer = [this] { due.reset(); },
            .millisecondsOfDay = [this] { return clock.millisecondsOfDay(); },
            .BusyTest = TextPipeline::BusyTest,
            .zSetstate = [this](std::int16_t state) { session.pipeline.zSetstate(state); },
            .zSendMsg = [this](const std::string& text) { session.road.zSendMsg(text); },
            .enableSeek = [this] { enabled = true; },
        };
    }
};
