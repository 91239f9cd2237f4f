// What a session needs of the world outside: the socket, the timers, the console window, the user.
#pragma once

#include "common/Needed.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// The timers of a session; each runs Session::timerFired. tmrTCP and tmrClose repeat until they are stopped, the others
// fire once.
enum class SessionTimer { tmrArrival, tmrPrompt, tmrState, tmrTCP, tmrClose, AutoLogon, Messages };
inline constexpr int SessionTimers = static_cast<int>(SessionTimer::Messages) + 1;

// Every member must be given. None but those of BridgeSurface and UserSurface may run the message loop.

struct SocketSurface {
    Needed<std::string()> getData; // all that waits, one character a byte
    Needed<void(const std::string& bytes)> sendData;
    Needed<std::int16_t()> state; // 0 to 9, 7 for connected
    Needed<void(const std::string& host, std::int32_t port)> connectTo;
    Needed<void()> close;
};

struct TimerSurface {
    Needed<void(SessionTimer timer, int milliseconds)> start; // anew
    Needed<void(SessionTimer timer)> stop;
    Needed<std::int32_t()> millisecondsOfDay;
};

// txtOutput; text goes in at its insertion point.
struct ConsoleSurface {
    Needed<void(std::int32_t color)> setColor; // 0xBBGGRR, of what is inserted from now on
    Needed<void()> setEmphasis;
    Needed<void(const std::string& text)> insert;
    Needed<void()> moveToEnd;
    Needed<std::size_t()> length; // characters
};

// txtSend.
struct TypingSurface {
    Needed<std::string()> text;
    Needed<void(const std::string& text)> setText;
    Needed<void()> caretToEnd;
    Needed<void()> focus;
    Needed<void()> activate; // the console comes up and takes the keyboard
    Needed<void(bool masked)> mask;
};

// frmChessClient and its menu.
struct ClientSurface {
    Needed<std::string()> caption;
    Needed<void(const std::string& caption)> setCaption;
    Needed<std::string()> promptCaption; // lblPrompt
    Needed<void(const std::string& caption)> setPromptCaption;
    Needed<void()> ticksChanged; // one of the ticks that the session keeps has a new value
};

// The other windows.
struct WindowSurface {
    Needed<void()> openBoard; // one more frmChessBoard, loaded and in openWindows on return
    Needed<void()> openChat;  // one more frmChat, which proposes modChess.NewBuddy
    Needed<void()> showSeek;  // frmSeek
    Needed<void()> unloadSeek;
    Needed<void()> startHistory; // frmHistory, which takes modChess.gHelpTopic
    Needed<void()> startHelp;    // frmChessHelp, the same
    // Hand the complete answer to frmICSVars or frmNotes, which is loaded first, not shown, if it is not.
    Needed<void()> zParseVars;
    Needed<void()> zParseNotes;
};

struct UserSurface {
    Needed<void()> beep;
    Needed<void(std::string_view name, std::int16_t mode)> playSound; // a wave file and its sound setting
    Needed<void(const std::string& text)> message;
    Needed<bool(const std::string& text)> yesNo;
    Needed<std::string(const std::string& prompt, const std::string& title)> input; // empty on Cancel
};

// The TimeSeal relay.
struct BridgeSurface {
    Needed<void(double seconds)> wait;                                    // zWait
    Needed<bool()> programFound;                                          // in the current directory
    Needed<void(const std::vector<std::string>& arguments)> startProgram; // hidden
    Needed<std::int32_t()> zTimeSealHandle;                               // of a running relay, 0 for none
    Needed<void(std::int32_t handle)> requestEnd;
};

struct SessionSurface {
    SocketSurface socket;
    TimerSurface timers;
    ConsoleSurface console;
    TypingSurface typing;
    ClientSurface client;
    WindowSurface windows;
    UserSurface user;
    BridgeSurface bridge;
};
