// What can happen in an input of fuzz_stream; README.md has the table. A number without a name does nothing.
#pragma once

// Groups of sixteen, with room in each. A number, once in a kept input, stays what it is.
namespace Event {
enum : int {
    Nothing = 0, // a new packet

    // The line is quiet, and the console's menus
    Silence,
    TmrArrival,
    TmrPrompt,
    TmrState,
    VerboseMode,
    BlockMode,
    SeekGraph,
    Capture,
    LaterCapture,
    Command,
    HangUp,
    ConsoleQuiet,
    AutoLogon,
    CaptureOptions,
    NewBoard,

    // A board, picked by `which`
    FirstOfBoard = 16,
    Clock = FirstOfBoard,
    NoPlayOver = 18,
    ExitMove,
    New,
    Invert,
    Clean,
    Un,
    ChatFromBoard,
    Resized,
    AskGame,
    CloseAtOnce,
    CloseLater,
    CloseByProgram,
    CloseByUser,

    // The mouse on a board; `choice` is the display square, or what is chosen
    FirstOfMouse = 32,
    LeftPress = FirstOfMouse,
    LeftRelease,
    RightPress,
    RightRelease,
    PointerMoves,
    PointerLeaves,
    LeftReleaseBeside,
    TmrSlip,
    PromotionAnswer,
    DropAnswer,
    Lift,      // moves there, presses, and in click style lets go
    Land,      // moves there, and lets go or clicks, by style
    Walk,      // one of the five buttons below the move list
    ClickMove, // in the move list, a few rows around the one that the board stands at

    // Chat boxes, picked by `which`, and what is typed
    FirstOfTyping = 48,
    NewChat = FirstOfTyping,
    NameChat, // answers the question for the buddy; takes the text
    TypeTell, // takes the text
    TypeTalk, // with the focus on the conversation; takes the text; bit 3 of `choice`: and Enter
    TellEnter,
    TellKey,
    CloseChat,
    TypeLine, // in the console; takes the text
    LineKey,
    AskForBuddy, // the question for the buddy comes up, and stays

    // Options; `argument` has them all
    FirstOfLine = 64,
    Options = FirstOfLine,
    ConnectionOptions,

    // The line; `argument` is a time or a number, `choice` what is chosen
    TimePasses, // milliseconds
    Burst,      // the text arrives so many times more, at once
    Connect,
    Disconnect,
    SocketError,
    TmrTCP,
    TmrClose,
    ProgramCloses,

    // The window of listed games; `choice` is what is pressed
    Lists,

    // The panels of variables and notes; `choice` is what is done, by turns to the one and the other
    Panels,

    // The panel of help and the self check; `choice` is what is pressed
    Help = 80,
    SelfCheck,
};

constexpr bool takesText(int kind) {
    return kind == NameChat || kind == TypeTell || kind == TypeTalk || kind == TypeLine;
}

constexpr bool isOfBoard(int kind) { return kind >= FirstOfBoard && kind < FirstOfTyping; }
constexpr bool isByHand(int kind) { return kind >= FirstOfBoard && kind < FirstOfLine; }
} // namespace Event
