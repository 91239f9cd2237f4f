// The loudspeaker.
#include "settings/Speaker.h"

#include <QApplication>
#include <QAudioDevice>
#include <QMediaDevices>
#include <QSoundEffect>
#include <QUrl>

#include <algorithm>
#include <utility>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

bool listens(const QByteArray& path) {
    sockaddr_un address{};
    if (path.size() >= static_cast<qsizetype>(sizeof address.sun_path)) return false;
    address.sun_family = AF_UNIX;
    std::copy(path.begin(), path.end(), address.sun_path);
    const int socket = ::socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
    if (socket < 0) return false;
    const bool connected = ::connect(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
    ::close(socket);
    return connected;
}

} // namespace

// Asking the audio library itself would print a complaint, and might start a server, where there is none.
bool soundServerAnswers() {
    if (!qEnvironmentVariableIsEmpty("PULSE_SERVER")) return true;
    QByteArray folder = qgetenv("PULSE_RUNTIME_PATH");
    if (folder.isEmpty()) {
        const QByteArray runtime = qgetenv("XDG_RUNTIME_DIR");
        folder = (runtime.isEmpty() ? "/run/user/" + QByteArray::number(::getuid()) : runtime) + "/pulse";
    }
    return listens(folder + "/native");
}

Speaker::Speaker()
    : startWave([this](const QString& path) { playEffect(path); }), startBeep([] { QApplication::beep(); }) {
    timer_.setSingleShot(true);
    timer_.setTimerType(Qt::PreciseTimer);
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { serve(); });
}

Speaker::~Speaker() = default;

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

void Speaker::playEffect(const QString& path) {
    if (!effect_) {
        if (!soundServerAnswers() || QMediaDevices::defaultAudioOutput().isNull()) return;
        effect_ = std::make_unique<QSoundEffect>();
    }
    const QUrl source = QUrl::fromLocalFile(path);
    effect_->stop();
    if (effect_->source() != source) effect_->setSource(source);
    effect_->play();
}
