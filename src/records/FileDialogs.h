// The desktop's file dialogs for game files.
#pragma once

#include <string>

class QWidget;

// Both begin in modChess.PGNPath for PGN files, in modChess.GamePath for the others, and give the path chosen, in the
// file system's own bytes; empty on Cancel. The message loop runs meanwhile, so `parent` may be gone afterwards.

// A file to read. Its folder is where the next dialog begins.
std::string zLoadFile(QWidget* parent, bool pgn);

// A file to write; asked again before one that exists is chosen.
std::string zSaveFile(QWidget* parent, bool pgn);
