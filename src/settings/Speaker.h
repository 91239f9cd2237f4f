// The loudspeaker: plays one wave file at a time, and beeps, without ever delaying the caller.
#pragma once

#include "settings/WavePlayer.h"

#include <QElapsedTimer>
#include <QString>
#include <QTimer>

#include <functional>

// Requests are only noted; the message loop serves them later, at most one wave and one beep each `Spacing` ms, the
// latest winning. A new wave replaces the one that plays. The audio system is not touched before the first wave is
// served; while no sound server answers, waves are silence and cost one look for it each.
class Speaker {
public:
    static constexpr int Spacing = 20; // ms

    Speaker();
    Speaker(const Speaker&) = delete;
    Speaker& operator=(const Speaker&) = delete;

    // Notes the wave file `path` (absolute) as the next one to play.
    void playWave(const QString& path);

    // Notes a system beep.
    void beep();

    // What a served request does. Real by default; tests put their own here.
    std::function<void(const QString& path)> startWave;
    std::function<void()> startBeep;

private:
    void ask();
    void serve();

    QTimer timer_;
    QElapsedTimer sinceServed_;
    QString wave_; // the one to play, empty for none
    bool beep_ = false;
    WavePlayer player_;
};
