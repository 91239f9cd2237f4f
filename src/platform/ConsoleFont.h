// The font of the console and of all typing lines.
#pragma once

#include <QFont>

#include <string>

// The font of a stored name (Latin-1, not empty). Where the machine has none of that name a fixed-width one stands in,
// and the font is still called by its first family.
QFont consoleFont(const std::string& name);

// That of modChess.MainFont, or of the prescribed name while that is empty.
QFont consoleFont();
