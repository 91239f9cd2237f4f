// The loudspeaker: plays one wave file at a time, and beeps, without ever delaying the caller.
#pragma once

#include <QElapsedTimer>
#include <QString>
#include <QTimer>

#include <functional>
#include <map>
#include <memory>

class Sound;

// Whether `path` is a wave file of at most 4 MB that the audio library can play. Whatever else it is, of whatever size,
// little of it is read and nothing waited for.
bool isPlayable(const QString& path);

// Requests are only noted; the message loop serves them later, at most one wave and one beep each `Spacing` ms, the
// latest winning. A new wave replaces the one that plays. The audio system is not touched before the first wave is
// served; while no sound server answers, waves are silence and cost one look for it each.
class Speaker {
public:
    static constexpr int Spacing = 20;          // ms
    static constexpr std::size_t MaxFiles = 16; // different files in one run; further ones are silence

    Speaker();
    ~Speaker();
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
    Sound* soundOf(const QString& path);
    void play(const QString& path);

    QTimer timer_;
    QElapsedTimer sinceServed_;
    QString wave_; // the one to play, empty for none
    bool beep_ = false;
    std::map<QString, std::unique_ptr<Sound>> sounds_; // by path
    Sound* playing_ = nullptr;                         // of sounds_; the latest one
};

// True when a sound server listens on this machine or the user names one in PULSE_SERVER. Takes microseconds and starts
// nothing.
bool soundServerAnswers();
