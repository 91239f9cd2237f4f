// The relay program of the chess server's side, run as a child process of the client.
#pragma once

#include <QProcess>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

// Looked for in the current directory.
inline constexpr const char* BridgeProgram = "timeseal.exe";

// Starts relays, knows whether one runs, and asks it to end. It runs without a shell, a terminal or a window, and does
// not outlive the client in whatever way that ends. One that has not ended when its successor starts is kept.
class TimesealBridge {
public:
    TimesealBridge() = default;
    // A relay that still runs gets half a second, is stopped then, and standard error says so.
    ~TimesealBridge();
    TimesealBridge(const TimesealBridge&) = delete;
    TimesealBridge& operator=(const TimesealBridge&) = delete;

    // Whether the program is there: a file that may be executed and cannot be another user's doing. One that can is
    // told on standard error.
    static bool programFound();
    // Starts the program; each of `arguments` (Latin-1) reaches it as one, whatever is in it. A start that fails is no
    // fault: no relay runs then.
    void start(const std::vector<std::string>& arguments);
    // The process id of the youngest relay that runs, 0 if there is none: the older ones were asked to end before it
    // started. The message loop keeps it up to date.
    std::int32_t zTimeSealHandle();
    // Asks the relay with this process id to end; does nothing if it has ended.
    void requestEnd(std::int32_t handle);

private:
    struct Relay {
        std::unique_ptr<QProcess> process;
        bool asked = false; // to end
    };

    static void request(Relay& relay);

    std::vector<Relay> relays_;
};
