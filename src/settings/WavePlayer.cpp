// The thread that plays wave files.
#include "settings/WavePlayer.h"

#include "settings/WaveFile.h"

#include <QFile>
#include <QFileInfo>
#include <QLibrary>

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <optional>
#include <string_view>
#include <system_error>
#include <utility>

#include <pulse/simple.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

using namespace std::chrono_literals;

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

// What is used of the audio library.
struct AudioLibrary {
    decltype(&pa_simple_new) open;
    decltype(&pa_simple_write) write;
    decltype(&pa_simple_get_latency) latency;
    decltype(&pa_simple_free) close;
    decltype(&pa_channel_map_init_extend) speakers;
};

template <typename Function>
bool resolve(Function& function, const char* name) {
    function = reinterpret_cast<Function>(QLibrary::resolve(QStringLiteral("pulse-simple"), 0, name));
    return function != nullptr;
}

// None where it is not installed. Opened at the first sound: it brings a dozen libraries, which the start does without.
const AudioLibrary* audioLibrary() {
    static AudioLibrary library;
    static const bool whole = resolve(library.open, "pa_simple_new") && resolve(library.write, "pa_simple_write") &&
                              resolve(library.latency, "pa_simple_get_latency") &&
                              resolve(library.close, "pa_simple_free") &&
                              resolve(library.speakers, "pa_channel_map_init_extend");
    return whole ? &library : nullptr;
}

// One wave at the sound server: what of it was not heard when this ends never will be.
class Stream {
public:
    Stream(const QByteArray& server, const Wave& wave)
        : frame_(wave.channels * wave.bits / 8), rate_(wave.rate), server_(library_ ? open(server, wave) : nullptr) {}
    ~Stream() {
        if (server_) library_->close(server_);
    }
    Stream(const Stream&) = delete;
    Stream& operator=(const Stream&) = delete;

    // Hands over the first piece of `samples` and takes it off; waits for room. False when the server takes no more.
    bool write(std::string_view& samples) {
        const std::string_view piece = samples.substr(0, bytesIn(Piece));
        samples.remove_prefix(piece.size());
        return server_ && library_->write(server_, piece.data(), piece.size(), nullptr) == 0;
    }

    // How long it takes until all that was handed over was heard. The server's figure is a guess, and may be any.
    std::chrono::microseconds left() const {
        constexpr pa_usec_t Longest = 5'000'000;
        return std::chrono::microseconds(std::min(library_->latency(server_, nullptr), Longest)) + 50ms;
    }

private:
    static constexpr std::uint32_t Ahead = 250; // ms of sound that the server keeps
    static constexpr std::uint32_t Start = 20;  // ms with which it begins to play
    static constexpr std::uint32_t Piece = 20;  // ms that it is handed at once

    pa_simple* open(const QByteArray& server, const Wave& wave) const {
        const pa_sample_spec format{wave.bits == 8    ? PA_SAMPLE_U8
                                    : wave.bits == 16 ? PA_SAMPLE_S16LE
                                                      : PA_SAMPLE_S32LE,
                                    wave.rate, static_cast<std::uint8_t>(wave.channels)};
        constexpr auto Default = static_cast<std::uint32_t>(-1);
        const pa_buffer_attr buffer{.maxlength = Default,
                                    .tlength = bytesIn(Ahead),
                                    .prebuf = std::min(static_cast<std::uint32_t>(wave.samples.size()), bytesIn(Start)),
                                    .minreq = Default,
                                    .fragsize = Default};
        pa_channel_map speakers;
        library_->speakers(&speakers, wave.channels, PA_CHANNEL_MAP_WAVEEX);
        return library_->open(server.constData(), "Brightrank", PA_STREAM_PLAYBACK, nullptr, "sounds", &format,
                              &speakers, &buffer, nullptr);
    }
    std::uint32_t bytesIn(std::uint32_t milliseconds) const { return rate_ * milliseconds / 1000 * frame_; }

    const AudioLibrary* library_ = audioLibrary();
    std::uint32_t frame_; // bytes
    std::uint32_t rate_;  // frames a second
    pa_simple* server_;   // none when it refused
};

} // namespace

// What the caller wants of the thread, the latest winning.
class WavePlayer::Orders {
public:
    void want(const QString& path) {
        tell([&] { wanted_ = path; });
    }
    void end() {
        tell([&] { ending_ = true; });
    }
    void noteEnded() {
        tell([&] { ended_ = true; });
    }

    // The next file, once there is one; empty at the end.
    QString next() {
        std::unique_lock lock(mutex_);
        changed_.wait(lock, [this] { return isNew(); });
        return ending_ ? QString() : std::exchange(wanted_, {});
    }

    // Whether what plays has to end, now or within `time`.
    bool isNewWithin(std::chrono::microseconds time) {
        std::unique_lock lock(mutex_);
        return changed_.wait_for(lock, time, [this] { return isNew(); });
    }

    bool endedWithin(std::chrono::seconds time) {
        std::unique_lock lock(mutex_);
        return changed_.wait_for(lock, time, [this] { return ended_; });
    }

private:
    template <typename Change>
    void tell(Change change) {
        const std::lock_guard lock(mutex_);
        change();
        changed_.notify_all();
    }
    bool isNew() const { return ending_ || !wanted_.isEmpty(); }

    std::mutex mutex_;
    std::condition_variable changed_;
    QString wanted_; // empty for none
    bool ending_ = false;
    bool ended_ = false;
};

WavePlayer::WavePlayer() : orders_(std::make_shared<Orders>()) {}

WavePlayer::~WavePlayer() {
    if (!thread_.joinable()) return;
    orders_->end();
    if (orders_->endedWithin(1s)) {
        thread_.join();
    } else {
        thread_.detach();
    }
}

void WavePlayer::play(const QString& path) {
    orders_->want(path);
    if (thread_.joinable()) return;
    try {
        thread_ = std::thread([orders = orders_] { serve(*orders); });
    } catch (const std::system_error&) {
        // A machine that has no thread left: the next file asks again.
    }
}

void WavePlayer::serve(Orders& orders) {
    for (QString path = orders.next(); !path.isEmpty(); path = orders.next()) playFile(path, orders);
    orders.noteEnded();
}

// The audio library is told the server: left to look for one itself it might print a complaint, or start one.
void WavePlayer::playFile(const QString& path, Orders& orders) {
    const QByteArray bytes = fileBytes(path);
    const std::optional<Wave> wave = readWave({bytes.constData(), static_cast<std::size_t>(bytes.size())});
    if (!wave) return;
    const QByteArray server = soundServer();
    if (server.isEmpty()) return;
    Stream stream(server, *wave);
    for (std::string_view rest = wave->samples; !rest.empty();) {
        if (orders.isNewWithin(0us) || !stream.write(rest)) return;
    }
    orders.isNewWithin(stream.left());
}

QByteArray fileBytes(const QString& path) {
    constexpr qint64 MaxBytes = qint64{4} * 1024 * 1024;
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly) || file.size() > MaxBytes) return {};
    return file.readAll();
}

QByteArray soundServer() {
    if (const QByteArray named = qgetenv("PULSE_SERVER"); !named.isEmpty()) return named;
    QByteArray folder = qgetenv("PULSE_RUNTIME_PATH");
    if (folder.isEmpty()) {
        const QByteArray runtime = qgetenv("XDG_RUNTIME_DIR");
        folder = (runtime.isEmpty() ? "/run/user/" + QByteArray::number(::getuid()) : runtime) + "/pulse";
    }
    const QByteArray path = folder + "/native";
    return listens(path) ? "unix:" + path : QByteArray();
}
