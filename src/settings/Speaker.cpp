// The loudspeaker.
#include "settings/Speaker.h"

#include <QApplication>

#include <algorithm>
#include <utility>

Speaker::Speaker()
    : startWave([this](const QString& path) { player_.play(path); }), startBeep([] { QApplication::beep(); }) {
    timer_.setSingleShot(true);
    timer_.setTimerType(Qt::PreciseTimer);
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { serve(); });
}

void Speaker::playWave(const QString& path) {
    wave_ = path;
    ask();
}

void Speaker::beep() {
    beep_ = true;
    ask();
}

void Speaker::ask() {
    if (timer_.isActive()) return;
    const qint64 passed = sinceServed_.isValid() ? sinceServed_.elapsed() : Spacing;
    timer_.start(static_cast<int>(std::max<qint64>(0, Spacing - passed)));
}

void Speaker::serve() {
    sinceServed_.start();
    if (const QString wave = std::exchange(wave_, {}); !wave.isEmpty()) startWave(wave);
    if (std::exchange(beep_, false)) startBeep();
}
