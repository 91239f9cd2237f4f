// Holds the stream back until the server's prompt shows or the line goes quiet, and hands it on in batches.
#pragma once

#include "common/Needed.h"
#include "session/FullBatch.h"
#include "session/ServerLines.h"
#include "session/SessionSurface.h"

#include <cstdint>
#include <string>
#include <string_view>

// What the pipeline reaches out to.
struct PipelineHooks {
    // All data that waits in the socket, one character a byte.
    Needed<std::string()> getData;
    // tmrArrival, tmrPrompt and tmrState, each of which runs its routine of the same name below.
    Needed<void(SessionTimer timer, int milliseconds)> startTimer;
    Needed<void(SessionTimer timer)> stopTimer;
    Needed<std::int32_t()> millisecondsOfDay;
    // Shows the typing line's text unmasked.
    Needed<void()> clearMask;
    // Text has arrived; the first through the bridge names the connection.
    Needed<void()> textArrived;
    // Writes the learnt handle on every open board.
    Needed<void(const std::string& handle)> showHandle;
    // The caption of lblPrompt.
    Needed<std::string()> promptCaption;
    Needed<void(const std::string& caption)> setPromptCaption;
    // zDataParse: takes one batch. Its faults pass through the pipeline.
    Needed<void(const std::string& batch)> dataParse;
};

// PendingText is either empty or held with tmrArrival running. Nothing here depends on the connection: text held while
// the socket closes is released by tmrArrival.
struct TextPipeline {
    ServerLines& lines;
    PipelineHooks hooks;

    std::string PendingText;           // received, not yet classified
    bool ParseBusy = false;            // zDataArrival is draining; further text waits in PendingText
    std::int16_t PassThroughCount = 0; // arrivals that still pass at once, set to 5 behind "password:"
    std::int16_t login = 0;            // 0 no prompt pending, 1 "login:" seen, 2 "password:" seen

    // Lets each unterminated tail of `serverLines` start tmrPrompt.
    TextPipeline(ServerLines& serverLines, PipelineHooks reachedOut);
    TextPipeline(const TextPipeline&) = delete;
    TextPipeline& operator=(const TextPipeline&) = delete;

    // Takes all waiting data and drains it, or holds it for three seconds counted from the latest arrival. Where text
    // is held and one batch can not hold the arrival as well, the front goes ahead.
    void zDataArrival();

    // The timers' routines. tmrArrival drains whatever is held, partial text included, without testing ParseBusy.
    void tmrArrival();
    // Learns a tail that stood alone for a second and ends in a blank as modChess.gPrompt.
    void tmrPrompt();
    // Gives up every running capture but the history's.
    void tmrState();

    // Sets the capture flag of `state` (a CaptureState, others none) and starts the state time-out of 5000 ms anew.
    void zSetstate(std::int16_t state);

    // True while a capture other than the history's runs, or a new game is being set up.
    static bool BusyTest();

private:
    void disarm();
    std::string_view unsearched(std::size_t held);
    void takeArrival(std::size_t held);
    void letGoFullBatches(std::size_t held);
    void drain(std::size_t held);
    void learnHandle();
    void hold(std::size_t held);

    LineCount heldLines_;     // of what is held
    std::string searchedFor_; // the prompt that is not in what is held
};
