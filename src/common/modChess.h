// The program-wide variables: plain fields without accessors; a test resets them by assignment.
#pragma once

#include "common/FixedArray.h"
#include "common/GameRecord.h"
#include "common/Style12Record.h"

#include <cstdint>
#include <string>

// The squares' colours that the user can always come back to.
inline constexpr std::int32_t DefaultColorWhite = 13495025; // red 241, green 234, blue 205
inline constexpr std::int32_t DefaultColorBlack = 3048380;  // red 188, green 131, blue 46

// The lines of a page of the server's help, as received.
using HelpPage = FixedArray<std::string, 500, "lines of a help page">;

// In place of a game number: who gets a move list.
inline constexpr std::int16_t MovesToFile = -1;
inline constexpr std::int16_t MovesToReview = -2; // the review board

// Colours are 0xBBGGRR. One instance, `modChess`; everything runs on the one thread of the message loop.
struct ModChess {
    // The stream
    std::string gPrompt; // the learnt prompt, trailing blank included; empty until learnt
    // 0 tmrArrival, 1 tmrState, 2 seek timer: due time in ms since midnight, below 1 while idle
    FixedArray<std::int32_t, 2> Deadlines{};

    // Captures: which answer of the server is being collected
    bool gVarsCapture = false;
    bool MovesCapture = false;
    bool gSoughtCapture = false;
    bool gNotesCapture = false;
    bool gHelpCapture = false;
    bool HistoryCapture = false;
    bool NewGameFlag = false;     // the latest Style 12 line opened a game on its board
    std::int16_t HistoryKind = 0; // 0 history, 1 journal, anything else stored games
    std::int16_t MovesTarget = 0; // game number, or MovesToFile or MovesToReview
    bool ExamineNoMoves = false;  // no move list could be asked for an examined game

    // Answers of the server for the panels
    std::string VarsBlock; // lines of the variables, end to end
    FixedArray<std::string, 9, "finger notes"> NotesText;
    HelpPage HelpLines;
    std::int16_t HelpCount = 0; // lines of it that are held
    std::int16_t HelpBlock = 0; // blocks of it that have come

    // Games as records
    GameRecord MovesRecord;     // the move list captured last, or being captured
    std::string MovesFile;      // path of the PGN file for MovesToFile
    std::int16_t PgnChoice = 0; // -1 while the chooser of games is open, then the row chosen, 0 for none
    std::string ExamineHandle;  // what frmExamine held when its Exit was pressed
    std::string ExamineGame;

    // Who has file number 1, under which game files are open; null for nobody.
    const void* FileOneHolder = nullptr;

    // Tells
    std::int16_t TellType = 0;
    std::string TellTarget;    // handle, or channel number in digits, of the latest tell
    std::string ChannelSender; // handle in the latest channel tell
    std::string LastBuddy;     // to whom the latest chat-box tell was sent
    std::string NewBuddy;      // the suggestion for the next chat box

    // The session
    std::string MyHandle;   // handle of the running session; empty when not connected
    std::string gLastCmd;   // last line sent, by any route
    std::string gLastTyped; // last line sent by the typed route
    std::string gHelpTopic;
    std::int32_t LinesSent = 0;
    bool AppClosing = false; // the client window is taking the program down
    bool gTestOpen = false;  // the diagnostics panel is up

    // Challenges and seeks
    bool MatchMode = false;   // frmMatch composes a challenge, not a seek; set by whoever opens it
    std::string LastOpponent; // what frmMatch held as the opponent when it closed

    // The console
    std::string BlockedText;    // console text held back in Block Mode
    bool gConsoleQuiet = false; // no output to the console at all
    bool gSeekOn = false;       // the seek graph is in use

    // Games
    Style12Record Record;       // the shared record: always the line just read
    bool GameRunning = false;   // a live game has its clock going
    bool SelfCheckOpen = false; // frmSelfCheck is loaded
    bool SelfCheckOK = true;    // a board may take a move

    // Options: what the program starts with, and then what the settings store holds or gives in its place
    std::string RegistryState = "No";
    std::int32_t ColorMain = 0;
    std::int32_t ColorBackground = 0xC0FFFF;
    std::int32_t ColorBar = 0xC0FFFF;
    std::int32_t ColorTell = 255;
    std::int32_t ColorCopy = 0xFF0000;
    std::int32_t ColorType = 0;
    std::int32_t ColorShout = 0x800080;
    std::int32_t ColorWhite = DefaultColorWhite;
    std::int32_t ColorBlack = DefaultColorBlack;
    std::int32_t ColorMove = 255;
    std::int32_t ColorPreMove = 65280;
    std::string MainFont;
    std::int16_t SoundOn = 1;
    std::int16_t SoundMove = 3;
    std::int16_t SoundArrive = 1;
    std::int16_t SoundStart = 3;
    std::int16_t SoundTell = 3;
    std::string ServerIP; // start-up fills in the FICS host's numeric address
    std::int32_t ServerPort = 5000;
    std::int16_t PreMoveOK = 0;
    std::int16_t AutoQueen = 0;
    std::int16_t ConfirmResign = 1;
    std::int16_t ChessSet = 0;
    std::int16_t MouseSlip = 0;
    std::int16_t SeekWhite = 0;
    std::int16_t DragMode = 1;
    std::int16_t SeekOff = 1;
    std::string PGNPath;
    std::string GamePath;
    std::int16_t WarnTime = 10; // seconds below which a clock warns
};

inline ModChess modChess;
