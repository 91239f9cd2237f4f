// The loudspeaker.
#include "settings/Speaker.h"

#include "settings/WaveFile.h"

#include <QApplication>
#include <QAudioDevice>
#include <QAudioSink>
#include <QBuffer>
#include <QFile>
#include <QFileInfo>
#include <QMediaDevices>

#include <algorithm>
#include <optional>
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

// The bytes of a file that may be a sound; empty for what is none, or is longer than any sound of an event.
QByteArray bytesOf(const QString& path) {
    constexpr qint64 MaxBytes = qint64{4} * 1024 * 1024;
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly) || file.size() > MaxBytes) return {};
    return file.readAll();
}

std::optional<Wave> waveIn(const QByteArray& bytes) {
    return readWave({bytes.constData(), static_cast<std::size_t>(bytes.size())});
}

QAudioFormat formatOf(const Wave& wave) {
    QAudioFormat format;
    format.setChannelCount(static_cast<int>(wave.channels));
    format.setSampleRate(static_cast<int>(wave.rate));
    format.setSampleFormat(wave.bits == 8    ? QAudioFormat::UInt8
                           : wave.bits == 16 ? QAudioFormat::Int16
                                             : QAudioFormat::Int32);
    return format;
}

// Microseconds of sound that the server is given ahead, and of silence behind each: when that has been handed over, the
// sound was heard.
constexpr qint64 Ahead = 250'000;
constexpr qint64 Tail = 400'000;

QByteArray withSilence(const Wave& wave) {
    const QByteArray sound(wave.samples.data(), static_cast<qsizetype>(wave.samples.size()));
    return sound + QByteArray(formatOf(wave).bytesForDuration(Tail), wave.bits == 8 ? '\x80' : '\0');
}

} // namespace

// One wave file at the sound server. A server begins to play when it has enough, which a short sound alone never is,
// and what it has not played yet goes when a sound stops; so each ends in silence.
class Sound {
public:
    explicit Sound(const Wave& wave)
        : bytes_(withSilence(wave)), format_(formatOf(wave)), sink_(QMediaDevices::defaultAudioOutput(), format_) {
        device_.setBuffer(&bytes_);
        device_.open(QIODevice::ReadOnly);
        QObject::connect(&sink_, &QAudioSink::stateChanged, &sink_, [this](QAudio::State state) {
            if (state == QAudio::IdleState && device_.atEnd()) stop(); // else the server waits for more
        });
    }
    ~Sound() { stop(); }
    Sound(const Sound&) = delete;
    Sound& operator=(const Sound&) = delete;

    // The size is asked for each time: the library would ask for what the server left of it the last time, until
    // nothing is left.
    void play() {
        sink_.setBufferSize(format_.bytesForDuration(Ahead));
        device_.seek(0);
        sink_.start(&device_);
    }
    void stop() { sink_.stop(); }

private:
    QByteArray bytes_;
    QBuffer device_;
    QAudioFormat format_;
    QAudioSink sink_;
};

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

bool isPlayable(const QString& path) { return waveIn(bytesOf(path)).has_value(); }

Speaker::Speaker() : startWave([this](const QString& path) { play(path); }), startBeep([] { QApplication::beep(); }) {
    timer_.setSingleShot(true);
    timer_.setTimerType(Qt::PreciseTimer);
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { serve(); });
}

// What runs while the sounds are deleted asks for no more of them.
Speaker::~Speaker() {
    timer_.stop();
    playing_ = nullptr;
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

// Each file keeps its sound for the whole run: to delete one lets the audio library run the message loop.
Sound* Speaker::soundOf(const QString& path) {
    const auto found = sounds_.find(path);
    if (found != sounds_.end()) return found->second.get();
    if (sounds_.size() >= MaxFiles) return nullptr;
    const QByteArray bytes = bytesOf(path);
    const auto wave = waveIn(bytes);
    if (!wave) return nullptr;
    return (sounds_[path] = std::make_unique<Sound>(*wave)).get();
}

void Speaker::play(const QString& path) {
    if (playing_) playing_->stop();
    playing_ = nullptr;
    if (!soundServerAnswers() || QMediaDevices::defaultAudioOutput().isNull()) return;
    playing_ = soundOf(path);
    if (playing_) playing_->play();
}
