// Pass 1 of the classifier: lines to boards, captures and chat boxes.
#include "session/LineClassifier.h"

#include "common/Fault.h"
#include "common/Text.h"
#include "common/modChess.h"
#include "session/TellLine.h"

#include <algorithm>

namespace {

// Up to this length, CR LF included, a line behind a board update is taken for a prompt.
constexpr std::size_t ShortLine = 15;

// Drops short lines until the next longer one.
constexpr std::int32_t DropShortLines = 1000;

// The front of the text that met a limit, for somebody who reads it in a box or on a terminal.
std::string metBy(std::string_view text) {
    constexpr std::size_t Enough = 160;
    std::string shown(text.substr(0, Enough));
    while (shown.ends_with('\n') || shown.ends_with('\r')) shown.pop_back();
    std::ranges::replace_if(
        shown, [](char c) { return c < ' ' || c == 127; }, '?');
    return ", met by \"" + shown + (text.size() > Enough ? "...\"" : "\"");
}

bool isBughouse(const std::string& line) { return contains(line, "<b1>"); }

} // namespace

void LineClassifier::zDataParse(const std::string& text) {
    if (modChess.AppClosing) return; // no board opens any more, and no text has a place to go
    std::string line;                // the one at hand; one copy for all keeps its room
    try {
        const int count = lines.zParse(text);
        TellToChat = false;
        for (int i = 0; i < count; ++i) {
            line = lines[i];
            routeLine(i, count);
            detectTell(i, count);
        }
        for (int i = 0; i < count; ++i) {
            line = lines[i];
            printLine(line);
        }
    } catch (const Fault& fault) {
        throw Fault(fault.kind(), fault.what() + metBy(line.empty() ? text : line));
    }
}

void LineClassifier::routeLine(int i, int count) {
    if (contains(lines[i], "<12> ") && hooks.zStyle12Line(lines[i])) {
        style12(i, count);
    } else if (isBughouse(lines[i])) {
        bughouse(i, count);
    } else {
        captures.route(lines, i);
    }
}

void LineClassifier::style12(int i, int count) {
    const int board = hooks.zFindBoard(modChess.Record.GameNumber);
    if (i > 0) {
        LastStyle12Line = lines[i];
        lines.zClearLines(i - 1);
        lines.zClearLines(i);
        blankBehindStyle12(i, count, board);
    }
    if (modChess.SeekOff != 0) {
        modChess.gSeekOn = false;
        hooks.unloadSeek();
    }
    setPosition();
}

// Goes one past the last line: what stands there is a line of an older batch.
void LineClassifier::blankBehindStyle12(int i, int count, int board) {
    for (int j = i + 1; j <= count; ++j) {
        if (lines[j].size() > ShortLine) {
            if (!isBughouse(lines[j])) return;
            setBughouse(board, lines[j]);
        }
        lines.zClearLines(j);
    }
}

void LineClassifier::setPosition() {
    const std::int16_t game = modChess.Record.GameNumber;
    const int board = hooks.zFindBoard(game);
    if (board == -1) return;
    hooks.zSetPosition(board);
    if (!modChess.NewGameFlag) return;
    hooks.zExitMove(board);
    hooks.zGetMoves(board);
    modChess.MovesTarget = game;
    hooks.showBoard(board);
}

// "<b1> game 1 white [PN] black []": the board is that of the latest record, whatever game the line names.
void LineClassifier::bughouse(int i, int count) {
    setBughouse(hooks.zFindBoard(modChess.Record.GameNumber), lines[i]);
    lines.zClearLines(i);
    for (int j = i + 1; j <= count && lines[j].size() <= ShortLine; ++j) lines.zClearLines(j);
}

void LineClassifier::setBughouse(int board, const std::string& line) {
    if (board == -1) throw Fault(FaultKind::Subscript, "bughouse holdings for a game that has no board");
    hooks.zSetBughouse(board, line);
    SuppressCount = DropShortLines;
}

void LineClassifier::detectTell(int i, int count) {
    const std::int16_t type = zTellLine(lines[i]);
    modChess.TellType = type;
    if (type == PersonalTell) {
        modChess.TellTarget = zGetTell(lines[i]);
    } else if (type >= ChannelTell) {
        modChess.TellTarget = std::to_string(type - ChannelTell);
    } else {
        return;
    }
    offerTell(i);
    blankBehindTell(i, count);
}

void LineClassifier::offerTell(int i) {
    TellToChat = hooks.zChatBox(lines[i]);
    if (!TellToChat) return;
    lines.zClearLines(i - 1);
    lines.zClearLines(i);
    const bool own = modChess.TellType != PersonalTell && modChess.MyHandle == modChess.ChannelSender;
    hooks.playSound(own ? "send.wav" : "whistle.wav", modChess.SoundTell);
}

// Takes the prompt that stands between a tell and the next text; the last line of the batch stays.
void LineClassifier::blankBehindTell(int i, int count) {
    for (int j = i + 1; j <= count - 2; ++j) {
        if (lines[j].empty() || lines[j].front() == '\\') continue;
        lines.zClearLines(j);
        return;
    }
}
