// The loudspeaker.
#include "settings/Speaker.h"

#include "settings/WaveFile.h"

#include <QApplication>
#include <QAudioDevice>
#include <QFile>
#include <QFileInfo>
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

// The audio library would complain on the console about a file that it cannot play, and would wait without end for the
// rest of one that was cut short.
bool isPlayable(const QString& path) {
    constexpr qint64 MaxBytes = qint64{4} * 1024 * 1024; // longer than any sound of an event
    QFile file(path);
    return QFileInfo(path).isFile() && file.open(QIODevice::ReadOnly) && file.size() <= MaxBytes &&
           isPlayableWave(file.readAll().toStdString());
}

Speaker::Speaker() : startWave([this](const QString& path) { play(path); }), startBeep([] { QApplication::beep(); }) {
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

// Each file keeps its effect for the whole run: giving an effect another source, or deleting it, makes the audio
// library wait for its loading thread.
QSoundEffect* Speaker::effectOf(const QString& path) {
    const auto found = effects_.find(path);
    if (found != effects_.end()) return found->second.get();
    if (effects_.size() >= MaxFiles || !isPlayable(path)) return nullptr;
    auto& effect = effects_[path] = std::make_unique<QSoundEffect>();
    effect->setSource(QUrl::fromLocalFile(path));
    return effect.get();
}

void Speaker::play(const QString& path) {
    if (playing_) playing_->stop();
    playing_ = nullptr;
    if (!soundServerAnswers() || QMediaDevices::defaultAudioOutput().isNull()) return;
    playing_ = effectOf(path);
    if (playing_) playing_->play();
}
