// Decides for each line of a batch where it goes: to a board, a capture, a chat box, the console, or nowhere.
#pragma once

#include "common/Needed.h"
#include "session/Captures.h"
#include "session/LinePhrases.h"
#include "session/ServerLines.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

// What the classifier reaches out to. A board or a chat box is a window number, its place in the list of open windows,
// -1 for none; it is good only until a window opens or closes. A line is passed with its CR LF.
struct ClassifierHooks {
    // Boards
    // Reads a Style 12 line and delivers the record to its board; true if it reached one.
    Needed<bool(const std::string& line)> zStyle12Line;
    // The board of `game`.
    Needed<int(std::int16_t game)> zFindBoard;
    // Each of these is never called with -1.
    Needed<void(int board, const std::string& line)> zSetBughouse;
    Needed<void(int board)> zSetPosition;
    Needed<void(int board)> zExitMove;
    // With the board's xMyRel and xGameNum.
    Needed<void(int board)> zGetMoves;
    // Show and SetFocus.
    Needed<void(int board)> showBoard;
    // The end of a game, told by `line`.
    Needed<void(const std::string& line)> zEndGame;

    // Seeks
    // True if the line is a seek advertisement.
    Needed<bool(const std::string& line)> zSoughtLine;
    Needed<void()> showSeek;
    Needed<void()> unloadSeek;

    // Chat boxes
    // Hands the line to the box of modChess.TellTarget; true if there is one.
    Needed<bool(const std::string& line)> zChatBox;
    // The box whose xBuddy equals `buddy`.
    Needed<int(const std::string& buddy)> findChat;
    Needed<void(int chat, const std::string& caption)> setChatCaption;

    // Console, at its insertion point
    Needed<void()> setEmphasis;
    Needed<void(std::int32_t color)> setColor;
    Needed<void(const std::string& text)> insert;

    // Log-on
    // The prompt's line is printed after this call: 1 "login:", 2 "password:".
    Needed<void(std::int16_t login)> logOnPrompt;

    // Sounds and the road to the server
    // A wave file's name and the mode of its sound setting.
    Needed<void(std::string_view name, std::int16_t mode)> playSound;
    Needed<void()> beep;
    Needed<void(const std::string& text)> zSendMsg;
};

// The ticks of the console's menu that the classifier reads; that of Verbose Mode is ServerLines::verbose.
struct ConsoleMenu {
    bool mnuBlocked = false; // Block Mode: lines pile up in modChess.BlockedText
    bool mnuSeekGrf = false; // the seek graph opens by itself
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

    LineClassifier(ServerLines& serverLines, Captures& runningCaptures, ClassifierHooks reachedOut)
        : lines(serverLines), captures(runningCaptures), hooks(std::move(reachedOut)) {}

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
    void answerToSoughtPoll(const std::string& line);
    void seekAnnouncement(const std::string& line);
    void continuation(std::string& line);

    // Pass 2, Suppression.cpp
    void output(std::string& line);
    bool dropped(const std::string& line);
    void skipRepeatedPrompt(std::string& line);
    void insertOrBlock(const std::string& line);
};
