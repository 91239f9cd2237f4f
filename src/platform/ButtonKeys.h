// What a key does while a button or a list of a window with a command line has the focus.
#pragma once

class QKeyEvent;
class QWidget;
class TypingLine;

// True if the key types a character, and is no command.
bool isCharacter(const QKeyEvent& event);

// True for the Enter key, of the letters and of the numbers.
bool isEnter(const QKeyEvent& event);

// Escape goes back to `line`, a character goes on in it. False if the key does neither.
bool goOnInLine(const QKeyEvent& event, TypingLine& line);

// For the keys that the button or list leaves to its window: Enter presses the button, a character goes on in `line`,
// Escape goes back there. `focus` is the widget that has the focus, or null. False if the key does none of this.
bool answerButtonKey(QWidget* focus, const QKeyEvent& event, TypingLine& line);
