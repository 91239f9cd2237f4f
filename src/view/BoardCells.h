// The squares of a board for assistive tools: a table as it stands on the screen, of which each cell is a square.
#pragma once

#include <QString>

#include <functional>

class BoardView;

// From now on assistive tools find `view` as a table of 8 rows by this name, the upper left square first, with the
// moves and the position as its description. A cell is called "e4, white pawn"; its first action is what Enter does
// there. Once, before they have heard of it.
void describeSquares(BoardView* view, const QString& name);

// Tells them that `square` (0 to 63) is the one the user is at. A test puts its own in.
extern std::function<void(BoardView* view, int square)> announceSquare;

// Tells them that what stands on `square` (0 to 63) may have changed, if anybody has looked at it. A test puts its own
// in.
extern std::function<void(BoardView* view, int square)> announcePiece;
