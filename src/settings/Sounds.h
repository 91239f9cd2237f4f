// The sound routine: which sound an event makes, and where its wave file is.
#pragma once

#include "settings/Speaker.h"

#include <QString>

#include <functional>
#include <memory>
#include <string_view>

// One instance for the program, owned by whoever starts it.
class Sounds {
public:
    Sounds();
    Sounds(const Sounds&) = delete; // the defaults of `wave` and `beep` reach back into it
    Sounds& operator=(const Sounds&) = delete;

    // Sounds the wave file `name` ("move.wav") or the system beep, as `soundSwitch` says: 3 the wave, 1 the beep, any
    // other value nothing. Does nothing unless modChess.SoundOn is non-zero. Returns at once.
    void zPlaySound(std::string_view name, int soundSwitch);

    // Sounds the wave file `name` whatever the switches say; for the test sounds of the options dialog.
    void testWave(std::string_view name);

    // Sounds a beep whatever the switches say.
    void testBeep();

    // Where a request goes: the path of the wave file that was found, or a beep. The loudspeaker by default; tests put
    // their own here and see each request as it is made.
    std::function<void(const QString& path)> wave;
    std::function<void()> beep;

private:
    std::unique_ptr<Speaker> speaker_;
};

// The file that `name` stands for: in the current directory, else in the program's own data folder; empty when it is in
// neither.
QString waveFile(std::string_view name);
