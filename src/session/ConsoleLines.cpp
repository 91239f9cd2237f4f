// Pass 2 of the classifier: what a line is, its colour and its side effects.
#include "session/LineClassifier.h"

#include "common/Text.h"
#include "common/modChess.h"
#include "session/TellLine.h"

#include <algorithm>

namespace {

// The server's answer to a tell, "(told Bob, who is examining a game)", for the buddy of the latest chat-box tell.
bool isAnswerToTell(const std::string& line) {
    if (!contains(line, "(t") && !contains(line, "(T")) return false; // spares the copies for nearly every line
    return contains(lower(line), "(told " + lower(modChess.LastBuddy));
}

std::string chatCaption(const std::string& line) {
    std::string caption = "Chatting with " + modChess.LastBuddy;
    const auto who = line.find("who");
    if (who == line.npos) return caption;
    const auto end = std::min(line.find_first_of(")\r\n", who), line.size());
    const bool closed = end < line.size() && line[end] == ')';
    return caption + " (" + line.substr(who, end - who) + (closed ? ")" : "");
}

bool typedSo() {
    const std::string& typed = modChess.gLastTyped;
    return typed.size() > 2 && lower(typed.substr(0, 2)) == "so";
}

} // namespace

// `line` is the classifier's own copy.
void LineClassifier::printLine(std::string& line) {
    LineColor = modChess.ColorMain;
    if (line.empty()) return;
    classify(line);
    if (line.front() == '\\') continuation(line);
    hooks.setColor(LineColor);
    PreviousColor = LineColor;
    output(line);
}

// The first test that fits wins: a line that tells an arrival and a game's end ends the game and does not beep.
void LineClassifier::classify(const std::string& line) {
    const std::int16_t type = zTellLine(line);
    const PhraseSet holds = phrasesIn(line);
    if (type == Shout) {
        LineColor = modChess.ColorShout;
    } else if (type != NoTell) {
        otherTell(type);
    } else if (isAnswerToTell(line)) {
        answerToTell(line);
    } else if (holds.has(Phrase::Challenge)) {
        challenge();
    } else if (holds.has(Phrase::Login)) {
        hooks.logOnPrompt(1);
    } else if (holds.has(Phrase::Password)) {
        hooks.logOnPrompt(2);
    } else if (holds.hasAny(Phrase::SessionStart, Phrase::Underscores)) {
        hooks.zSendMsg("Set Style 12");
    } else if (holds.hasAny(Phrase::BacksUp, Phrase::GoesForward)) {
        SuppressCount = -1;
    } else if (holds.hasAny(Phrase::WhiteWins, Phrase::Aborted)) {
        hooks.zEndGame(line);
    } else if (holds.hasAny(Phrase::HasArrived, Phrase::HasDeparted)) {
        hooks.beep();
    } else if (holds.has(Phrase::StyleSet)) {
        if (menu.mnuSeekGrf) hooks.showSeek();
    } else if (holds.has(Phrase::Quillf)) {
        SuppressCount = 2;
    } else if (line.size() < 2) {
        SuppressCount = 1;
    } else if (modChess.gSeekOn && modChess.gLastCmd == "sought") {
        answerToSoughtPoll(line);
    } else {
        seekAnnouncement(line);
    }
}

void LineClassifier::otherTell(std::int16_t type) {
    LineColor = modChess.ColorTell;
    if (type < ChannelTell) hooks.playSound("whistle.wav", modChess.SoundTell);
}

void LineClassifier::answerToTell(const std::string& line) {
    const int chat = hooks.findChat(modChess.LastBuddy);
    if (chat == -1) return;
    hooks.playSound("send.wav", modChess.SoundTell);
    hooks.setChatCaption(chat, chatCaption(line));
    SuppressCount = 2;
}

void LineClassifier::challenge() {
    hooks.setEmphasis();
    LineColor = modChess.ColorTell;
}

// The graph's own poll is answering: its table and the count line, "3 ads displayed.", with the prompt behind it.
void LineClassifier::answerToSoughtPoll(const std::string& line) {
    if (line.size() > 68) {
        if (contains(line, "rated") && mid(line, 68, 1) == "-") SuppressCount = 1;
    } else if (contains(line, "ads displayed.")) {
        SuppressCount = 2;
    }
}

// Hidden while the graph is on or a game has just begun, unless the user asked for the table himself.
void LineClassifier::seekAnnouncement(const std::string& line) {
    if (!hooks.zSoughtLine(line)) return;
    if ((modChess.gSeekOn || modChess.NewGameFlag) && !typedSo()) SuppressCount = 1;
}

void LineClassifier::continuation(std::string& line) {
    line.erase(0, 1);
    line.erase(0, line.find_first_not_of(' '));
    if (TellToChat && hooks.zChatBox(line)) {
        SuppressCount = 2;
    } else {
        LineColor = PreviousColor;
    }
}
