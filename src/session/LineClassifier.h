// Decides for each line of a batch where it goes: to a board, a capture, a chat box, the console, or nowhere.
#pragma once

#include "session/Captures.h"
#include "session/LinePhrases.h"
#include "session/ServerLines.h"

#include <cstdint>
#include <functional>
#include <string>

// What the classifier reaches out to. A board or a chat box is a window number, its place in the list of open windows,
// -1 for none; it is good only until a window opens or closes. A line is passed with its CR LF and is good until the
// message loop is pumped. Unset members do nothing.
struct ClassifierHooks {
    // Boards
    // Reads a Style 12 line and delivers the record to its board; true if it reached one.
    std::function<bool(const std::string& line)> zStyle12Line = [](const std::string&) { return false; };
    // The board of `game`.
    std::function<int(std::int16_t game)> zFindBoard = [](std::int16_t) { return -1; };
    // Each of these is never called with -1.
    std::function<void(int board, const std::string& line)> zSetBughouse = [](int, const std::string&) {};
    std::function<void(int board)> zSetPosition = [](int) {};
    std::function<void(int board)> zExitMove = [](int) {};
    // zGetMoves with the board's xMyRel and xGameNum.
    std::function<void(int board)> getMoves = [](int) {};
    // Show and SetFocus.
    std::function<void(int board)> showBoard = [](int) {};
    // The end of a game, told by `line`.
    std::function<void(const std::string& line)> zEndGame = [](const std::string&) {};

    // Seeks
    // True if the line is a seek advertisement.
    std::function<bool(const std::string& line)> zSoughtLine = [](const std::string&) { return false; };
    std::function<void()> showSeek = [] {};
    std::function<void()> unloadSeek = [] {};

    // Chat boxes
    // Hands the line to the box of modChess.TellTarget; true if there is one.
    std::function<bool(const std::string& line)> zChatBox = [](const std::string&) { return false; };
    // The box whose xBuddy equals `buddy`.
    std::function<int(const std::string& buddy)> findChat = [](const std::string&) { return -1; };
    std::function<void(int chat, const std::string& caption)> setChatCaption = [](int, const std::string&) {};

    // Console, at its insertion point
    std::function<void()> setEmphasis = [] {};
    std::function<void(std::int32_t color)> setColor = [](std::int32_t) {};
    std::function<void(const std::string& text)> insert = [](const std::string&) {};

    // Log-on
    // 1 after "login:", 2 after "password:".
    std::function<void(std::int16_t login)> setLogin = [](std::int16_t) {};
    // Masks the typing line with "*".
    std::function<void()> maskTyping = [] {};
    // Focus on the typing line and the Up key there. The prompt's line is printed after this call, so a key that is
    // delivered by the message loop keeps the echo behind the prompt.
    std::function<void()> autoLogonKey = [] {};

    // Sounds and the road to the server
    // A wave file's name and the mode of its sound setting.
    std::function<void(const char* name, std::int16_t mode)> playSound = [](const char*, std::int16_t) {};
    std::function<void()> beep = [] {};
    std::function<void(const std::string& text)> zSendMsg = [](const std::string&) {};
};

// The ticks of the console's menu that the classifier reads; that of Verbose Mode is ServerLines::verbose.
struct ConsoleMenu {
    bool mnuBlocked = false;   // Block Mode: lines pile up in modChess.BlockedText
    bool mnuAutoLogon = false; // prompts are answered from the settings
    bool mnuSeekGrf = false;   // the seek graph opens by itself
};

// Two passes over a batch. Pass 1 routes: what a board, a capture or a chat box takes is blanked. Pass 2 colours and
// prints what is left. The order of the tests is the design: the first that fits wins.
struct LineClassifier {
    ServerLines& lines;
    Captures& captures;
    ClassifierHooks hooks;
    ConsoleMenu menu;

    // The line eater: 0 prints; 1 to 100 drops so many lines; above 100 drops short lines until a longer one, which is
    // printed; -1 prints this line and drops the next.
    std::int32_t SuppressCount = 0;
    std::int32_t LineColor = 0;     // of the line being printed
    std::int32_t PreviousColor = 0; // of the line before; continuation lines take it over
    bool TellToChat = false;        // the latest tell of this batch went to a chat box
    bool PromptShown = false;       // the last printed text was the bare prompt
    std::string LastStyle12Line;    // the latest that was not first in its batch; read by nothing

    LineClassifier(ServerLines& serverLines, Captures& runningCaptures)
        : lines(serverLines), captures(runningCaptures) {}

    // Cuts `text` into `lines` and takes them through both passes. Faults (subscript) pass through: a batch of more
    // than 1001 lines, a bughouse line whose game has no board, and those of the hooks.
    void zDataParse(const std::string& text);

private:
    // Pass 1, LineRouting.cpp
    void routeLine(int i, int count);
    void style12(int i, int count);
    void blankBehindStyle12(int i, int count, int board);
    void setPosition();
    void bughouse(int i, int count);
    void setBughouse(int board, const std::string& line);
    void detectTell(int i, int count);
    void offerTell(int i);
    void blankBehindTell(int i, int count);

    // Pass 2, ConsoleLines.cpp
    void printLine(std::string& line);
    void classify(const std::string& line);
    void otherTell(std::int16_t type);
    void answerToTell(const std::string& line);
    void challenge();
    void loginPrompt();
    void passwordPrompt();
    void answerToSoughtPoll(const std::string& line);
    void seekAnnouncement(const std::string& line);
    void continuation(std::string& line);

    // Pass 2, Suppression.cpp
    void output(std::string& line);
    bool dropped(const std::string& line);
    void skipRepeatedPrompt(std::string& line);
    void insertOrBlock(const std::string& line);
};
